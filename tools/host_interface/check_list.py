#!/usr/bin/python3
"""Holds the list of what the module and its siblings use of the host (docs/host-interface.md) against what
their sources name, their libraries import, and the host's headers declare.

usage: check_list.py BUILD_FOLDER LIST [--print]

--print writes the rows that the list should have, with the contracts that it has already.
"""

import json
import os
import re
import subprocess
import sys
import tempfile

from clang.cindex import AccessSpecifier, CursorKind, Index, TranslationUnit

ROOT = os.path.dirname(os.path.dirname(os.path.dirname(os.path.abspath(__file__))))
INCLUDE = os.path.join(ROOT, "embedded", "include")
FOLDERS = ("host", "ui", "engine", "spec", "platform", "siblings")
FRAMEWORK = ("afxwin.h",)  # not the host's own
HOST_LIBRARY = "libembedded_host.so"
LIBRARIES = ("KIVGUI.ARX", "KivDll.arx", "KivFile.arx")

FUNCTIONS = (CursorKind.FUNCTION_DECL, CursorKind.CXX_METHOD, CursorKind.CONSTRUCTOR,
             CursorKind.CONVERSION_FUNCTION, CursorKind.FUNCTION_TEMPLATE)
TYPES = (CursorKind.CLASS_DECL, CursorKind.STRUCT_DECL, CursorKind.UNION_DECL, CursorKind.ENUM_DECL,
         CursorKind.CLASS_TEMPLATE, CursorKind.TYPEDEF_DECL, CursorKind.TYPE_ALIAS_DECL)
VALUES = (CursorKind.ENUM_CONSTANT_DECL, CursorKind.VAR_DECL, CursorKind.FIELD_DECL)
STANDARD = ("algorithm", "array", "filesystem", "functional", "map", "memory", "optional", "span", "string",
            "unordered_map", "unordered_set", "variant", "vector")
HIDDEN = (AccessSpecifier.PRIVATE, AccessSpecifier.PROTECTED)
OPTIONS = TranslationUnit.PARSE_DETAILED_PROCESSING_RECORD


# --- What the headers declare

def header_of(cursor):
    file = cursor.location.file
    folder, name = os.path.split(os.path.realpath(file.name)) if file else ("", "")
    return name if folder == INCLUDE and name not in FRAMEWORK else None


def plain_name(cursor):
    """A constructor of a template is spelled with its parameters."""
    return cursor.spelling.split("<")[0] if cursor.kind == CursorKind.CONSTRUCTOR else cursor.spelling


def qualified(cursor):
    names = [plain_name(cursor)]
    scope = cursor.semantic_parent
    while scope is not None and scope.kind != CursorKind.TRANSLATION_UNIT:
        if scope.kind != CursorKind.ENUM_DECL and scope.spelling:
            names.insert(0, scope.spelling)
        scope = scope.semantic_parent
    return "::".join(names)


def written(text):
    return re.sub(r"(\w|>) ([*&]+)", r"\1\2", text)


def parameter(cursor):
    # One that a macro makes has the rest of the macro behind it.
    text = "".join(token.spelling for token in cursor.get_tokens())
    default = re.match(r"[^=]*(=[^,(){}]+)", text)
    default = " = " + default[1][1:] if default else ""
    return (written(cursor.type.spelling) + " " + cursor.spelling).strip() + default


