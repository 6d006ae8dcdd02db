"""GNOME Shell 43 on Wayland, headless on a virtual monitor, with the AppIndicator extension
enabled (what Ubuntu ships), as an unprivileged user. The Shell wants a system bus where the
machine has seats: a private one stands in. The screen comes from the Shell's Screenshot
interface and the person's hands from Mutter's RemoteDesktop interface, both through
gnome_helper.py; GNOME keeps no window list that the tier may read, so the popover's place and
look come from the screen alone."""

import os
import struct
import time

from screen import Rect, read_ppm
from session import Session, desktop_user, read_line_from, wait_until

WIDTH, HEIGHT = 1280, 800
TOP_BAR = 32
EXTENSION = 'ubuntu-appindicators@ubuntu.com'
BUTTONS = {'left': 272, 'right': 273, 'middle': 274}
KEYSYMS = {'Escape': 0xff1b, 'Shift_L': 0xffe1}


class GnomeDesktop:
    name = 'gnome'
    lists_windows = False
    # The AppIndicator extension draws the item's own menu on a left click and never calls
    # Activate: on GNOME the host's native menu is its popover.
    left_click_opens = 'menu'

    def __init__(self, artifacts):
        self.size = (WIDTH, HEIGHT)
        self.session = Session(self.name, artifacts, desktop_user())
        self.helper = None

    def start(self):
        session = self.session
        session.env.update({
            'XDG_SESSION_TYPE': 'wayland',
            'XDG_CURRENT_DESKTOP': 'GNOME',
            'XDG_SESSION_DESKTOP': 'gnome',
        })
        read_end, write_end = os.pipe()
        session.spawn(['dbus-daemon', '--session', '--nofork', f'--print-address={write_end}'], 'system-bus',
                      pass_fds=[write_end])
        os.close(write_end)
        session.env['DBUS_SYSTEM_BUS_ADDRESS'] = read_line_from(read_end, 20, 'the stand-in system bus')
        os.close(read_end)
        session.start_bus()
        session.run(['gsettings', 'set', 'org.gnome.shell', 'enabled-extensions', f"['{EXTENSION}']"])
        session.run(['gsettings', 'set', 'org.gnome.shell', 'disable-user-extensions', 'false'])
        # Banners would cover the screen between two screenshots.
        session.run(['gsettings', 'set', 'org.gnome.desktop.notifications', 'show-banners', 'false'])
        session.spawn(['gnome-shell', '--headless', '--wayland', '--virtual-monitor', f'{WIDTH}x{HEIGHT}',
                       '--wayland-display', 'wayland-vx'], 'gnome-shell')
        wait_until(lambda: os.path.exists(os.path.join(session.runtime, 'wayland-vx')), 60,
                   "the Shell's Wayland socket")
        session.env['WAYLAND_DISPLAY'] = 'wayland-vx'
        wait_until(lambda: self._has_owner('org.gnome.Mutter.RemoteDesktop'), 60, 'Mutter on the bus')
        wait_until(lambda: self._has_owner('org.kde.StatusNotifierWatcher'), 60, "the AppIndicator extension's watcher")
        helper = os.path.join(os.path.dirname(os.path.abspath(__file__)), 'gnome_helper.py')
        self.helper = session.helper(['/usr/bin/python3', helper, str(WIDTH), str(HEIGHT)], 'helper')
        # A new RemoteDesktop session can lose its first key: a harmless one goes first. Escape
        # then leaves the overview the Shell starts in.
        self.key('Shift_L')
        time.sleep(1)
        self.key('Escape')
        wait_until(self._overview_left, 20, 'the desktop without the overview', interval=0.5)
        # An item registered in the extension's first seconds is dropped again about one time in
        # three (its log: "While initalizing proxy ... Argument two may not be null"): the host
        # comes a few seconds after the desktop, as a person starts it.
        time.sleep(3)

    def _overview_left(self):
        image = self.grab()
        self.key('Escape')
        return image[HEIGHT // 2, WIDTH // 2].tolist() == self.grab()[HEIGHT // 2, WIDTH // 2].tolist()

    def _has_owner(self, name):
        out = self.session.run(['gdbus', 'call', '--session', '--dest', 'org.freedesktop.DBus', '--object-path',
                                '/org/freedesktop/DBus', '--method', 'org.freedesktop.DBus.NameHasOwner', name],
                               check=False)
        return b'true' in out

    def _command(self, line):
        self.helper.stdin.write(line.encode() + b'\n')
        self.helper.stdin.flush()

    def _answered(self, line):
        self._command(line)
        if self.helper.stdout.readline().strip() != b'ok':
            raise RuntimeError(f'the GNOME helper refused "{line}" (see gnome-helper.log)')

    def host_env(self):
        return {}

    def grab(self):
        self._command('grab')
        header = self.helper.stdout.read(4)
        if len(header) != 4:
            raise RuntimeError('the GNOME helper ended (see gnome-helper.log)')
        (length,) = struct.unpack('>I', header)
        return read_ppm(self.helper.stdout.read(length))

    def click(self, x, y, button):
        self._answered(f'click {x} {y} {BUTTONS[button]}')

    def key(self, name):
        self._answered(f'key {KEYSYMS[name]}')

    def panel_area(self):
        return Rect(0, 0, WIDTH, TOP_BAR)

    def tray_area(self):
        return Rect(WIDTH * 2 // 3, 0, WIDTH // 3, TOP_BAR)

    def popover_window(self):
        return None

    def stop(self):
        self.session.stop()
