#!/usr/bin/python3
"""GNOME Shell's screen and a person's hands there, for the tier, as a process of the desktop's
user. One command a line on standard input:
    grab               the screen through the Shell's Screenshot interface, written to standard
                       output as a binary PPM preceded by its length (4 bytes, big-endian)
    click X Y BUTTON   through Mutter's RemoteDesktop interface (BUTTON an evdev code); answers ok
    key KEYSYM         pressed and released, the same way; answers ok
The Shell answers screenshot calls only from the bus names it trusts: this process takes one of
them. A RemoteDesktop session without a screen cast has only relative motion: the pointer is
first pushed into the bottom-right corner, then moved back to the point. Not the top-left one:
the pointer resting on the top bar's Activities button while a menu of the bar is open closes
that menu, as moving along a menu bar does.
    gnome_helper.py WIDTH HEIGHT"""

import os
import struct
import sys

import numpy
from gi.repository import Gio, GLib, GdkPixbuf

TRUSTED_NAME = 'org.gnome.Screenshot'


def call(bus, name, path, interface, method, arguments=None, reply=None):
    return bus.call_sync(name, path, interface, method, arguments, GLib.VariantType(reply) if reply else None,
                         Gio.DBusCallFlags.NONE, 10000, None).unpack()


class Hands:
    def __init__(self, bus, width, height):
        self.bus = bus
        self.corner = (width - 1, height - 1)
        (self.path,) = call(bus, 'org.gnome.Mutter.RemoteDesktop', '/org/gnome/Mutter/RemoteDesktop',
                            'org.gnome.Mutter.RemoteDesktop', 'CreateSession', None, '(o)')
        self.session('Start')

    def session(self, method, arguments=None):
        call(self.bus, 'org.gnome.Mutter.RemoteDesktop', self.path, 'org.gnome.Mutter.RemoteDesktop.Session', method,
             arguments)

    def click(self, x, y, button):
        self.session('NotifyPointerMotionRelative', GLib.Variant('(dd)', (100000.0, 100000.0)))
        self.session('NotifyPointerMotionRelative', GLib.Variant('(dd)', (float(x - self.corner[0]),
                                                                          float(y - self.corner[1]))))
        self.session('NotifyPointerButton', GLib.Variant('(ib)', (button, True)))
        self.session('NotifyPointerButton', GLib.Variant('(ib)', (button, False)))

    def key(self, keysym):
        self.session('NotifyKeyboardKeysym', GLib.Variant('(ub)', (keysym, True)))
        self.session('NotifyKeyboardKeysym', GLib.Variant('(ub)', (keysym, False)))


def grab(bus, path):
    success, written = call(bus, 'org.gnome.Shell.Screenshot', '/org/gnome/Shell/Screenshot',
                            'org.gnome.Shell.Screenshot', 'Screenshot', GLib.Variant('(bbs)', (False, False, path)),
                            '(bs)')
    if not success:
        raise SystemExit('gnome_helper: the Shell took no screenshot')
    image = GdkPixbuf.Pixbuf.new_from_file(written)
    os.unlink(written)
    width, height, channels = image.get_width(), image.get_height(), image.get_n_channels()
    rows = numpy.frombuffer(image.get_pixels(), numpy.uint8)[:height * image.get_rowstride()]
    pixels = rows.reshape(height, image.get_rowstride())[:, :width * channels].reshape(height, width, channels)
    return b'P6\n%d %d\n255\n' % (width, height) + numpy.ascontiguousarray(pixels[:, :, :3]).tobytes()


def main():
    bus = Gio.bus_get_sync(Gio.BusType.SESSION, None)
    (owned,) = call(bus, 'org.freedesktop.DBus', '/org/freedesktop/DBus', 'org.freedesktop.DBus', 'RequestName',
                    GLib.Variant('(su)', (TRUSTED_NAME, 4)), '(u)')
    if owned != 1:
        raise SystemExit(f'gnome_helper: could not take {TRUSTED_NAME}')
    hands = Hands(bus, int(sys.argv[1]), int(sys.argv[2]))
    target = os.path.join(os.environ['XDG_RUNTIME_DIR'], 'screen.png')
    out = sys.stdout.buffer
    for line in sys.stdin:
        words = line.split()
        if words[0] == 'grab':
            image = grab(bus, target)
            out.write(struct.pack('>I', len(image)) + image)
        elif words[0] == 'click':
            hands.click(int(words[1]), int(words[2]), int(words[3]))
            out.write(b'ok\n')
        elif words[0] == 'key':
            hands.key(int(words[1], 0))
            out.write(b'ok\n')
        out.flush()


if __name__ == '__main__':
    main()