def declaration(cursor):
    """The declaration as the list writes it."""
    name, kind = qualified(cursor), cursor.kind
    if kind == CursorKind.MACRO_DEFINITION:
        tokens = [token.spelling for token in cursor.get_tokens()]
        plain = len(tokens) <= 5 and not (len(tokens) > 1 and tokens[1] == "(" and tokens[-1] != ")")
        return "#define " + (name + " " + "".join(tokens[1:]) if plain else name).strip()
    if kind in FUNCTIONS:
        parts = [child for child in cursor.get_children() if child.kind == CursorKind.PARM_DECL]
        variadic = ", ..." if cursor.type.spelling.endswith("...)") else ""
        made = kind in (CursorKind.CONSTRUCTOR, CursorKind.CONVERSION_FUNCTION)
        result = "" if made else written(cursor.result_type.spelling) + " "
        static = "static " if cursor.is_static_method() else "virtual " if cursor.is_virtual_method() else ""
        const = " const" if cursor.is_const_method() else ""
        return f"{static}{result}{name}({', '.join(map(parameter, parts))}{variadic}){const}"
    if kind == CursorKind.ENUM_CONSTANT_DECL:
        return f"{name} = {cursor.enum_value}"
    if kind in (CursorKind.VAR_DECL, CursorKind.FIELD_DECL):
        return f"{written(cursor.type.spelling)} {name}"
    if kind in (CursorKind.TYPEDEF_DECL, CursorKind.TYPE_ALIAS_DECL):
        return f"using {name} = {cursor.underlying_typedef_type.spelling}"
    word = {CursorKind.ENUM_DECL: "enum", CursorKind.STRUCT_DECL: "struct",
            CursorKind.UNION_DECL: "union"}.get(kind, "class")
    bases = [child.type.spelling for child in cursor.get_children()
             if child.kind == CursorKind.CXX_BASE_SPECIFIER]
    return f"{word} {name}" + (" : " + ", ".join(bases) if bases else "")


class Headers:
    """The public declarations of the host's headers."""

    def __init__(self, unit):
        self.text = {}       # by identity: (header, declaration)
        self.names = {}      # of each declaration, with its class
        self.by_place = {}   # (name, header, offset): the same, for members of instantiated templates
        self.by_symbol = {}  # by mangled name
        self.by_name = {}    # by the last part of the name: every declaration
        self.hidden = set()  # names that classes keep inside
        self.foreign = []    # declarations with a type of the standard library
        self.walk(unit.cursor)

    def walk(self, cursor):
        for child in cursor.get_children():
            header = header_of(child)
            if cursor.kind == CursorKind.TRANSLATION_UNIT and header is None:
                continue
            if child.spelling and child.access_specifier in HIDDEN:
                self.hidden.add(qualified(child))
            elif header and child.spelling and self.is_listed(child):
                self.add(child, header)
            if child.kind in TYPES or child.kind in (CursorKind.NAMESPACE, CursorKind.LINKAGE_SPEC,
                                                     CursorKind.UNEXPOSED_DECL):
                self.walk(child)

    @staticmethod
    def is_listed(cursor):
        if cursor.kind == CursorKind.MACRO_DEFINITION:
            return len(list(cursor.get_tokens())) > 1
        if cursor.kind in (CursorKind.CLASS_DECL, CursorKind.STRUCT_DECL, CursorKind.ENUM_DECL):
            return cursor.is_definition()
        return cursor.kind in FUNCTIONS + TYPES + VALUES

    def add(self, cursor, header):
        entry = (header, declaration(cursor))
        if "std::" in entry[1] or "std::" in cursor.type.get_canonical().spelling:
            self.foreign.append(entry)
        self.text[cursor.get_usr()] = entry
        self.names[entry] = qualified(cursor)
        self.by_place[plain_name(cursor), header, cursor.location.offset] = entry
        self.by_name.setdefault(cursor.spelling, set()).add(entry)
        if cursor.kind in FUNCTIONS and cursor.mangled_name:
            self.by_symbol[cursor.mangled_name] = entry

    def find(self, cursor):
        entry = self.text.get(cursor.get_usr())
        if entry is None and (header := header_of(cursor)):
            entry = self.by_place.get((plain_name(cursor), header, cursor.location.offset))
        return entry


# --- What the sources name

def parse(index, path, arguments, text=None, options=OPTIONS):
    unit = index.parse(path, arguments, [(path, text)] if text is not None else None, options)
    # The precompiled headers bring complaints that stand in no file.
    errors = [str(each) for each in unit.diagnostics if each.severity >= each.Error and each.location.file]
    if errors:
        sys.exit(f"{path} does not compile here:\n" + "\n".join(errors[:5]))
    return unit


def included(path):
    with open(path, encoding="utf-8") as source:
        return re.findall(r'^\s*#\s*include\s+"([^"]+)"', source.read(), re.M)


class Reach:
    """Does a file include a header of the host, however far down?"""

    def __init__(self):
        self.known = {}

    def __call__(self, path):
        if path not in self.known:
            self.known[path] = False
            self.known[path] = any(self.names_host(each) for each in included(path))
        return self.known[path]

    def names_host(self, name):
        if os.path.exists(os.path.join(INCLUDE, name)):
            return True
        path = os.path.join(ROOT, name)
        return os.path.exists(path) and self(path)


