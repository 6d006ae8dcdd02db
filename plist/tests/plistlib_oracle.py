#!/usr/bin/env python3
"""Python's plistlib as the oracle of the differential test.

generate DIR COUNT SEED  writes, for each of COUNT values made from SEED, NNN.xml and NNN.bin
                         (plistlib's XML and binary forms) and NNN.json (the typed JSON form,
                         made here independently of the C++ code).
check DIR COUNT SEED     makes the same values again, reads each NNN.ours.xml with plistlib and
                         compares; prints "N passed, M failed" and exits non-zero on a failure.
"""

import base64
import datetime
import json
import math
import os
import plistlib
import random
import struct
import sys

PIECES = [
    "a", "Z", "0", " ", "\t", "\n", "<", ">", "&", '"', "'", ";", "&amp;", "]]>", "<!--", "-->",
    "<key>", "é", "ß", "ü", "中文", "😀", "🚀", "\u2028", "\u00a0", "Label", "$", "/", "\\", "%",
]
EDGE_INTEGERS = [
    0, 1, -1, 127, 128, 255, 256, 32767, 32768, 65535, 65536, 2**31 - 1, 2**31, -2**31, -2**31 - 1,
    2**32 - 1, 2**32, 2**53, 2**53 + 1, 2**63 - 1, -2**63, -2**63 + 1,
]
EDGE_REALS = [
    0.0, -0.0, 0.5, -0.5, 0.1, 1.0, 1e15, 1e16, 123456789012345678.0, 1e-4, 1e-5, 1e300, -1e300,
    5e-324, 2.2250738585072014e-308, 1.7976931348623157e308, math.inf, -math.inf, 3.141592653589793,
]
REFERENCE = datetime.datetime(2001, 1, 1)


def text(rng):
    return "".join(rng.choice(PIECES) for _ in range(rng.randint(0, 12)))


def integer(rng):
    choice = rng.random()
    if choice < 0.3:
        return rng.choice(EDGE_INTEGERS)
    if choice < 0.6:
        return rng.randint(-2**63, 2**63 - 1)
    bits = rng.randint(1, 63)
    return rng.choice([1, -1]) * rng.getrandbits(bits)


def real(rng):
    choice = rng.random()
    if choice < 0.3:
        return rng.choice(EDGE_REALS)
    if choice < 0.6:
        return rng.uniform(-1e6, 1e6)
    while True:
        value = struct.unpack("<d", struct.pack("<Q", rng.getrandbits(64)))[0]
        if not math.isnan(value):
            return value


def date(rng):
    seconds = rng.randint(-63113904000, 252423993599)  # years 0001 to 9999
    return REFERENCE + datetime.timedelta(seconds=seconds)


def value(rng, depth):
    kinds = ["string", "integer", "real", "bool", "date", "data"]
    if depth < 6:
        kinds += ["array", "dict", "array", "dict"]
    kind = rng.choice(kinds)
    if kind == "string":
        return text(rng)
    if kind == "integer":
        return integer(rng)
    if kind == "real":
        return real(rng)
    if kind == "bool":
        return rng.random() < 0.5
    if kind == "date":
        return date(rng)
    if kind == "data":
        return rng.randbytes(rng.choice([0, 1, 2, 3, 11, 12, 13, 44, 45, 57, 58, 100, 150]))
    if kind == "array":
        return [value(rng, depth + 1) for _ in range(rng.randint(0, 5))]
    return {text(rng): value(rng, depth + 1) for _ in range(rng.randint(0, 5))}


def deep(rng, levels):
    inner = value(rng, 6)
    for level in range(levels):
        inner = [inner] if level % 2 else {text(rng): inner}
    return inner


def values(count, seed):
    rng = random.Random(seed)
    made = []
    for index in range(count):
        if index % 25 == 24:
            made.append(deep(rng, rng.randint(20, 120)))
        else:
            made.append(value(rng, 0))
    return made


def typed(item):
    if isinstance(item, str):
        return {"string": item}
    if isinstance(item, bool):
        return {"bool": item}
    if isinstance(item, int):
        return {"integer": str(item)}
    if isinstance(item, float):
        return {"real": repr(item)}
    if isinstance(item, datetime.datetime):
        return {"date": "%04d-%02d-%02dT%02d:%02d:%02dZ" % (
            item.year, item.month, item.day, item.hour, item.minute, item.second)}
    if isinstance(item, bytes):
        return {"data": base64.b64encode(item).decode("ascii")}
    if isinstance(item, list):
        return {"array": [typed(element) for element in item]}
    return {"dict": {key: typed(element) for key, element in item.items()}}


def same(a, b):
    """Equality that tells a boolean from an integer and -0.0 from 0.0."""
    if type(a) is not type(b):
        return False
    if isinstance(a, float):
        return repr(a) == repr(b)
    if isinstance(a, list):
        return len(a) == len(b) and all(same(x, y) for x, y in zip(a, b))
    if isinstance(a, dict):
        return a.keys() == b.keys() and all(same(a[key], b[key]) for key in a)
    return a == b


def main():
    action, folder, count, seed = sys.argv[1], sys.argv[2], int(sys.argv[3]), int(sys.argv[4])
    sys.setrecursionlimit(10000)
    made = values(count, seed)
    if action == "generate":
        for index, item in enumerate(made):
            stem = os.path.join(folder, "%03d" % index)
            with open(stem + ".xml", "wb") as file:
                file.write(plistlib.dumps(item, fmt=plistlib.FMT_XML))
            with open(stem + ".bin", "wb") as file:
                file.write(plistlib.dumps(item, fmt=plistlib.FMT_BINARY))
            with open(stem + ".json", "w", encoding="utf-8") as file:
                json.dump(typed(item), file, ensure_ascii=False)
        return 0
    passed = failed = 0
    for index, item in enumerate(made):
        with open(os.path.join(folder, "%03d.ours.xml" % index), "rb") as file:
            read = plistlib.loads(file.read())
        if same(read, item):
            passed += 1
        else:
            failed += 1
            print("value %d differs" % index)
    print("plistlib: %d passed, %d failed" % (passed, failed))
    return 1 if failed else 0


if __name__ == "__main__":
    sys.exit(main())
