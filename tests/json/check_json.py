#!/usr/bin/env python3
"""Checks files written by the JSON tests with Python's json module as the strict parser.

Usage: check_json.py MANIFEST. Each line of the manifest is "PATH FORM [REFERENCE]", FORM one
of utf-8, utf-16 (little-endian, no byte order mark) or utf-16-bom (FF FE first). The file must
decode strictly in its form, parse as exactly one JSON text (no NaN or Infinity, no control
characters in strings, nothing behind the value), and, with a REFERENCE (a UTF-8 file), hold
the same characters as the reference. Prints one line per failure; exit status 1 if any.
"""
import json
import sys


def reject_constant(name):
    raise ValueError("not JSON: " + name)


def decode(data, form):
    if form == "utf-8":
        if data.startswith(b"\xef\xbb\xbf"):
            raise ValueError("unexpected UTF-8 byte order mark")
        return data.decode("utf-8")
    if form == "utf-16-bom":
        if not data.startswith(b"\xff\xfe"):
            raise ValueError("byte order mark missing")
        return data[2:].decode("utf-16-le")
    if form == "utf-16":
        if data.startswith(b"\xff\xfe"):
            raise ValueError("unexpected byte order mark")
        return data.decode("utf-16-le")
    raise ValueError("unknown form " + form)


def main():
    failures = 0
    with open(sys.argv[1], encoding="utf-8") as manifest:
        for line in manifest:
            fields = line.split()
            if not fields:
                continue
            path, form = fields[0], fields[1]
            try:
                with open(path, "rb") as f:
                    text = decode(f.read(), form)
                json.loads(text, parse_constant=reject_constant)
                if len(fields) > 2:
                    with open(fields[2], "rb") as f:
                        reference = f.read().decode("utf-8")
                    if text != reference:
                        raise ValueError("differs from " + fields[2])
            except Exception as e:  # every refusal is a finding
                failures += 1
                print("%s: %s" % (path, e))
    return 1 if failures else 0


if __name__ == "__main__":
    sys.exit(main())
