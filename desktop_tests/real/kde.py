"""KDE Plasma 5.27 on Wayland: KWin on a virtual output with plasmashell's default desktop (the
panel along the bottom, the system tray at its right end), as an unprivileged user. The person's
pointer and keys are KWin's fake input, the screen comes from KWin's ScreenShot2 interface, and
the window list from a KWin script. KWin grants both only to programs a desktop entry names; the
session's own entries name the tier's two helpers."""

import json
import os
import shutil
import struct
import sys
import time

from pointer import WaylandInput
from screen import Rect, read_ppm
from session import Session, desktop_user, wait_until

WIDTH, HEIGHT = 1280, 800
PANEL_HEIGHT = 60  # the default panel is 44 px high; a margin for its shadow
ESCAPE = 1  # the evdev code

GRANT = """[Desktop Entry]
Type=Application
Name={name}
Exec={program}
{key}={interface}
"""

# Prints the windows as one JSON line that the tier reads from KWin's log.
LIST_WINDOWS = """
var windows = workspace.clientList().map(function (w) {
    var g = w.frameGeometry;
    return {pid: w.pid, caption: w.caption, noBorder: w.noBorder, skipTaskbar: w.skipTaskbar,
            x: g.x, y: g.y, width: g.width, height: g.height, minimized: w.minimized};
});
print("vornix-windows " + MARK + " " + JSON.stringify(windows));
"""


