"""A headless sway (a wlroots compositor, with layer-shell) beside a test's desktop, for the host
on Wayland: one virtual output, screenshots through wlroots' screen copy (grim), and a person's
pointer and keyboard through wayvnc, a VNC server that types and points with wlroots' virtual
pointer and keyboard, which the test drives over its socket with the few messages of the remote
framebuffer protocol it needs. sway refuses to run as root, so it runs as the unprivileged user
`nobody` in a runtime folder of its own; clients connect to its socket by path."""

import glob
import json
import os
import shutil
import socket
import struct
import subprocess
import tempfile
import time

from harness import SetupError, wait_until

WIDTH = 1280
HEIGHT = 800

# No bar, no background program: the output is sway's plain grey wherever no surface is.
CONFIG = f"""output HEADLESS-1 resolution {WIDTH}x{HEIGHT} position 0 0 scale 1
default_border none
"""

TOOLS = ('sway', 'swaymsg', 'grim', 'wayvnc', 'setpriv')

KEYSYMS = {'Escape': 0xff1b}

# The most pixels of one row or column that the pointer's image covers, with room to spare.
POINTER_SIZE = 48


class _RemoteInput:
    """A client of the remote framebuffer protocol (version 3.8, no security) that only sends
    pointer and key events."""

    def __init__(self, path):
        self.connection = socket.socket(socket.AF_UNIX, socket.SOCK_STREAM)
        self.connection.settimeout(10)
        self.connection.connect(path)
        version = self._read(12)
        if not version.startswith(b'RFB '):
            raise AssertionError(f'not a VNC server: {version!r}')
        self.connection.sendall(b'RFB 003.008\n')
        (count,) = self._read(1)
        kinds = self._read(count)
        if 1 not in kinds:
            raise AssertionError(f'the VNC server wants security: {list(kinds)}')
        self.connection.sendall(b'\x01')
        if self._read(4) != b'\0\0\0\0':
            raise AssertionError('the VNC server refused the connection')
        self.connection.sendall(b'\x01')  # shared
        _, _, _, name_length = struct.unpack('>HH16sI', self._read(24))
        self._read(name_length)

    def _read(self, size):
        data = b''
        while len(data) < size:
            chunk = self.connection.recv(size - len(data))
            if not chunk:
                raise AssertionError('the VNC server closed the connection')
            data += chunk
        return data

    def pointer(self, x, y, buttons):
        self.connection.sendall(struct.pack('>BBHH', 5, buttons, x, y))

    def key(self, keysym, down):
        self.connection.sendall(struct.pack('>BBxxI', 4, 1 if down else 0, keysym))

    def close(self):
        self.connection.close()


