#!/usr/bin/python3
"""check_bundle.py MAKE BIN: packaging/bundle/make is run on the folder BIN of any build's libraries. The description
that it writes has nothing but the elements and attributes that the host's reference of the format lists, all that are
required, and names files that are in the bundle."""

import pathlib
import re
import subprocess
import sys
import tempfile
import xml.etree.ElementTree as xml

# Element: (required attributes, others, elements inside). Localised forms of attributes are not used.
SCHEMA = {
    "ApplicationPackage": (
        {"SchemaVersion", "AppVersion", "ProductCode"},
        {"Author", "Name", "Description", "Icon", "HelpFile", "UpgradeCode", "OnlineDocumentation", "FriendlyVersion",
         "SupportedLocales", "AppNameSpace", "ProductType", "AutodeskProduct"},
        {"CompanyDetails", "RuntimeRequirements", "Components"}),
    "CompanyDetails": ({"Name"}, {"Phone", "Url", "Email"}, set()),
    "RuntimeRequirements": (set(), {"OS", "Platform", "SeriesMin", "SeriesMax", "SupportPath", "ToolPalettePath",
                                    "SupportedLocales"}, set()),
    "Components": (set(), {"Description"}, {"RuntimeRequirements", "RegistryEntries", "SystemVariables",
                                            "EnvironmentVariables", "ComponentEntry"}),
    "ComponentEntry": (
        {"AppName", "ModuleName"},
        {"AppDescription", "AppType", "Version", "PerDocument", "LoadOnCommandInvocation", "LoadOnAutoCADStartup",
         "LoadOnProxy", "LoadOnAppearance", "LoadOnRequest"},
        {"RuntimeRequirements", "AssemblyMappings", "Commands"}),
    "Commands": ({"GroupName"}, set(), {"Command"}),
    "Command": ({"Global", "Local"}, {"HelpTopic", "StartupCommand", "Description"}, set()),
}
GUID = re.compile(r"\{[0-9A-F]{8}(-[0-9A-F]{4}){3}-[0-9A-F]{12}\}")
SERIES = re.compile(r"R\d+\.\d+")
ONCE = {"CompanyDetails", "Commands"}


def schema_faults(element):
    required, others, inside = SCHEMA[element.tag]
    names = set(element.attrib)
    yield from (f"{element.tag} lacks {name}" for name in sorted(required - names))
    yield from (f"{element.tag} has an unknown {name}" for name in sorted(names - required - others))
    yield from (f"{element.tag} has an empty {name}" for name in sorted(names) if not element.get(name))
    for child in element:
        if child.tag not in inside:
            yield f"{element.tag} holds {child.tag}"
        else:
            yield from schema_faults(child)
    for tag in ONCE & inside:
        if len(element.findall(tag)) > 1:
            yield f"{element.tag} has more than one {tag}"


def content_faults(package, bundle):
    if package.get("SchemaVersion") != "1.0":
        yield "SchemaVersion is not 1.0"
    if not re.fullmatch(r"\d+(\.\d+){3}", package.get("AppVersion", "")):
        yield "AppVersion is no version of four numbers"
    for code in ("ProductCode", "UpgradeCode"):
        if not GUID.fullmatch(package.get(code, "")):
            yield f"{code} is no GUID"
    if package.get("ProductCode") == package.get("UpgradeCode"):
        yield "one GUID serves as both codes"
    entries = list(package.iter("ComponentEntry"))
    if not entries:
        yield "there is no ComponentEntry"
    paths = [package.get("HelpFile")] + [entry.get("ModuleName") for entry in entries]
    supports = [folder for needs in package.iter("RuntimeRequirements")
                for folder in needs.get("SupportPath", "").split(";")]
    for path in paths + supports:
        if "\\" in path or not path.startswith("./") or not (bundle / path).exists():
            yield f"nothing is at {path} in the bundle"
    for needs in package.iter("RuntimeRequirements"):
        for name in ("SeriesMin", "SeriesMax"):
            if not SERIES.fullmatch(needs.get(name, "")):
                yield f"{name} is no release"
    for entry in entries:
        module = bundle / entry.get("ModuleName")
        if entry.get("LoadOnCommandInvocation") == "True" and not entry.findall("Commands/Command"):
            yield f"{module.name} would be loaded by commands and names none"
        # Its specifications are where the host's file search finds the module.
        if module.parent.resolve() not in [(bundle / folder).resolve() for folder in supports]:
            yield f"the host's file search does not find {module.name}"
        for beside in ("CFG", "samples", "settings", "KivDll.arx", "KivFile.arx"):
            if not (module.parent / beside).exists():
                yield f"{beside} is not beside {module.name}"


def command_faults(package, sources):
    """The commands are those that the module registers."""
    text = (sources / "host/module.cpp").read_text(encoding="utf-8")
    registered = set(re.findall(r'addCommand\(\*stack, L"(\w+)", L"(\w+)"', text))
    named = {(command.get("Global"), command.get("Local")) for command in package.iter("Command")}
    if named != registered:
        yield f"the commands {sorted(named)} are not those of the module, {sorted(registered)}"


make, programs = map(pathlib.Path, sys.argv[1:])
with tempfile.TemporaryDirectory() as work:
    subprocess.run([make, programs, work, "26"], check=True)
    folder = pathlib.Path(work) / "KIV.bundle"
    refused = subprocess.run([make, programs, work], capture_output=True, text=True)
    if refused.returncode == 0 or "not built for one" not in refused.stderr:
        sys.exit("a module for another host is taken: " + refused.stderr)
    root = xml.parse(folder / "PackageContents.xml").getroot()
    faults = [] if root.tag == "ApplicationPackage" else ["the root is no ApplicationPackage"]
    if not faults:
        faults = [*schema_faults(root), *content_faults(root, folder), *command_faults(root, make.parents[2])]
print("\n".join(faults))
sys.exit(1 if faults else 0)
