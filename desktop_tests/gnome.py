"""A headless GNOME Shell (Mutter, no layer-shell) beside a test's desktop, for the host on a
Wayland desktop that places no client's window where the client asks: one virtual monitor,
Xwayland for the X clients, a private system bus (GNOME Shell asks logind's bus where systemd
runs), notification banners off (a keyfile settings backend of its own), screenshots through
GNOME Shell's screenshot interface, which answers only callers that own one of the names it
allows (the test owns org.gnome.Screenshot), and keys and clicks through XTEST on Xwayland,
which reach X clients only."""

import os
import re
import shutil
import subprocess

from gi.repository import Gio, GLib

import harness
from harness import SetupError, wait_until

WIDTH = 1280
HEIGHT = 800
DISPLAY_NAME = 'vornix-gnome'
TOOLS = ('gnome-shell', 'Xwayland', 'xdotool')

SYSTEM_BUS = """<!DOCTYPE busconfig PUBLIC "-//freedesktop//DTD D-Bus Bus Configuration 1.0//EN"
 "http://www.freedesktop.org/standards/dbus/1.0/busconfig.dtd">
<busconfig>
  <type>system</type>
  <listen>unix:tmpdir=/tmp</listen>
  <auth>EXTERNAL</auth>
  <policy context="default">
    <allow send_destination="*" eavesdrop="true"/>
    <allow eavesdrop="true"/>
    <allow own="*"/>
  </policy>
</busconfig>
"""

SETTINGS = """[org/gnome/desktop/notifications]
show-banners=false
"""


