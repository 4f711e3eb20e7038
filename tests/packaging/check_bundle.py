#!/usr/bin/python3
"""check_bundle.py MAKE BIN: packaging/bundle/make is run on the folder BIN of any build's libraries. The description
that it writes has nothing but elements and attributes that the host's reference of the format lists, all that are required,
with values that it knows, and names files that are in the bundle."""

import os
import pathlib
import re
import subprocess
import sys
import tempfile
import xml.etree.ElementTree as xml

TRUTH = re.compile("True|False")
TEXT = re.compile(r".*\S.*")
SERIES = re.compile(r"R\d+\.\d+")
GUID = re.compile(r"\{[0-9A-F]{8}(-[0-9A-F]{4}){3}-[0-9A-F]{12}\}")
VERSION = re.compile(r"\d+(\.\d+){3}")
# A path inside of the bundle.
PATH = re.compile(r"\./[^\\]+")

# Element: (required attributes, others, elements inside), an attribute with what its value looks like. What the host's
# reference lists beyond that is not used, and a fault here until it is looked up.
SCHEMA = {
    "ApplicationPackage": (
        {"SchemaVersion": re.compile(r"1\.0"), "AppVersion": VERSION, "ProductCode": GUID},
        {"Author": TEXT, "Name": TEXT, "Description": TEXT, "HelpFile": PATH, "UpgradeCode": GUID},
        {"CompanyDetails", "RuntimeRequirements", "Components"}),
    "CompanyDetails": ({"Name": TEXT}, {"Phone": TEXT, "Url": TEXT, "Email": TEXT}, set()),
    "RuntimeRequirements": (
        {"OS": re.compile("Win64"), "Platform": TEXT, "SeriesMin": SERIES, "SeriesMax": SERIES},
        {"SupportPath": PATH}, set()),
    "Components": ({}, {"Description": TEXT}, {"RuntimeRequirements", "ComponentEntry"}),
    "ComponentEntry": (
        {"AppName": TEXT, "ModuleName": PATH, "AppType": re.compile("Arx")},
        {"AppDescription": TEXT, "Version": VERSION, "LoadOnCommandInvocation": TRUTH, "LoadOnRequest": TRUTH},
        {"RuntimeRequirements", "Commands"}),
    "Commands": ({"GroupName": TEXT}, {}, {"Command"}),
    "Command": ({"Global": TEXT, "Local": TEXT}, {"HelpTopic": TEXT, "Description": TEXT}, set()),
}
ONCE = {"CompanyDetails", "Components", "Commands"}


def schema_faults(element):
    required, others, inside = SCHEMA[element.tag]
    known = required | others
    yield from (f"{element.tag} lacks {name}" for name in sorted(required.keys() - element.attrib.keys()))
    for name, value in element.attrib.items():
        if name not in known:
            yield f"{element.tag} has an unknown {name}"
        elif not known[name].fullmatch(value):
            yield f"{element.tag} has {name}={value!r}"
    for child in element:
        if child.tag not in inside:
            yield f"{element.tag} holds {child.tag}"
        else:
            yield from schema_faults(child)
    for tag in sorted(ONCE & inside):
        if len(element.findall(tag)) > 1:
            yield f"{element.tag} has more than one {tag}"


def content_faults(package, bundle):
    if package.get("ProductCode") == package.get("UpgradeCode"):
        yield "one GUID serves as both codes"
    entries = list(package.iter("ComponentEntry"))
    if not entries:
        yield "there is no ComponentEntry"
    paths = [package.get("HelpFile", ".")] + [entry.get("ModuleName") for entry in entries]
    supports = [folder for needs in package.iter("RuntimeRequirements")
                for folder in needs.get("SupportPath", "").split(";")]
    for path in paths + supports:
        if not (bundle / path).exists():
            yield f"nothing is at {path} in the bundle"
    for entry in entries:
        module = bundle / entry.get("ModuleName")
        if "True" not in (entry.get("LoadOnCommandInvocation"), entry.get("LoadOnRequest")):
            yield f"nothing has {module.name} loaded"
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


def faults_of(package, bundle, sources):
    if package.tag != "ApplicationPackage":
        return ["the root is no ApplicationPackage"]
    # What is in the bundle can be looked for when the description is one.
    return list(schema_faults(package)) or [*content_faults(package, bundle), *command_faults(package, sources)]


# What this test is to find: (what is written, what stands there instead, the fault).
MISTAKES = (
    ('OS="Win64"', 'OS="Win65"', "has OS='Win65'"),
    ('AppType="Arx"', 'AppType="ARX"', "has AppType='ARX'"),
    ('LoadOnCommandInvocation="True"', 'LoadOnCommandInvocation="yes"', "has LoadOnCommandInvocation='yes'"),
    ('LoadOnCommandInvocation="True"', "", "nothing has KIVGUI.ARX loaded"),
    ('SeriesMin="R26.0"', 'SeriesMin="26"', "has SeriesMin='26'"),
    ('Name="KIV"', 'Nome="KIV"', "has an unknown Nome"),
    ("<CompanyDetails", '<CompanyDetails Name="2" /><CompanyDetails', "more than one CompanyDetails"),
    ("<Commands ", "<RegistryEntries /><Commands ", "ComponentEntry holds RegistryEntries"),
    ("./Contents/KIVGUI.ARX", "./Contents/Kiv.ARX", "nothing is at ./Contents/Kiv.ARX"),
    ("./Contents/KIVGUI.ARX", r".\Contents\KIVGUI.ARX", "has ModuleName="),
    ('Local="UT2"', 'Local="UT3"', "are not those of the module"),
)


def mistakes_missed(text, bundle, sources):
    for right, wrong, wanted in MISTAKES:
        if right not in text:
            yield f"the description has no {right}"
            continue
        found = faults_of(xml.fromstring(text.replace(right, wrong, 1)), bundle, sources)
        if not any(wanted in fault for fault in found):
            yield f"{wrong or 'nothing'} for {right} gives {found}, not '{wanted}'"


def built(programs, folder, version):
    """The libraries with what a resource of their version looks like."""
    os.makedirs(folder)
    for name in ("KIVGUI.ARX", "KivDll.arx", "KivFile.arx"):
        resource = f"\0\0ProductVersion\0\0{version}\0\0".encode("utf-16-le")
        (folder / name).write_bytes((programs / name).read_bytes() + resource)
    return folder


def refusal(make, *arguments):
    tried = subprocess.run([make, *arguments], capture_output=True, text=True)
    return tried.stderr if tried.returncode != 0 else ""


make, programs = map(pathlib.Path, sys.argv[1:])
sources = make.parents[2]
version = re.search(r"^project\(kiv VERSION ([\d.]+)", (sources / "CMakeLists.txt").read_text(), re.MULTILINE)[1]
with tempfile.TemporaryDirectory() as work:
    folder = pathlib.Path(work)
    module = built(programs, folder / "module", version)
    subprocess.run([make, module, work, "26"], check=True)
    bundle = folder / "KIV.bundle"
    text = (bundle / "PackageContents.xml").read_text(encoding="utf-8")
    faults = [*faults_of(xml.fromstring(text.encode()), bundle, sources), *mistakes_missed(text, bundle, sources)]
    if "not built for one" not in refusal(make, module, work):
        faults.append("a module for another host is taken")
    if "is of version 0.0.9, not" not in refusal(make, built(programs, folder / "older", "0.0.9"), work, "26"):
        faults.append("a module of another version is taken")
print("\n".join(faults))
sys.exit(1 if faults else 0)
