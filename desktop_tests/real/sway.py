"""sway 1.7 with waybar's tray along the top (waybar's own default look, dark), headless, as an
unprivileged user (sway refuses root). The person's pointer is a wlroots virtual pointer, the
keys come through the virtual keyboard (wtype), the screen through wlroots' screen copy (grim),
and the window list is sway's tree."""

import json
import os

from pointer import WaylandInput
from screen import Rect, read_ppm
from session import Session, desktop_user, wait_until

WIDTH, HEIGHT = 1280, 800
BAR_HEIGHT = 28

SWAY_CONFIG = f"""output HEADLESS-1 resolution {WIDTH}x{HEIGHT} position 0 0 bg #3a6ea5 solid_color
default_border normal
bar {{
    swaybar_command waybar
}}
"""

WAYBAR_CONFIG = json.dumps({
    'layer': 'top',
    'position': 'top',
    'height': BAR_HEIGHT,
    'modules-left': [],
    'modules-center': [],
    'modules-right': ['tray'],
    'tray': {'spacing': 8, 'icon-size': 18},
})


class SwayDesktop:
    name = 'sway'
    lists_windows = True
    # What a left click on the icon opens: the host's popover, through the item's Activate.
    left_click_opens = 'popover'

    def __init__(self, artifacts):
        self.size = (WIDTH, HEIGHT)
        self.session = Session(self.name, artifacts, desktop_user())
        self.input = None

    def start(self):
        session = self.session
        session.env.update({
            'WLR_BACKENDS': 'headless',
            'WLR_LIBINPUT_NO_DEVICES': '1',
            'WLR_RENDERER': 'pixman',
            'XDG_CURRENT_DESKTOP': 'sway',
            'XDG_SESSION_TYPE': 'wayland',
        })
        session.start_bus()
        config = session.write('.config/sway/config', SWAY_CONFIG)
        session.write('.config/waybar/config', WAYBAR_CONFIG)
        session.spawn(['sway', '--config', config], 'sway')
        socket = wait_until(lambda: [name for name in os.listdir(session.runtime) if name.startswith('wayland-')
                                     and not name.endswith('.lock')], 30, "sway's Wayland socket")[0]
        session.env['WAYLAND_DISPLAY'] = socket
        ipc = wait_until(lambda: [name for name in os.listdir(session.runtime) if name.startswith('sway-ipc.')], 30,
                         "sway's IPC socket")[0]
        session.env['SWAYSOCK'] = os.path.join(session.runtime, ipc)
        wait_until(lambda: self._has_owner('org.kde.StatusNotifierWatcher'), 30, "waybar's tray")
        self.input = WaylandInput(session, WIDTH, HEIGHT)
        # A bar that has drawn its first frame.
        wait_until(lambda: self.grab()[BAR_HEIGHT // 2, 4].tolist() != self.grab()[HEIGHT // 2, 4].tolist(), 20,
                   "waybar's bar")

    def _has_owner(self, name):
        out = self.session.run(['gdbus', 'call', '--session', '--dest', 'org.freedesktop.DBus', '--object-path',
                                '/org/freedesktop/DBus', '--method', 'org.freedesktop.DBus.NameHasOwner', name],
                               check=False)
        return b'true' in out

    def host_env(self):
        return {}

    def grab(self):
        return read_ppm(self.session.run(['grim', '-t', 'ppm', '-']))

    def click(self, x, y, button):
        self.input.click(x, y, button)

    def key(self, name):
        # Each wtype is a new virtual keyboard: a key sent at once is often lost (Escape reached
        # the popover about one time in three); sent a moment after the keyboard appeared, it
        # arrives.
        self.session.run(['wtype', '-s', '300', '-k', name])

    def panel_area(self):
        return Rect(0, 0, WIDTH, BAR_HEIGHT)

    def tray_area(self):
        return self.panel_area()


    def popover_window(self):
        """The host's popover in sway's tree: its rectangle with the border and what makes it an
        ordinary window (a title bar, a tile); None when it is not a window there (a layer surface
        is not)."""
        tree = json.loads(self.session.run(['swaymsg', '-t', 'get_tree', '--raw']))
        pid = self.session.host.pid
        found = []

        def walk(node):
            if node.get('pid') == pid and node.get('visible'):
                found.append(node)
            for child in node.get('nodes', []) + node.get('floating_nodes', []):
                walk(child)
        walk(tree)
        for node in found:
            rect = node['rect']
            flaws = ([] if node.get('border') in ('none', 'csd') else ['decorated']) + \
                (['tiled'] if node.get('type') == 'con' else [])
            return Rect(rect['x'], rect['y'], rect['width'], rect['height']), flaws
        return None

    def stop(self):
        self.session.stop()
