#!/usr/bin/python3
"""Writes the host's headers anew, with nothing in them but what docs/host-interface.md lists: what another host is
known to have. Functions are declared only, classes have no more members than are listed.

usage: listed_headers.py BUILD_FOLDER LIST OUT_FOLDER
"""

import os
import re
import sys

from clang.cindex import CursorKind, TokenKind, TypeKind

import check_list
from check_list import INCLUDE, FUNCTIONS, HIDDEN, header_of

CLASSES = (CursorKind.CLASS_DECL, CursorKind.STRUCT_DECL, CursorKind.UNION_DECL, CursorKind.CLASS_TEMPLATE)
ALIASES = (CursorKind.TYPEDEF_DECL, CursorKind.TYPE_ALIAS_DECL)
WORDS = {CursorKind.STRUCT_DECL: "struct", CursorKind.UNION_DECL: "union"}
PARAMETERS = (CursorKind.TEMPLATE_TYPE_PARAMETER, CursorKind.TEMPLATE_NON_TYPE_PARAMETER)


def children(cursor, *kinds):
    return [child for child in cursor.get_children() if child.kind in kinds]


def variable(type_, name):
    if type_.kind == TypeKind.CONSTANTARRAY:
        return f"{type_.element_type.spelling} {name}[{type_.element_count}]"
    return f"{type_.spelling} {name}"


def template_head(cursor):
    names = [child.spelling for child in children(cursor, CursorKind.TEMPLATE_TYPE_PARAMETER)]
    return "template <" + ", ".join("class " + name for name in names) + ">\n" if names else ""


def words_of(cursor):
    return [token.spelling for token in cursor.get_tokens() if token.kind != TokenKind.COMMENT]


