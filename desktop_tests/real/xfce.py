"""Xfce 4.18 on X11: Xvfb, xfwm4 and a panel along the top holding only its status tray (no
clock, so that only the host changes the panel). The person's hands are xdotool; the window
list is the X server's own."""

import os
import re
import subprocess

import numpy

from screen import Rect
from session import Session, read_line_from, wait_until

WIDTH, HEIGHT = 1280, 800
PANEL_HEIGHT = 28

PANEL_CONFIG = f"""<?xml version="1.0" encoding="UTF-8"?>
<channel name="xfce4-panel" version="1.0">
  <property name="configver" type="int" value="2"/>
  <property name="panels" type="array">
    <value type="int" value="1"/>
    <property name="panel-1" type="empty">
      <property name="position" type="string" value="p=6;x=0;y=0"/>
      <property name="length" type="uint" value="100"/>
      <property name="position-locked" type="bool" value="true"/>
      <property name="size" type="uint" value="{PANEL_HEIGHT}"/>
      <property name="plugin-ids" type="array">
        <value type="int" value="1"/>
        <value type="int" value="2"/>
      </property>
    </property>
  </property>
  <property name="plugins" type="empty">
    <property name="plugin-1" type="string" value="separator">
      <property name="expand" type="bool" value="true"/>
      <property name="style" type="uint" value="0"/>
    </property>
    <property name="plugin-2" type="string" value="systray"/>
  </property>
</channel>
"""

BUTTONS = {'left': '1', 'middle': '2', 'right': '3'}


class XfceDesktop:
    name = 'xfce'
    lists_windows = True
    # What a left click on the icon opens: the host's popover, through the item's Activate.
    left_click_opens = 'popover'

    def __init__(self, artifacts):
        self.size = (WIDTH, HEIGHT)
        self.session = Session(self.name, artifacts)
        self.root_window = None

    def start(self):
        session = self.session
        read_end, write_end = os.pipe()
        session.spawn(['Xvfb', '-displayfd', str(write_end), '-screen', '0', f'{WIDTH}x{HEIGHT}x24', '-nolisten',
                       'tcp', '-noreset'], 'xvfb', pass_fds=[write_end])
        os.close(write_end)
        session.env['DISPLAY'] = ':' + read_line_from(read_end, 20, 'Xvfb')
        os.close(read_end)
        session.env['XDG_CURRENT_DESKTOP'] = 'XFCE'
        session.start_bus()
        session.write('.config/xfce4/xfconf/xfce-perchannel-xml/xfce4-panel.xml', PANEL_CONFIG)
        session.spawn(['xfwm4', '--compositor=off'], 'xfwm4')
        session.spawn(['xfce4-panel'], 'xfce4-panel')
        # This process reads the screen and sends the input of this display.
        os.environ['DISPLAY'] = session.env['DISPLAY']
        wait_until(lambda: self._windows('--class', 'xfce4-panel'), 30, "the Xfce panel's window")
        wait_until(lambda: self._has_owner('org.kde.StatusNotifierWatcher'), 30, "the panel's status tray")

    def _has_owner(self, name):
        out = self.session.run(['gdbus', 'call', '--session', '--dest', 'org.freedesktop.DBus', '--object-path',
                                '/org/freedesktop/DBus', '--method', 'org.freedesktop.DBus.NameHasOwner', name])
        return b'true' in out

    def _windows(self, *query):
        result = subprocess.run(['xdotool', 'search', '--onlyvisible'] + list(query), capture_output=True,
                                env=self.session.env, timeout=10)
        return result.stdout.split()

    def host_env(self):
        return {}

    def grab(self):
        import gi
        gi.require_version('Gdk', '3.0')
        from gi.repository import Gdk
        if self.root_window is None:
            Gdk.init([])
            self.root_window = Gdk.get_default_root_window()
        pixbuf = Gdk.pixbuf_get_from_window(self.root_window, 0, 0, WIDTH, HEIGHT)
        rows = numpy.frombuffer(pixbuf.get_pixels(), numpy.uint8).reshape(HEIGHT, pixbuf.get_rowstride())
        channels = pixbuf.get_n_channels()
        return rows[:, :WIDTH * channels].reshape(HEIGHT, WIDTH, channels)[:, :, :3].copy()

    def click(self, x, y, button):
        subprocess.run(['xdotool', 'mousemove', str(x), str(y), 'click', BUTTONS[button]], check=True,
                       env=self.session.env, timeout=10)

    def key(self, name):
        subprocess.run(['xdotool', 'key', name], check=True, env=self.session.env, timeout=10)

    def panel_area(self):
        return Rect(0, 0, WIDTH, PANEL_HEIGHT)

    def tray_area(self):
        return self.panel_area()


    def popover_window(self):
        """The host's popover as the X server lists it, and whether the window manager framed it."""
        for window in self._windows('--name', '^Vornix OS$'):
            info = subprocess.run(['xwininfo', '-id', window], capture_output=True, text=True,
                                  env=self.session.env, timeout=10).stdout
            fields = re.findall(r'(Absolute upper-left [XY]|Width|Height):\s+(-?\d+)', info)
            value = {key: int(number) for key, number in fields}
            frame = subprocess.run(['xprop', '-id', window, '_NET_FRAME_EXTENTS'], capture_output=True, text=True,
                                   env=self.session.env, timeout=10).stdout
            extents = [int(number) for number in re.findall(r'\d+', frame.partition('=')[2])]
            return (Rect(value['Absolute upper-left X'], value['Absolute upper-left Y'], value['Width'],
                         value['Height']), ['decorated'] if any(extents) else [])
        return None

    def stop(self):
        self.session.stop()