def in_project(cursor):
    file = cursor.location.file
    name = os.path.relpath(os.path.realpath(file.name), ROOT) if file else ""
    return name if name.startswith(tuple(folder + os.sep for folder in FOLDERS)) else None


def overridden_by(cursor):
    """The host's functions that one of the module takes the place of."""
    if cursor.kind != CursorKind.CXX_METHOD or cursor.semantic_parent is None \
            or not any(child.kind == CursorKind.CXX_OVERRIDE_ATTR for child in cursor.get_children()):
        return []
    found, classes = [], [cursor.semantic_parent]
    while classes:
        for child in classes.pop().get_children():
            if child.kind == CursorKind.CXX_BASE_SPECIFIER and child.type.get_declaration() is not None:
                classes.append(child.type.get_declaration())
            elif child.spelling == cursor.spelling and child.kind == CursorKind.CXX_METHOD and header_of(child):
                found.append(child)
    return found


class Uses:
    def __init__(self, headers):
        self.headers = headers
        self.sure = {}   # entry: where it is first used
        self.maybe = {}  # name of a member of a type that a template leaves open: where
        self.seen = set()

    def take(self, entry, where):
        if entry:
            self.sure.setdefault(entry, where)

    def walk_unit(self, unit):
        files = set()
        for cursor in unit.cursor.get_children():
            file = in_project(cursor)
            if file and file not in self.seen:
                files.add(file)
                self.walk(cursor, file)
        self.seen |= files

    def walk(self, cursor, file):
        stack = [cursor]
        while stack:
            each = stack.pop()
            stack.extend(each.get_children())
            for overridden in overridden_by(each):
                self.take(self.headers.find(overridden), f"{file}:{each.location.line}")
            target = each.referenced
            if target is not None and header_of(target):
                self.take(self.headers.find(target), f"{file}:{each.location.line}")
            elif target is None and each.kind == CursorKind.MEMBER_REF_EXPR:
                tokens = [token.spelling for token in each.get_tokens()]
                if tokens and tokens[-1] in self.headers.by_name:
                    self.maybe.setdefault(tokens[-1], f"{file}:{each.location.line}")

    def take_words(self, path):
        """A source for the other system, which does not compile here: by what it calls or qualifies."""
        headers = {name for name in included(path) if os.path.exists(os.path.join(INCLUDE, name))}
        with open(path, encoding="utf-8") as source:
            text = re.sub(r"//.*|/\*.*?\*/", "", source.read())
        for word in set(re.findall(r"\w+(?=\s*(?:\(|::))|(?<=::)\w+", text)):
            for entry in self.headers.by_name.get(word, ()):
                if entry[0] in headers:
                    self.take(entry, os.path.relpath(path, ROOT))

    def take_imports(self, folder):
        """Symbols that a library takes from the host; what no header declares is given back."""
        given = symbols(os.path.join(folder, HOST_LIBRARY), "--defined-only")
        unknown = []
        for library in LIBRARIES:
            for symbol in symbols(os.path.join(folder, library), "--undefined-only") & given:
                entry = self.headers.by_symbol.get(symbol)
                self.take(entry, library)
                if entry is None and not self.is_inner(symbol):
                    unknown.append(f"{library} imports {symbol}, which no header declares")
        return unknown

    def is_inner(self, symbol):
        """What the compiler makes beside a class (tables, destructors), or a class keeps inside."""
        name = demangled(symbol).split("(")[0].strip()
        return symbol.startswith(("_ZTV", "_ZTI", "_ZTS")) or "::~" in name or name in self.headers.hidden


def symbols(library, option):
    lines = subprocess.run(["nm", "-D", option, library], check=True, capture_output=True, text=True).stdout
    return {line.split()[-1].split("@")[0] for line in lines.splitlines()}


def demangled(symbol):
    return subprocess.run(["c++filt", symbol], check=True, capture_output=True, text=True).stdout


def commands(build):
    with open(os.path.join(build, "compile_commands.json"), encoding="utf-8") as file:
        return {entry["file"]: entry["command"].split() for entry in json.load(file)}


def compile_arguments(command):
    taken = [word for word in command if word.startswith(("-I", "-D", "-std"))]
    return taken + ["-xc++", "-w", "-I" + INCLUDE]


