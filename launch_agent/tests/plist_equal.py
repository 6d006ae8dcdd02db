"""Exits 0 when two property-list files hold the same dictionary, types included.

Python's True equals 1, so values are compared as (type, value) pairs; a difference is
printed as both typed forms. Usage: plist_equal.py EXPECTED ACTUAL
"""
import plistlib
import sys


def typed(value):
    if isinstance(value, dict):
        return ("dict", {key: typed(item) for key, item in value.items()})
    if isinstance(value, list):
        return ("array", [typed(item) for item in value])
    return (type(value).__name__, value)


def main(expected_path, actual_path):
    with open(expected_path, "rb") as expected_file, open(actual_path, "rb") as actual_file:
        expected = typed(plistlib.load(expected_file))
        actual = typed(plistlib.load(actual_file))
    if expected != actual:
        print("expected:", expected)
        print("actual:  ", actual)
        return 1
    return 0


if __name__ == "__main__":
    sys.exit(main(sys.argv[1], sys.argv[2]))