class Writer:
    def __init__(self, unit, headers, rows):
        self.headers, self.rows = headers, rows
        self.text = {}     # of each header
        self.left = set()  # rows that no declaration was written for
        self.names = {headers.names.get(row) for row in rows}
        self.needed = set(re.findall(r"\w+", " ".join(text for _, text in rows)))
        self.kept = set()
        self.keep_classes(unit.cursor)
        self.left = set(rows)
        for child in children(unit.cursor, CursorKind.MACRO_DEFINITION):
            if header_of(child) and self.is_listed(child):
                self.needed |= set(words_of(child))
        for child in unit.cursor.get_children():
            header = header_of(child)
            if header:
                self.text.setdefault(header, []).append(self.declared(child))

    def is_listed(self, cursor):
        entry = self.headers.find(cursor)
        self.left.discard(entry)
        return entry in self.rows

    def keep_classes(self, cursor):
        """Classes that are listed or have listed members, and their bases; bases come first in a unit."""
        found = []

        def walk(at):
            for child in at.get_children():
                if at.kind == CursorKind.TRANSLATION_UNIT and not header_of(child):
                    continue
                if child.kind in CLASSES and child.is_definition():
                    found.append(child)
                if child.kind in CLASSES + (CursorKind.NAMESPACE,):
                    walk(child)

        walk(cursor)
        for each in reversed(found):
            usr = each.get_usr()
            members = [child for child in each.get_children() if child.access_specifier not in HIDDEN]
            if usr in self.kept or self.is_listed(each) or any(self.is_listed(child) for child in members):
                self.kept.add(usr)
                for base in children(each, CursorKind.CXX_BASE_SPECIFIER):
                    named = children(base, CursorKind.TYPE_REF, CursorKind.TEMPLATE_REF)
                    self.kept |= {child.referenced.get_usr() for child in named}

    def declared(self, cursor):
        kind = cursor.kind
        if kind == CursorKind.NAMESPACE:
            inside = "".join(self.declared(child) for child in cursor.get_children())
            return f"namespace {cursor.spelling} {{\n{inside}}}\n" if inside else ""
        if kind in (CursorKind.LINKAGE_SPEC, CursorKind.UNEXPOSED_DECL):
            inside = "".join(self.declared(child) for child in cursor.get_children())
            return f'extern "C" {{\n{inside}}}\n' if inside else ""
        if kind in CLASSES:
            return self.class_text(cursor)
        if kind == CursorKind.ENUM_DECL:
            return self.enum_text(cursor)
        if kind in ALIASES:
            if not self.is_listed(cursor) and cursor.spelling not in self.needed:
                return ""
            self.needed |= set(re.findall(r"\w+", cursor.underlying_typedef_type.spelling))
            return f"using {cursor.spelling} = {cursor.underlying_typedef_type.spelling};\n"
        if kind == CursorKind.MACRO_DEFINITION:
            return self.macro_text(cursor) if self.is_listed(cursor) or cursor.spelling in self.needed else ""
        if not self.is_listed(cursor) or cursor.semantic_parent.kind in CLASSES:  # a member's definition
            return ""
        if kind in FUNCTIONS:
            return self.function_text(cursor)
        if kind == CursorKind.VAR_DECL:
            return f"extern {cursor.type.spelling} {cursor.spelling};\n"
        raise ValueError(f"{cursor.spelling}: a listed {kind} that nobody here writes")

    def enum_text(self, cursor):
        listed = [child for child in cursor.get_children() if self.is_listed(child)]
        self.is_listed(cursor)
        inside = ", ".join(f"{child.spelling} = {child.enum_value}" for child in listed)
        return f"enum {cursor.spelling} {{ {inside} }};\n"

    def macro_text(self, cursor):
        with open(cursor.location.file.name, "rb") as file:
            source = file.read()
        return "#define " + source[cursor.extent.start.offset:cursor.extent.end.offset].decode() + "\n"

    def class_text(self, cursor):
        head = template_head(cursor) + WORDS.get(cursor.kind, "class") + " " + cursor.spelling
        if not cursor.is_definition() or cursor.get_usr() not in self.kept:
            return head + ";\n"
        self.is_listed(cursor)
        bases = [child.type.spelling for child in children(cursor, CursorKind.CXX_BASE_SPECIFIER)]
        head += " : " + ", ".join("public " + base for base in bases) if bases else ""
        return f"{head} {{\n public:\n{''.join(self.members(cursor, bases))}}};\n"

    def members(self, cursor, bases):
        constructors = children(cursor, CursorKind.CONSTRUCTOR)
        listed = [each for each in constructors if self.is_listed(each) and "delete" not in words_of(each)]
        for child in cursor.get_children():
            if child.access_specifier in HIDDEN or child in constructors:
                continue
            if child.kind in CLASSES + ALIASES + (CursorKind.ENUM_DECL,):
                yield self.declared(child)
            elif child.kind == CursorKind.DESTRUCTOR:
                yield ("virtual " if child.is_virtual_method() else "") + child.spelling.split("<")[0] + "();\n"
            elif child.kind == CursorKind.USING_DECLARATION:
                named = children(child, CursorKind.OVERLOADED_DECL_REF, CursorKind.MEMBER_REF)
                name = named[0].spelling if named else words_of(child)[-1]  # that of a macro has no words
                if bases and f"{bases[0].split('<')[0]}::{name}" in self.names:
                    yield f"using {bases[0]}::{name};\n"
            elif self.is_listed(child):
                if child.kind in FUNCTIONS:
                    yield self.function_text(child)
                else:
                    static = "static " if child.kind == CursorKind.VAR_DECL else ""
                    yield f"{static}{variable(child.type, child.spelling)};\n"
        name = cursor.spelling
        for each in listed:
            yield self.function_text(each)
        if constructors and not listed:  # for those who derive from it
            yield f" protected:\n  {name}();\n"
        if any("delete" in words_of(each) for each in constructors):
            yield f"  {name}(const {name}&) = delete;\n"

    def function_text(self, cursor):
        name = cursor.spelling.split("<")[0] if cursor.kind == CursorKind.CONSTRUCTOR else cursor.spelling
        parts = ", ".join(check_list.parameter(child) for child in children(cursor, CursorKind.PARM_DECL))
        if cursor.type.spelling.endswith("...)"):
            parts += ", ..."
        made = cursor.kind in (CursorKind.CONSTRUCTOR, CursorKind.CONVERSION_FUNCTION)
        result = "" if made else cursor.result_type.spelling + " "
        before = "static " if cursor.is_static_method() else "virtual " if cursor.is_virtual_method() else ""
        explicit = "explicit " if "explicit" in words_of(cursor)[:2] else ""
        after = (" const" if cursor.is_const_method() else "") + (" = 0" if cursor.is_pure_virtual_method() else "")
        return f"{template_head(cursor)}{before}{explicit}{result}{name}({parts}){after};\n"


def write(build, path, folder):
    sources = check_list.commands(build)
    own = next(command for source, command in sources.items() if "/host/" in source)
    unit = check_list.common_headers(check_list.compile_arguments(own))
    rows, faults = check_list.read_list(path)
    writer = Writer(unit, check_list.Headers(unit), rows)
    if faults or writer.left:
        sys.exit("\n".join(faults + [f"{header}: no declaration of {text}" for header, text in writer.left]))
    os.makedirs(folder, exist_ok=True)
    for name in os.listdir(INCLUDE):
        if not name.endswith(".h") or name in check_list.FRAMEWORK:
            continue
        with open(os.path.join(INCLUDE, name), encoding="utf-8") as file:
            included = re.findall(r'^#include ("[^"]+")', file.read(), re.M)
        with open(os.path.join(folder, name), "w", encoding="utf-8") as file:
            file.write("#pragma once\n" + "".join(f"#include {each}\n" for each in included))
            file.write("".join(writer.text.get(name, [])))


if __name__ == "__main__":
    write(*sys.argv[1:4])
