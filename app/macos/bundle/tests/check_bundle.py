#!/usr/bin/env python3
"""Checks the application bundle's contents made without a Mac, read with Python's plistlib.

    check_bundle.py CONTENTS --version V --url-scheme S --minimum-system M \
        --web-endpoints host/WebEndpoints.hpp --tray-drawing app/resources/TrayIcon.svg

Contents holds exactly Info.plist and Resources; Info.plist has exactly the application's keys
with this build's values, the updater's public key being an Ed25519 key (32 bytes in base64); Resources holds "TrayIcon" as a template image (black, the shape in
the alpha channel only, the same shape as the Linux tray icon's drawing) at 1x and 2x, and the
application icon as a well-formed .icns file.
"""
import argparse
import base64
import binascii
import pathlib
import plistlib
import re
import struct
import subprocess
import sys
import tempfile
import zlib

failures = []


def expect(condition, message):
    if not condition:
        failures.append(message)


def read_png_rgba(path):
    """The size and the rows of RGBA pixels of an 8-bit RGBA PNG file."""
    data = path.read_bytes()
    if data[:8] != b'\x89PNG\r\n\x1a\n':
        raise ValueError(f'{path.name} is not a PNG file')
    position, header, compressed = 8, None, b''
    while position < len(data):
        length, kind = struct.unpack('>I4s', data[position:position + 8])
        body = data[position + 8:position + 8 + length]
        position += 12 + length
        if kind == b'IHDR':
            header = struct.unpack('>IIBBBBB', body)
        elif kind == b'IDAT':
            compressed += body
        elif kind == b'IEND':
            break
    width, height, depth, colour, _, _, interlace = header
    if (depth, colour, interlace) != (8, 6, 0):
        raise ValueError(f'{path.name} is not 8-bit RGBA without interlacing')
    raw = zlib.decompress(compressed)
    stride, rows, previous = width * 4, [], bytearray(width * 4)
    for y in range(height):
        line = raw[y * (stride + 1):(y + 1) * (stride + 1)]
        kind, row = line[0], bytearray(line[1:])
        for x in range(stride):
            left = row[x - 4] if x >= 4 else 0
            up = previous[x]
            upper_left = previous[x - 4] if x >= 4 else 0
            if kind == 1:
                row[x] = (row[x] + left) & 0xFF
            elif kind == 2:
                row[x] = (row[x] + up) & 0xFF
            elif kind == 3:
                row[x] = (row[x] + (left + up) // 2) & 0xFF
            elif kind == 4:
                estimate = left + up - upper_left
                pa, pb, pc = abs(estimate - left), abs(estimate - up), abs(estimate - upper_left)
                predictor = left if pa <= pb and pa <= pc else (up if pb <= pc else upper_left)
                row[x] = (row[x] + predictor) & 0xFF
        rows.append(bytes(row))
        previous = row
    return (width, height), rows


def alpha_channel(rows):
    return [row[x + 3] for row in rows for x in range(0, len(row), 4)]


def check_info_plist(contents, args):
    with open(contents / 'Info.plist', 'rb') as file:
        info = plistlib.load(file)
    endpoints = args.web_endpoints.read_text()
    feed = re.search(r'updateFeed = "([^"]+)";', endpoints)
    expect(feed is not None, 'no update feed in the web endpoints header')
    key = re.search(r'updatePublicKey = "([^"]+)";', endpoints)
    expect(key is not None, 'no update key in the web endpoints header')
    try:
        key_bytes = base64.b64decode(key.group(1), validate=True) if key else b''
    except binascii.Error:
        key_bytes = b''
    expect(len(key_bytes) == 32, 'the update key is not 32 bytes in base64')
    expected = {
        'CFBundleIdentifier': 'com.vornix.os',
        'CFBundleName': 'Vornix OS',
        'CFBundleDisplayName': 'Vornix OS',
        'CFBundleExecutable': 'Vornix OS',
        'CFBundlePackageType': 'APPL',
        'CFBundleShortVersionString': args.version,
        'CFBundleVersion': args.version,
        'LSMinimumSystemVersion': args.minimum_system,
        'LSUIElement': True,
        'NSPrincipalClass': 'NSApplication',
        'NSHighResolutionCapable': True,
        'CFBundleURLTypes': [{'CFBundleURLName': 'com.vornix.os', 'CFBundleURLSchemes': [args.url_scheme]}],
        'SUFeedURL': feed.group(1) if feed else None,
        'SUPublicEDKey': key.group(1) if key else None,
        'SUEnableAutomaticChecks': True,
    }
    expect(sorted(info) == sorted(expected), f'Info.plist keys are {sorted(info)}')
    for key, value in expected.items():
        # type() as well: plistlib reads <integer>1</integer> as 1, which equals True.
        expect(info.get(key) == value and type(info.get(key)) is type(value),
               f'Info.plist {key} is {info.get(key)!r}, not {value!r}')


def check_template_image(resources, name, points, scale, drawing):
    path = resources / name
    (width, height), rows = read_png_rgba(path)
    expect((width, height) == (points * scale, points * scale), f'{name} is {width}x{height}')
    pixels = [row[x:x + 4] for row in rows for x in range(0, len(row), 4)]
    expect(all(pixel[:3] == b'\0\0\0' for pixel in pixels if pixel[3]), f'{name} is not black')
    alphas = [pixel[3] for pixel in pixels]
    expect(0 in alphas and 255 in alphas, f'{name} has no shape in its alpha channel')
    with tempfile.TemporaryDirectory() as folder:
        plain = pathlib.Path(folder) / 'plain.png'
        subprocess.run(['rsvg-convert', '-w', str(width), '-h', str(height), '-o', str(plain), str(drawing)],
                       check=True)
        _, plain_rows = read_png_rgba(plain)
    expect(alphas == alpha_channel(plain_rows), f'{name} does not have the shape of {drawing.name}')


def check_icns(path):
    data = path.read_bytes()
    expect(data[:4] == b'icns', 'AppIcon.icns does not start with "icns"')
    expect(struct.unpack('>I', data[4:8])[0] == len(data), 'AppIcon.icns length field is wrong')
    kinds, position = [], 8
    while position + 8 <= len(data):
        kind, length = struct.unpack('>4sI', data[position:position + 8])
        if length < 8:
            break
        kinds.append(kind.decode('latin-1'))
        position += length
    expect(position == len(data), 'AppIcon.icns elements do not fill the file')
    expect({'ic09', 'ic10', 'ic14'} & set(kinds), f'AppIcon.icns has no 512-point element: {kinds}')


def main():
    parser = argparse.ArgumentParser()
    parser.add_argument('contents', type=pathlib.Path)
    parser.add_argument('--version', required=True)
    parser.add_argument('--url-scheme', required=True)
    parser.add_argument('--minimum-system', required=True)
    parser.add_argument('--web-endpoints', type=pathlib.Path, required=True)
    parser.add_argument('--tray-drawing', type=pathlib.Path, required=True)
    args = parser.parse_args()
    contents = args.contents
    resources = contents / 'Resources'
    drawing = args.tray_drawing

    expect(sorted(p.name for p in contents.iterdir()) == ['Info.plist', 'Resources'],
           f'Contents holds {sorted(p.name for p in contents.iterdir())}')
    expect(sorted(p.name for p in resources.iterdir()) == ['AppIcon.icns', 'TrayIcon.png', 'TrayIcon@2x.png'],
           f'Resources holds {sorted(p.name for p in resources.iterdir())}')
    check_info_plist(contents, args)
    check_template_image(resources, 'TrayIcon.png', 18, 1, drawing)
    check_template_image(resources, 'TrayIcon@2x.png', 18, 2, drawing)
    check_icns(resources / 'AppIcon.icns')

    for failure in failures:
        print(f'bundle contents: {failure}')
    if failures:
        return 1
    print('bundle contents: ok')
    return 0


if __name__ == '__main__':
    sys.exit(main())
