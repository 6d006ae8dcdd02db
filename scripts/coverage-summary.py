#!/usr/bin/env python3
"""Sums the line and branch coverage of the sources a fuzzer targets.

Usage: coverage-summary.py NAME COVERS_FILE < llvm-cov-export-summary.json
Prints one line for NAME and, per source, its own figures. The coverage build names sources
through its build folder ("build/fuzz-coverage/../../plist/XmlReader.cpp"), so names are
compared once normalised.
"""
import json
import os
import sys


def percent(covered, count):
    return f"{100.0 * covered / count:.2f}%" if count else "-"


def main():
    name, covers_file = sys.argv[1], sys.argv[2]
    with open(covers_file) as listing:
        covers = {os.path.normpath(line.strip()) for line in listing if line.strip()}
    export = json.load(sys.stdin)
    totals = {"lines": [0, 0], "branches": [0, 0]}
    rows = []
    for entry in export["data"][0]["files"]:
        path = os.path.normpath(entry["filename"])
        if path not in covers:
            continue
        covers.discard(path)
        summary = entry["summary"]
        for kind in totals:
            totals[kind][0] += summary[kind]["covered"]
            totals[kind][1] += summary[kind]["count"]
        rows.append(f"  {path}: lines {percent(summary['lines']['covered'], summary['lines']['count'])}, "
                    f"branches {percent(summary['branches']['covered'], summary['branches']['count'])}")
    lines, branches = totals["lines"], totals["branches"]
    print(f"coverage: {name}: lines {percent(*lines)} ({lines[0]} of {lines[1]}), "
          f"branches {percent(*branches)} ({branches[0]} of {branches[1]})")
    for row in rows:
        print(row)
    for path in sorted(covers):
        print(f"  {path}: not in the fuzzer's coverage data")


if __name__ == "__main__":
    main()
