#!/usr/bin/python3
"""Tries as much of the build for another host (the preset msvc) as can be without that host and its compiler:
configures it with a development kit that has what docs/host-interface.md lists and nothing else, and has clang read
every source of it strictly, for Windows, with the framework and the system's header before everything.

usage: try_real_host.py BUILD_FOLDER LIST WORK_FOLDER
"""

import concurrent.futures
import glob
import json
import os
import shutil
import subprocess
import sys

import listed_headers
from check_list import ROOT, symbols

FRAMEWORK = os.path.join(ROOT, "tests", "host_interface", "framework")
LIBRARIES = ("rxapi", "accore", "acad", "acdb99", "acge99", "acui99", "adui99")
MODULES = {"bin/KIVGUI.ARX": "host/exports.def", "bin/KivDll.arx": "siblings/KivDll/exports.def",
           "bin/KivFile.arx": "siblings/KivFile/exports.def"}
# A class that is a struct elsewhere has two names for that compiler's linker. A private field that seems to be unused
# is that of another system's backend.
STRICT = ("-Wall", "-Wextra", "-Wpedantic", "-Wgnu", "-Wmicrosoft", "-Wvla", "-Wshadow", "-Wreorder-init-list",
          "-Wc99-designator", "-Wmismatched-tags", "-Werror", "-Wno-unused-private-field")
STANDARD = ("algorithm", "array", "filesystem", "functional", "map", "memory", "optional", "ranges", "string",
            "string_view", "unordered_map", "utility", "variant", "vector")


def fail(text):
    sys.exit("try_real_host: " + text)


def run(*command, **options):
    return subprocess.run(command, stdout=subprocess.PIPE, stderr=subprocess.STDOUT, text=True, errors="replace",
                          check=False, **options)


def tool(name):
    return shutil.which(name) or fail(f"{name} is missing (Debian: clang, llvm)")


def make_kit(build, path, kit):
    listed_headers.write(build, path, os.path.join(kit, "inc"))
    shutil.copy(os.path.join(FRAMEWORK, "acuiComboBox.h"), os.path.join(kit, "inc"))
    os.makedirs(os.path.join(kit, "lib-x64"), exist_ok=True)
    for library in LIBRARIES:
        with open(os.path.join(kit, "lib-x64", library + ".lib"), "w", encoding="ascii"):
            pass


def configure(work, *options):
    """cmake for that compiler's command lines: clang understands them, and nothing is compiled."""
    compiler = os.path.join(work, "clang-cl")
    if not os.path.lexists(compiler):
        os.symlink(tool("clang++"), compiler)
    toolchain = {"CMAKE_SYSTEM_NAME": "Windows", "CMAKE_SYSTEM_PROCESSOR": "AMD64", "CMAKE_CXX_COMPILER": compiler,
                 "CMAKE_CXX_COMPILER_TARGET": "x86_64-pc-windows-msvc", "CMAKE_CXX_COMPILER_WORKS": "1",
                 "CMAKE_RC_COMPILER": tool("llvm-rc"), "CMAKE_AR": tool("llvm-lib"),
                 "CMAKE_TRY_COMPILE_TARGET_TYPE": "STATIC_LIBRARY"}
    toolchain |= {name: shutil.which("true") for name in ("CMAKE_LINKER", "CMAKE_MT")}
    with open(os.path.join(work, "toolchain.cmake"), "w", encoding="utf-8") as file:
        file.write("".join(f'set({name} "{value}")\n' for name, value in toolchain.items()))
    folder = os.path.join(work, "build")
    shutil.rmtree(folder, ignore_errors=True)
    return folder, run("cmake", "--preset", "msvc", "-S", ROOT, "-B", folder, "-DCMAKE_TOOLCHAIN_FILE=" +
                       os.path.join(work, "toolchain.cmake"), *options, cwd=ROOT)


def check_refusals(work, kit):
    """A kit that is missing or incomplete: one line that names it."""
    incomplete = os.path.join(work, "incomplete")
    shutil.rmtree(incomplete, ignore_errors=True)
    shutil.copytree(kit, incomplete)
    os.remove(os.path.join(incomplete, "lib-x64", "acui99.lib"))
    for given, wanted in (("", "-DKIV_HOST_SDK=DIR is missing"), ("/none", "no development kit"),
                          (incomplete, "has no acui[0-9]*.lib")):
        option = "-DKIV_HOST_SDK=" + given
        _, tried = configure(work, option)
        errors = tried.stdout.count("CMake Error")
        if tried.returncode == 0 or errors != 1 or wanted not in " ".join(tried.stdout.split()):
            fail(f"cmake {option} does not stop with one message of '{wanted}':\n{tried.stdout}")


def check_exports(build):
    """The libraries of this system show what their lists for Windows name."""
    for module, exports in MODULES.items():
        with open(os.path.join(ROOT, exports), encoding="utf-8") as file:
            listed = {line.split()[0] for line in file if line.strip().endswith("PRIVATE")}
        shown = symbols(os.path.join(build, module), "--defined-only")
        if listed != shown:
            fail(f"{exports} and {module} differ in {', '.join(sorted(listed ^ shown))}")


