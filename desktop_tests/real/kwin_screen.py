#!/usr/bin/python3
"""KWin's screen for the tier, as a process of the desktop's user (the session bus is theirs):
for each line on standard input, the whole screen through KWin's ScreenShot2 interface, written
to standard output as a binary PPM preceded by its length (4 bytes, big-endian). KWin answers
only programs that a desktop entry grants the interface (the tier's session makes one)."""

import os
import select
import struct
import sys

import numpy
from gi.repository import Gio, GLib

# QImage's formats that KWin hands out: 32 bits a pixel, blue first in memory on little-endian.
FOUR_BYTE_FORMATS = {4, 5, 6}


def capture(bus, width, height):
    read_end, write_end = os.pipe()
    fds = Gio.UnixFDList.new()
    index = fds.append(write_end)
    os.close(write_end)
    reply, _ = bus.call_with_unix_fd_list_sync(
        'org.kde.KWin', '/org/kde/KWin/ScreenShot2', 'org.kde.KWin.ScreenShot2', 'CaptureArea',
        GLib.Variant('(iiuua{sv}h)', (0, 0, width, height, {'include-cursor': GLib.Variant('b', False)}, index)),
        GLib.VariantType('(a{sv})'), Gio.DBusCallFlags.NONE, 10000, fds, None)
    (results,) = reply.unpack()
    # Our copy of the write end, in the list, would keep the pipe open after KWin closes its own.
    for fd in fds.steal_fds():
        os.close(fd)
    print('kwin_screen:', results, file=sys.stderr, flush=True)
    data = bytearray()
    while True:
        if not select.select([read_end], [], [], 10)[0]:
            raise SystemExit('kwin_screen: KWin wrote no image in 10 s')
        chunk = os.read(read_end, 1 << 20)
        if not chunk:
            break
        data += chunk
    os.close(read_end)
    if results.get('format') not in FOUR_BYTE_FORMATS:
        raise SystemExit(f'kwin_screen: an image in format {results.get("format")}')
    rows = numpy.frombuffer(bytes(data), numpy.uint8).reshape(results['height'], results['stride'])
    pixels = rows[:, :results['width'] * 4].reshape(results['height'], results['width'], 4)
    rgb = numpy.ascontiguousarray(pixels[:, :, 2::-1])
    return b'P6\n%d %d\n255\n' % (results['width'], results['height']) + rgb.tobytes()


def main():
    width, height = int(sys.argv[1]), int(sys.argv[2])
    bus = Gio.bus_get_sync(Gio.BusType.SESSION, None)
    out = sys.stdout.buffer
    for _ in sys.stdin:
        image = capture(bus, width, height)
        out.write(struct.pack('>I', len(image)) + image)
        out.flush()


if __name__ == '__main__':
    main()
