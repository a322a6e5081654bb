#!/usr/bin/env python3
# SPDX-License-Identifier: BSD-3-Clause
"""Compares the binary interface of the library with a description kept beside this script: sizes, fields and slots of
the public types, values of enumerations, and the types of what is exported. The library needs its debugging
information, and the machine `abidw` (Debian package abigail-tools).

    abi.py LIBRARY            shows what changed and fails where anything did
    abi.py --refresh LIBRARY  writes the description anew
"""
import argparse
import difflib
import re
import shlex
import subprocess
import sys
import tempfile
import xml.etree.ElementTree as xml
from pathlib import Path

HERE = Path(__file__).resolve().parent
HEADERS = HERE.parent.parent / "include" / "keldriver"
BASELINE = HERE / "KelDriver.abi.txt"

# What Qt, the standard library and the C library lay out is theirs to keep: their types are told by name only. The
# library's own renderer has a name like those of Qt.
FOREIGN = re.compile(r"^(typedef |Q(?!TRenderer\b)[A-Z]|Qt(Private)?\b|std\b|_)|^(l?l?div_t|tm|max_align_t|mbstate_t)$")


def described(library):
    """The description of a library as a tree."""
    with tempfile.NamedTemporaryFile(suffix=".xml") as file:
        subprocess.run(["abidw", "--headers-dir", str(HEADERS), "--drop-private-types", "--exported-interfaces-only",
                        "--no-show-locs", "--no-corpus-path", "--no-comp-dir-path", str(library), "--out-file",
                        file.name], check=True)
        return xml.parse(file.name).getroot()


class Interface:
    """Tells a tree's types, functions and variables line by line."""

    def __init__(self, root):
        self.types = {}  # each under its identifier, with the name of what it lies in
        self.functions = set()
        self.blocks = {}  # lines by their heading; a type that several units know comes once
        self._collect(root, "")
        for node, scope in list(self.types.values()):
            self._describe_type(node, scope)

    def _collect(self, node, scope):
        for child in node:
            known = self.types.get(child.get("id"))
            if child.get("id") and (known is None or known[0].get("is-declaration-only") == "yes"):
                self.types[child.get("id")] = (child, scope)
            if child.tag == "function-decl" and child.get("elf-symbol-id"):
                self.functions.add((child, scope))
            is_scope = child.tag in ("namespace-decl", "class-decl", "union-decl")
            self._collect(child, f"{scope}{child.get('name')}::" if is_scope else scope)

    def name_of(self, identifier):
        if identifier not in self.types:
            return "void"
        node, scope = self.types[identifier]
        inner = node.get("type-id")
        if node.tag == "pointer-type-def":
            return self.name_of(inner) + "*"
        if node.tag == "reference-type-def":
            return self.name_of(inner) + ("&&" if node.get("kind") == "rvalue" else "&")
        if node.tag == "qualified-type-def":
            marks = [mark for mark in ("const", "volatile") if node.get(mark) == "yes"]
            return " ".join([self.name_of(inner), *marks])
        if node.tag == "array-type-def":
            lengths = "".join(f"[{part.get('length')}]" for part in node.findall("subrange"))
            return self.name_of(inner) + lengths
        if node.tag == "function-type":
            return self.signature(node)
        return scope + node.get("name", "?")

    def signature(self, node):
        parameters = [
            "..." if parameter.get("is-variadic") == "yes" else self.name_of(parameter.get("type-id"))
            for parameter in node.findall("parameter") if parameter.get("is-artificial") != "yes"
        ]
        returned = node.find("return")
        result = "void" if returned is None else self.name_of(returned.get("type-id"))
        return f"({', '.join(parameters)}) -> {result}"

    def _describe_type(self, node, scope):
        name = scope + (node.get("name") or "")
        if FOREIGN.match(name) or node.get("is-declaration-only") == "yes":
            return
        if node.tag == "enum-decl":
            values = [f"    {entry.get('name')} = {entry.get('value')}" for entry in node.findall("enumerator")]
            underlying, _ = self.types[node.find("underlying-type").get("type-id")]
            self.blocks[f"enum {name}: {underlying.get('size-in-bits')} bits"] = values
        elif node.tag in ("class-decl", "union-decl"):
            self.blocks[f"{node.tag.split('-')[0]} {name}: {node.get('size-in-bits')} bits"] = self._members(node)

    def _members(self, node):
        lines = [f"    base {self.name_of(base.get('type-id'))} at {base.get('layout-offset-in-bits', '?')}"
                 for base in node.findall("base-class")]
        for member in node.findall("data-member"):
            variable = member.find("var-decl")
            if member.get("layout-offset-in-bits") is not None:
                lines.append(f"    {member.get('layout-offset-in-bits')}: {variable.get('name')}: "
                             f"{self.name_of(variable.get('type-id'))}")
        slots = {}
        for member in node.findall("member-function"):
            function = member.find("function-decl")
            if member.get("vtable-offset") is not None:
                slots[int(member.get("vtable-offset"))] = f"{function.get('name')}{self.signature(function)}"
        return lines + [f"    slot {slot}: {slots[slot]}" for slot in sorted(slots)]

    def lines(self):
        for heading in sorted(self.blocks):
            yield heading
            yield from self.blocks[heading]
        exported = {f"{scope}{node.get('name')}{self.signature(node)}" for node, scope in self.functions}
        yield from (f"function {function}" for function in sorted(exported) if not FOREIGN.match(function))


def main():
    parser = argparse.ArgumentParser(description=__doc__.splitlines()[0])
    parser.add_argument("--refresh", action="store_true")
    parser.add_argument("library")
    options = parser.parse_args()
    found = [line + "\n" for line in Interface(described(options.library)).lines()]
    if options.refresh:
        BASELINE.write_text("".join(found), encoding="utf-8")
        return
    kept = BASELINE.read_text(encoding="utf-8").splitlines(keepends=True)
    if found != kept:
        sys.stdout.writelines(difflib.unified_diff(kept, found, "kept", "built"))
        refresh = shlex.join([__file__, "--refresh", options.library])
        sys.exit(f"the binary interface changed; where that is meant: {refresh}")


if __name__ == "__main__":
    main()
