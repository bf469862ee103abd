#!/usr/bin/env python3
"""Compares XML documents as infosets, and counts what a document holds.

Usage: infoset.py compare MANIFEST   (lines "exact|loose ORIGINAL CONVERTED")
       infoset.py count FILE...      (one line per file: elements, attributes, depth)
       infoset.py json FILE...       (each file must hold one strict JSON text)

The infoset of a document here is what open content keeps: each element's namespace and
local name, its attributes (namespace, name, value) without namespace declarations, its
children in order, and its character data as one text. Text of whitespace alone beside
child elements is indentation and counts as none. "loose" also collapses runs of
whitespace in the text of elements that have children (mixed content in indented output).
A prefix that the original binds to one namespace must be declared in the output as well.
Prints one line per difference; nothing when all agree.
"""
import json
import sys
import xml.etree.ElementTree as ET


def dump(element, loose, out, depth=0):
    text = (element.text or "") + "".join(child.tail or "" for child in element)
    if len(element):
        if not text.strip():
            text = ""
        elif loose:
            text = " ".join(text.split())
    out.append("%s%s %r %r" % ("  " * depth, element.tag, sorted(element.attrib.items()), text))
    for child in element:
        dump(child, loose, out, depth + 1)
    return out


def declarations(path):
    return [ns for _, ns in ET.iterparse(path, events=["start-ns"])]


def compare(manifest):
    failures = []
    for line in open(manifest, encoding="utf-8"):
        mode, original, converted = line.split()
        a = dump(ET.parse(original).getroot(), mode == "loose", [])
        b = dump(ET.parse(converted).getroot(), mode == "loose", [])
        # A prefix the original binds to one namespace throughout is declared in the output
        # too: values such as the QNames of a schema refer to it.
        bound = declarations(original)
        kept = set(declarations(converted))
        for prefix, uri in bound:
            if prefix and len({u for p, u in bound if p == prefix}) == 1 and (prefix, uri) not in kept:
                failures.append("%s: the prefix %s of %s is lost" % (original, prefix, uri))
        if a != b:
            first = next(i for i in range(min(len(a), len(b)) + 1) if i >= len(a) or i >= len(b) or a[i] != b[i])
            failures.append("%s (%s): line %d: %s | %s" % (original, mode, first, a[first] if first < len(a) else "-",
                                                          b[first] if first < len(b) else "-"))
    return failures


def count(path):
    elements = attributes = depth = 0
    stack = [(ET.parse(path).getroot(), 1)]
    while stack:
        element, level = stack.pop()
        elements += 1
        attributes += len(element.attrib)
        depth = max(depth, level)
        stack.extend((child, level + 1) for child in element)
    return "%s: %d %d %d" % (path, elements, attributes, depth)


def strict_json(path):
    def refuse(constant):
        raise ValueError("not JSON: " + constant)
    try:
        with open(path, encoding="utf-8") as f:
            json.loads(f.read(), parse_constant=refuse)
        return None
    except ValueError as e:
        return "%s: %s" % (path, e)


if __name__ == "__main__":
    if sys.argv[1] == "compare":
        print("\n".join(compare(sys.argv[2])), end="")
    elif sys.argv[1] == "count":
        print("\n".join(count(p) for p in sys.argv[2:]))
    else:
        print("\n".join(e for e in (strict_json(p) for p in sys.argv[2:]) if e), end="")