def check_links(folder, kit):
    """Each module is linked by its list of exports, with the host's libraries and no other's."""
    with open(os.path.join(folder, "build.ninja"), encoding="utf-8") as file:
        rules = {rule.split(":")[0]: rule for rule in file.read().split("\nbuild ")}
    for module, exports in MODULES.items():
        rule = rules.get(module, "")
        for wanted in [f"/DEF:{ROOT}/{exports}"] + [f"{kit}/lib-x64/{library}.lib" for library in LIBRARIES]:
            if wanted not in rule:
                fail(f"{module} is linked without {wanted}:\n{rule}")
        # Their library would bring an entry of the framework that nothing there answers.
        if ("real_host/extension_module" in rule) != (module == "bin/KIVGUI.ARX"):
            fail(f"platform/real_host is the module's and nobody else's; not so in {module}:\n{rule}")


def arguments_of(entry, kit):
    """The definitions and folders of the build, and mingw's headers for the system and the standard library."""
    newest = max(glob.glob("/usr/lib/gcc/x86_64-w64-mingw32/*-posix"), default=None) or fail("no mingw-w64")
    library = os.path.join(newest, "include", "c++")
    command = entry["command"].split()
    host = ["-I" + os.path.join(kit, "inc")] if "-imsvc" + os.path.join(kit, "inc") in command else []
    return (["--target=x86_64-w64-mingw32", "-std=c++20", "-nostdinc++"]
            + [word for sub in ("", "/x86_64-w64-mingw32", "/backward") for word in ("-isystem", library + sub)]
            + ["-isystem", FRAMEWORK]
            + [word for word in command if word.startswith(("-D", "-I"))] + host
            + ([] if "-DNOMINMAX" in command else ["-DKIV_WANTS_MACROS"]))


def precompile(work, name, first, arguments):
    """The standard headers once, behind what the build has before them."""
    header = os.path.join(work, name + ".h")
    with open(header, "w", encoding="utf-8") as file:
        file.write("".join(f"#include {each}\n" for each in first + [f"<{name}>" for name in STANDARD]))
    compiled = os.path.join(work, name + ".pch")
    made = run("clang++", *arguments, "-Xclang", "-fpch-instantiate-templates", "-xc++-header", header, "-o", compiled)
    return compiled if made.returncode == 0 else fail(made.stdout)


def check_scripts(folder, work):
    """Another compiler of resources takes the scripts as they are; /check/ui.rc would be an option to it, /C."""
    scripts = ["ui/kivgui.rc", "siblings/KivFile/kivfile.rc"]
    for path in scripts + glob.glob(os.path.join(os.path.relpath(folder, ROOT), "**", "*.rc"), root_dir=ROOT,
                                    recursive=True):
        tried = run(tool("llvm-rc"), "/C", "65001", "-I", "/usr/share/mingw-w64/include",
                    "-I", os.path.dirname(path), "/FO", os.path.join(work, "script.res"), path, cwd=ROOT)
        if tried.returncode != 0:
            fail(f"{path}:\n{tried.stdout}")


def check_sources(folder, kit, work):
    with open(os.path.join(folder, "compile_commands.json"), encoding="utf-8") as file:
        entries = [entry for entry in json.load(file) if entry["file"].endswith(".cpp")
                   and entry["file"].startswith(ROOT) and not entry["file"].startswith(folder)]
    arguments = {entry["file"]: arguments_of(entry, kit) for entry in entries}
    # The framework comes before a source where the build has it so.
    framed = {entry["file"]: "cmake_pch" in entry["command"] for entry in entries}
    headers = {}
    for kind, first in (True, ['"platform/real_host/framework.h"']), (False, []):
        example = next(path for path in sorted(arguments) if framed[path] == kind)
        headers[kind] = precompile(work, "framed" if kind else "plain", first, arguments[example])

    def compile_one(path):
        return run("clang++", *arguments[path], *STRICT, "-fsyntax-only", "-include-pch", headers[framed[path]], path)

    with concurrent.futures.ThreadPoolExecutor(2) as pool:
        tried = list(pool.map(compile_one, sorted(arguments)))
    texts = [each.stdout for each in tried if each.returncode != 0]
    if texts:
        fail(f"{len(texts)} of {len(tried)} sources do not compile:\n" + "\n".join(texts)[:20000])
    print(f"{len(tried)} sources compile")


def main():
    build, path, work = map(os.path.abspath, sys.argv[1:4])
    check_exports(build)
    kit = os.path.join(work, "kit")
    shutil.rmtree(kit, ignore_errors=True)
    make_kit(build, path, kit)
    check_refusals(work, kit)
    folder, tried = configure(work, "-DKIV_HOST_SDK=" + kit)
    if tried.returncode != 0:
        fail(tried.stdout)
    check_links(folder, kit)
    check_scripts(folder, work)
    check_sources(folder, kit, work)


main()