class Sway:
    def __init__(self, desktop):
        missing = [tool for tool in TOOLS if not shutil.which(tool)]
        if missing:
            raise SetupError('the Wayland desktop is not installed (missing ' + ', '.join(missing) + ')')
        if os.geteuid() != 0:
            raise SetupError('sway runs here as the user nobody, which needs root to switch to')
        self.desktop = desktop
        self.runtime = tempfile.mkdtemp(prefix='vx-sway-')
        os.chown(self.runtime, 65534, 65534)
        os.chmod(self.runtime, 0o700)
        config = os.path.join(self.runtime, 'config')
        with open(config, 'w') as out:
            out.write(CONFIG)
        env = {
            'PATH': '/usr/local/bin:/usr/bin:/bin',
            'HOME': self.runtime,
            'XDG_RUNTIME_DIR': self.runtime,
            'WLR_BACKENDS': 'headless',
            'WLR_HEADLESS_OUTPUTS': '1',
            'WLR_LIBINPUT_NO_DEVICES': '1',
            'WLR_RENDERER': 'pixman',
        }
        self.process = desktop._spawn(['setpriv', '--reuid=65534', '--regid=65534', '--clear-groups', 'sway',
                                       '--config', config], log='sway', env=env)
        self.socket = wait_until(lambda: self._file('wayland-[0-9]'), 20, 'the sway socket')
        self.ipc = wait_until(lambda: self._file('sway-ipc.*.sock'), 20, 'the sway IPC socket')
        self.env = {'PATH': '/usr/local/bin:/usr/bin:/bin', 'WAYLAND_DISPLAY': self.socket, 'SWAYSOCK': self.ipc,
                    'XDG_RUNTIME_DIR': desktop.runtime}
        wait_until(lambda: self.outputs(), 20, 'the headless output')
        # The person's hands, there before any client so that every client sees a pointer and a
        # keyboard on the seat from the start.
        vnc = os.path.join(desktop.root, 'vnc.sock')
        desktop._spawn(['wayvnc', '--unix-socket', '--output=HEADLESS-1', vnc], log='wayvnc',
                       env=dict(self.env, HOME=desktop.home))
        wait_until(lambda: os.path.exists(vnc), 20, 'the VNC socket')
        self.input = _RemoteInput(vnc)
        wait_until(lambda: self._seat_has('pointer') and self._seat_has('keyboard'), 20,
                   'the virtual pointer and keyboard')
        # Before any client: the empty output's colour.
        self.background = self.screenshot('empty-output')(0, 0)

    def _file(self, pattern):
        found = [path for path in glob.glob(os.path.join(self.runtime, pattern)) if not path.endswith('.lock')]
        return found[0] if found else None

    def host_environment(self):
        """The desktop's environment for a client of this compositor alone: no X display."""
        env = dict(self.desktop.env)
        env.pop('DISPLAY', None)
        env['WAYLAND_DISPLAY'] = self.socket
        env['GDK_BACKEND'] = 'wayland'
        return env

    def message(self, *arguments):
        result = subprocess.run(['swaymsg', '--raw'] + list(arguments), env=self.env, capture_output=True,
                                timeout=20, check=True)
        return json.loads(result.stdout or b'null')

    def outputs(self):
        return [output for output in self.message('-t', 'get_outputs') if output.get('active')]

    def windows(self):
        """The names of every window in sway's tree: its tiled and floating toplevels."""
        names = []

        def walk(node):
            if node.get('type') in ('con', 'floating_con') and (node.get('pid') or node.get('app_id')):
                names.append(node.get('name') or node.get('app_id'))
            for child in node.get('nodes', []) + node.get('floating_nodes', []):
                walk(child)
        walk(self.message('-t', 'get_tree'))
        return names

    def _seat_has(self, kind):
        return any(device.get('type') == kind for device in self.message('-t', 'get_inputs'))

    def click(self, x, y, held=0.0):
        """A left click at (x, y), the button held down for `held` seconds."""
        self.input.pointer(int(x), int(y), 0)
        self.input.pointer(int(x), int(y), 1)
        time.sleep(held)
        self.input.pointer(int(x), int(y), 0)

    def press_key(self, key):
        self.input.key(KEYSYMS[key], True)
        self.input.key(KEYSYMS[key], False)

    def stop(self):
        self.input.close()
        shutil.rmtree(self.runtime, ignore_errors=True)

    def screenshot(self, label):
        """The output as it is now, saved as an artifact; returns a function of (x, y) giving the
        (red, green, blue) there."""
        path = os.path.join(self.desktop.artifacts, f'{self.desktop.name}-{label}.png')
        subprocess.run(['grim', path], env=self.env, check=True, timeout=20)
        import gi
        gi.require_version('GdkPixbuf', '2.0')
        from gi.repository import GdkPixbuf
        image = GdkPixbuf.Pixbuf.new_from_file(path)
        pixels = image.get_pixels()
        stride = image.get_rowstride()
        channels = image.get_n_channels()

        def at(x, y):
            offset = y * stride + x * channels
            return tuple(pixels[offset:offset + 3])
        at.width = image.get_width()
        at.height = image.get_height()
        return at

    def drawn_area(self, label):
        """The smallest rectangle (x, y, width, height) holding what is drawn on the empty output,
        or None when nothing is. The pointer, which the compositor draws into the picture, is left
        out: a row or column counts only when more of its pixels differ than a pointer is big."""
        at = self.screenshot(label)
        empty = self.background

        def drawn(pixels):
            return sum(1 for pixel in pixels if pixel != empty) * 2 > POINTER_SIZE
        columns = [x for x in range(at.width) if drawn(at(x, y) for y in range(0, at.height, 2))]
        rows = [y for y in range(at.height) if drawn(at(x, y) for x in range(0, at.width, 2))]
        if not columns or not rows:
            return None
        return columns[0], rows[0], columns[-1] - columns[0] + 1, rows[-1] - rows[0] + 1