class KdeDesktop:
    name = 'kde'
    lists_windows = True
    # What a left click on the icon opens: the host's popover, through the item's Activate.
    left_click_opens = 'popover'

    def __init__(self, artifacts):
        self.size = (WIDTH, HEIGHT)
        self.session = Session(self.name, artifacts, desktop_user())
        self.input = None
        self.screen = None
        self.scripts = 0

    def start(self):
        session = self.session
        session.env.update({
            'XDG_SESSION_TYPE': 'wayland',
            'XDG_CURRENT_DESKTOP': 'KDE',
            'KDE_FULL_SESSION': 'true',
            'KDE_SESSION_VERSION': '5',
            'QT_QPA_PLATFORM': 'wayland',
        })
        screen_helper = os.path.join(os.path.dirname(os.path.abspath(__file__)), 'kwin_screen.py')
        session.write('.local/share/applications/vornix-tier-input.desktop',
                      GRANT.format(name='Tier input', program=os.environ['VORNIX_WAYLAND_INPUT'],
                                   key='X-KDE-Wayland-Interfaces', interface='org_kde_kwin_fake_input'))
        # The interpreter's own desktop entry would be found first: the helper runs in a copy of it.
        interpreter = session.path('vornix-kwin-screen')
        shutil.copy(os.path.realpath(sys.executable), interpreter)
        os.chmod(interpreter, 0o755)
        session.write('.local/share/applications/vornix-tier-screen.desktop',
                      GRANT.format(name='Tier screen', program=interpreter,
                                   key='X-KDE-DBUS-Restricted-Interfaces', interface='org.kde.KWin.ScreenShot2'))
        session.start_bus()
        # The installed KWin carries a file capability, which a container refuses to exec: a copy has none.
        kwin = session.path('kwin_wayland')
        shutil.copy('/usr/bin/kwin_wayland', kwin)
        os.chmod(kwin, 0o755)
        kwin_env = dict(session.env)
        del kwin_env['QT_QPA_PLATFORM']
        # OpenGL compositing (Mesa's software renderer here): the screenshot effect needs it.
        # A script's print() into KWin's log; and which desktop entry granted a helper what.
        kwin_env['QT_LOGGING_RULES'] = 'kwin_scripting.debug=true;KWIN_UTILS.debug=true'
        session.spawn([kwin, '--virtual', '--width', str(WIDTH), '--height', str(HEIGHT), '--no-lockscreen',
                       '--no-global-shortcuts', '--no-kactivities', '--socket', 'wayland-vx'], 'kwin', env=kwin_env)
        wait_until(lambda: os.path.exists(os.path.join(session.runtime, 'wayland-vx')), 60, "KWin's Wayland socket")
        session.env['WAYLAND_DISPLAY'] = 'wayland-vx'
        session.share_with_bus('WAYLAND_DISPLAY', 'QT_QPA_PLATFORM', 'XDG_CURRENT_DESKTOP', 'XDG_SESSION_TYPE')
        wait_until(lambda: self._has_owner('org.kde.KWin'), 60, 'KWin on the bus')
        session.spawn(['kded5'], 'kded5')
        session.spawn(['plasmashell', '--no-respawn'], 'plasmashell')
        wait_until(lambda: self._has_owner('org.kde.StatusNotifierWatcher'), 90, "the tray's watcher (kded5)")
        self.screen = session.helper([interpreter, screen_helper, str(WIDTH), str(HEIGHT)], 'screen')
        self.input = WaylandInput(session, WIDTH, HEIGHT)
        # The panel has drawn when its band differs from the desktop above it, and stays so.
        wait_until(self._panel_drawn, 90, "Plasma's panel", interval=1)
        time.sleep(3)  # the panel's applets fill in after the panel itself

    def _panel_drawn(self):
        image = self.grab()
        return abs(int(image[HEIGHT - 20, WIDTH // 2].sum()) - int(image[HEIGHT // 2, WIDTH // 2].sum())) > 30

    def _has_owner(self, name):
        out = self.session.run(['gdbus', 'call', '--session', '--dest', 'org.freedesktop.DBus', '--object-path',
                                '/org/freedesktop/DBus', '--method', 'org.freedesktop.DBus.NameHasOwner', name],
                               check=False)
        return b'true' in out

    def host_env(self):
        return {}

    def grab(self):
        self.screen.stdin.write(b'grab\n')
        self.screen.stdin.flush()
        header = self.screen.stdout.read(4)
        if len(header) != 4:
            raise RuntimeError("KWin's screenshot helper ended (see kde-screen.log)")
        (length,) = struct.unpack('>I', header)
        return read_ppm(self.screen.stdout.read(length))

    def click(self, x, y, button):
        self.input.click(x, y, button)

    def key(self, name):
        if name != 'Escape':
            raise ValueError(f'no key code for {name}')
        self.input.key(ESCAPE)

    def panel_area(self):
        return Rect(0, HEIGHT - PANEL_HEIGHT, WIDTH, PANEL_HEIGHT)

    def tray_area(self):
        return Rect(WIDTH * 2 // 3, HEIGHT - PANEL_HEIGHT, WIDTH // 3, PANEL_HEIGHT)

    def windows(self):
        """The windows KWin manages, as its scripting interface describes them."""
        self.scripts += 1
        mark = f'{os.getpid()}-{self.scripts}'
        script = self.session.path(f'list-windows-{self.scripts}.js')
        with open(script, 'w') as out:
            out.write(f'var MARK = "{mark}";' + LIST_WINDOWS)
        os.chmod(script, 0o644)
        plugin = f'vornix-list-{mark}'
        self.session.run(['gdbus', 'call', '--session', '--dest', 'org.kde.KWin', '--object-path', '/Scripting',
                          '--method', 'org.kde.kwin.Scripting.loadScript', script, plugin])
        # Runs the scripts loaded and not yet running: this one.
        self.session.run(['gdbus', 'call', '--session', '--dest', 'org.kde.KWin', '--object-path', '/Scripting',
                          '--method', 'org.kde.kwin.Scripting.start'])
        prefix = f'vornix-windows {mark} '

        def listed():
            with open(self.session.path('kwin.log'), errors='replace') as log:
                for line in log:
                    if prefix in line:
                        return json.loads(line[line.index(prefix) + len(prefix):])
            return None
        try:
            return wait_until(listed, 10, "KWin script's window list")
        finally:
            self.session.run(['gdbus', 'call', '--session', '--dest', 'org.kde.KWin', '--object-path', '/Scripting',
                              '--method', 'org.kde.kwin.Scripting.unloadScript', plugin], check=False)

    def popover_window(self):
        """The host's window as KWin lists it, with what makes it an ordinary window."""
        for window in self.windows():
            if window['pid'] == self.session.host.pid and not window['minimized']:
                rect = Rect(window['x'], window['y'], window['width'], window['height'])
                flaws = ([] if window['noBorder'] else ['decorated']) + \
                    ([] if window['skipTaskbar'] else ['in the taskbar'])
                return rect, flaws
        return None

    def stop(self):
        self.session.stop()