class Gnome:
    def __init__(self, desktop):
        missing = [tool for tool in TOOLS if not shutil.which(tool)]
        if missing:
            raise SetupError('GNOME Shell is not installed (missing ' + ', '.join(missing) + ')')
        self.desktop = desktop
        config = os.path.join(desktop.root, 'system-bus.conf')
        with open(config, 'w') as out:
            out.write(SYSTEM_BUS)
        read_end, write_end = os.pipe()
        desktop._spawn(['dbus-daemon', f'--config-file={config}', '--nofork', f'--print-address={write_end}'],
                       pass_fds=[write_end], log='system-bus')
        os.close(write_end)
        system_bus = harness.read_line_from(read_end, 20, 'the system bus')
        os.close(read_end)
        settings = os.path.join(desktop.env['XDG_CONFIG_HOME'], 'glib-2.0', 'settings')
        os.makedirs(settings, exist_ok=True)
        with open(os.path.join(settings, 'keyfile'), 'w') as out:
            out.write(SETTINGS)
        env = dict(desktop.env, DBUS_SYSTEM_BUS_ADDRESS=system_bus, XDG_SESSION_TYPE='wayland',
                   GSETTINGS_BACKEND='keyfile')
        env.pop('DISPLAY', None)
        self.log = os.path.join(desktop.root, 'gnome-shell.log')
        desktop._spawn(['gnome-shell', '--headless', '--wayland', '--virtual-monitor', f'{WIDTH}x{HEIGHT}',
                        '--wayland-display', DISPLAY_NAME], log='gnome-shell', env=env)
        self.x_display = wait_until(self._x_display, 60, 'GNOME Shell to start')
        self.bus = Gio.bus_get_sync(Gio.BusType.SESSION, None)
        self.owner = Gio.bus_own_name_on_connection(self.bus, 'org.gnome.Screenshot', Gio.BusNameOwnerFlags.NONE,
                                                    None, None)
        wait_until(self._shell_ready, 60, 'GNOME Shell to take screenshots', interval=0.5)
        # It starts in the overview; a person's session shows the desktop.
        self.bus.call_sync('org.gnome.Shell', '/org/gnome/Shell', 'org.freedesktop.DBus.Properties', 'Set',
                           GLib.Variant('(ssv)', ('org.gnome.Shell', 'OverviewActive', GLib.Variant('b', False))),
                           None, Gio.DBusCallFlags.NONE, 10000, None)
        wait_until(lambda: not self._overview_active(), 20, 'the overview to close')
        self.background = None
        self.background = wait_until(self._settled, 20, 'the desktop to settle', interval=0.5)
        self.x_env = {'PATH': '/usr/local/bin:/usr/bin:/bin', 'DISPLAY': self.x_display,
                      'XAUTHORITY': self._x_authority()}

    def _x_display(self):
        with open(self.log, encoding='utf-8', errors='replace') as said:
            found = re.search(r'Using public X11 display (:[0-9]+)', said.read())
        return found and found.group(1)

    def _x_authority(self):
        found = [name for name in os.listdir(self.desktop.runtime) if name.startswith('.mutter-Xwaylandauth')]
        return os.path.join(self.desktop.runtime, found[0]) if found else ''

    def _shell_ready(self):
        try:
            self.screenshot('started')
            return True
        except GLib.Error:
            return False

    def _overview_active(self):
        reply = self.bus.call_sync('org.gnome.Shell', '/org/gnome/Shell', 'org.freedesktop.DBus.Properties', 'Get',
                                   GLib.Variant('(ss)', ('org.gnome.Shell', 'OverviewActive')), None,
                                   Gio.DBusCallFlags.NONE, 10000, None)
        return reply.unpack()[0]

    def _settled(self):
        """The empty desktop once two screenshots in a row agree (the overview's animation over)."""
        first = self.screenshot('empty-desktop')
        second = self.screenshot('empty-desktop')
        return second if first.data == second.data else None

    def host_environment(self):
        """The desktop's environment for a client of GNOME Shell: Wayland, with its Xwayland."""
        return dict(self.desktop.env, WAYLAND_DISPLAY=DISPLAY_NAME, DISPLAY=self.x_display,
                    XAUTHORITY=self._x_authority(), XDG_SESSION_TYPE='wayland')

    def screenshot(self, label):
        path = os.path.join(self.desktop.artifacts, f'{self.desktop.name}-{label}.png')
        self.bus.call_sync('org.gnome.Shell.Screenshot', '/org/gnome/Shell/Screenshot', 'org.gnome.Shell.Screenshot',
                           'Screenshot', GLib.Variant('(bbs)', (False, False, path)), None, Gio.DBusCallFlags.NONE,
                           20000, None)
        import gi
        gi.require_version('GdkPixbuf', '2.0')
        from gi.repository import GdkPixbuf
        image = GdkPixbuf.Pixbuf.new_from_file(path)
        shot = type('Screenshot', (), {})()
        shot.data = bytes(image.get_pixels())
        shot.stride = image.get_rowstride()
        shot.channels = image.get_n_channels()
        shot.width = image.get_width()
        shot.height = image.get_height()
        return shot

    def drawn_area(self, label):
        """The smallest rectangle (x, y, width, height) where the screen differs from the empty
        desktop below the top bar (whose clock changes), or None."""
        shot = self.screenshot(label)
        empty = self.background
        top_bar = 32
        row_bytes = shot.width * shot.channels
        rows = []
        columns = []
        for y in range(top_bar, shot.height):
            start = y * shot.stride
            if shot.data[start:start + row_bytes] == empty.data[start:start + row_bytes]:
                continue
            rows.append(y)
            differing = [x for x in range(shot.width)
                         if shot.data[start + x * shot.channels:start + x * shot.channels + 3]
                         != empty.data[start + x * shot.channels:start + x * shot.channels + 3]]
            columns += [differing[0], differing[-1]]
        if not rows:
            return None
        return min(columns), rows[0], max(columns) - min(columns) + 1, rows[-1] - rows[0] + 1

    def x_windows(self, name):
        result = subprocess.run(['xdotool', 'search', '--onlyvisible', '--name', name], env=self.x_env,
                                capture_output=True, timeout=20)
        return result.stdout.split()

    def press_key(self, key):
        subprocess.run(['xdotool', 'key', key], env=self.x_env, check=True, timeout=20)

    def click(self, x, y):
        subprocess.run(['xdotool', 'mousemove', str(int(x)), str(int(y)), 'click', '1'], env=self.x_env, check=True,
                       timeout=20)

    def stop(self):
        Gio.bus_unown_name(self.owner)