def common_headers(arguments):
    host = sorted(name for name in os.listdir(INCLUDE) if name.endswith(".h"))
    text = "".join([f"#include <{name}>\n" for name in STANDARD] + [f'#include "{name}"\n' for name in host])
    arguments = [word for word in arguments if word != "-xc++"] + ["-xc++-header", "-I" + INCLUDE]
    options = OPTIONS | TranslationUnit.PARSE_INCOMPLETE
    return parse(Index.create(), os.path.join(ROOT, "common.h"), arguments, text, options)


def uses_of(build):
    reach = Reach()
    sources = {path: command for path, command in commands(build).items()
               if os.path.relpath(path, ROOT).startswith(tuple(folder + os.sep for folder in FOLDERS))}
    with tempfile.TemporaryDirectory() as folder:
        # Read once: the sources themselves are a small part of what they include.
        common = os.path.join(folder, "common.pch")
        headers = common_headers(compile_arguments(next(iter(sources.values()))))
        headers.save(common)
        uses = Uses(Headers(headers))
        index = Index.create(excludeDecls=True)
        for path, command in sorted(sources.items()):
            if reach(path):
                uses.walk_unit(parse(index, path, compile_arguments(command) + ["-include-pch", common]))
    for folder, _, names in os.walk(os.path.join(ROOT, "platform", "win32")):
        for path in (os.path.join(folder, name) for name in sorted(names)):
            if path.endswith((".cpp", ".h")) and reach(path):
                uses.take_words(path)
    return uses, uses.take_imports(os.path.join(build, "bin"))


# --- The list

def read_list(path):
    """{(header, declaration): contract}, and what is wrong with its form."""
    rows, faults, header = {}, [], None
    with open(path, encoding="utf-8") as file:
        for number, line in enumerate(file, 1):
            if title := re.match(r"## `?([\w.]+\.h)`?\s*$", line):
                header = title[1]
            elif row := re.match(r"\| `(.+?)` \|(.*)\|\s*$", line):
                if (header, row[1]) in rows:
                    faults.append(f"{path}:{number}: {row[1]} stands twice")
                rows[header, row[1]] = row[2].strip()
    return rows, faults


def print_rows(uses, rows):
    contracts = {}
    for (_, text), contract in rows.items():
        contracts.setdefault(text, contract)
    listed = set(uses.sure) | {entry for entry in rows if entry[1].split("(")[0].split("::")[-1] in uses.maybe
                               and entry in set(uses.headers.text.values())}
    for header in sorted({entry[0] for entry in listed}):
        print(f"\n## {header}\n\n| declaration | contract |\n|---|---|")
        for entry in sorted(listed, key=lambda each: (uses.headers.names[each], each)):
            if entry[0] == header:
                print(f"| `{entry[1]}` | {contracts.get(entry[1], '')} |")


def check(uses, rows):
    declared = set(uses.headers.text.values())
    listed_names = {name for name, entries in uses.headers.by_name.items() if entries & set(rows)}
    faults = [f"{where} uses {text} ({header}), which the list lacks"
              for (header, text), where in sorted(uses.sure.items()) if (header, text) not in rows]
    faults += [f"{where} uses a member {name}, of which the list has none"
               for name, where in sorted(uses.maybe.items()) if name not in listed_names]
    for entry in sorted(set(rows) - set(uses.sure)):
        if entry not in declared:
            faults.append(f"the list has {entry[1]}, which {entry[0]} does not declare")
        elif not any(entry in uses.headers.by_name[name] for name in uses.maybe):
            faults.append(f"the list has {entry[1]} ({entry[0]}), which nothing uses")
    faults += [f"{header} declares {text}: a type of the standard library is another one in each module"
               for header, text in uses.headers.foreign]
    faults += [f"the list says nothing of {text}" for (_, text), contract in rows.items()
               if contract in ("", "As the name says.")]
    return faults


def main():
    build, path = sys.argv[1:3]
    uses, faults = uses_of(build)
    rows, form = read_list(path) if os.path.exists(path) else ({}, [])
    if "--print" in sys.argv:
        return print_rows(uses, rows)
    faults += form + check(uses, rows)
    for fault in faults:
        print(fault)
    sys.exit(1 if faults else 0)


if __name__ == "__main__":
    main()
