"""A private desktop for one test: a virtual X display (Xvfb), a private D-Bus session bus (the
accessibility bus is the one service it can start, on demand), a temporary home, and the host started in a
private mount namespace where /bin/launchctl is a stand-in that records its arguments (on
Linux the host must never run it). A test can also play a later login into the same home: a
second desktop with its own display and bus, on which the user's autostart entries are run."""

import ctypes
import os
import select
import shutil
import signal
import subprocess
import tempfile
import time


_PR_SET_PDEATHSIG = 1


def _die_with_test():
    """Runs in each child before exec: the child gets SIGTERM when the test process ends,
    however it ends (a CTest time-out included), so that no display or bus outlives a test."""
    ctypes.CDLL(None, use_errno=True).prctl(_PR_SET_PDEATHSIG, signal.SIGTERM)


class SetupError(Exception):
    """The machine cannot give the test what it needs (say, no mount namespaces)."""


def wait_until(condition, timeout=20.0, what='a condition', interval=0.05):
    """Polls `condition` until it returns something true, which it returns; fails after `timeout`."""
    deadline = time.monotonic() + timeout
    while True:
        value = condition()
        if value:
            return value
        if time.monotonic() > deadline:
            raise AssertionError(f'timed out after {timeout:.0f} s waiting for {what}')
        time.sleep(interval)


SANITIZER_REPORTS = ('ERROR: LeakSanitizer', 'ERROR: AddressSanitizer', ': runtime error: ')


def _sanitizer_reported(path):
    with open(path, encoding='utf-8', errors='replace') as said:
        text = said.read()
    return any(marker in text for marker in SANITIZER_REPORTS)


def read_line_from(fd, timeout, what):
    deadline = time.monotonic() + timeout
    data = b''
    while not data.endswith(b'\n'):
        left = deadline - time.monotonic()
        if left <= 0 or not select.select([fd], [], [], left)[0]:
            raise SetupError(f'{what} did not start in {timeout:.0f} s')
        chunk = os.read(fd, 256)
        if not chunk:
            raise SetupError(f'{what} exited while starting')
        data += chunk
    return data.decode().strip()


STANDIN_LAUNCHCTL = """#!/bin/sh
# Stand-in for the job-manager tool in the desktop tests: records its arguments, one call a line.
printf '%s\\n' "$*" >> '{log}'
"""

# Runs the rest of the command line in a private mount namespace in which /usr/bin (and so
# /bin, its alias on merged-/usr systems) shows one more file, the stand-in launchctl, over
# the real folder. Nothing outside the namespace changes.
IN_NAMESPACE = (
    'mount -t tmpfs vornix-test-tools "$1" && mkdir "$1/upper" "$1/work" '
    '&& cp "$2" "$1/upper/launchctl" && chmod 755 "$1/upper/launchctl" '
    '&& mount -t overlay vornix-test-tools -o "lowerdir=/usr/bin,upperdir=$1/upper,workdir=$1/work" /usr/bin '
    '&& shift 2 && exec "$@"'
)


BUS_CONFIG = """<!DOCTYPE busconfig PUBLIC "-//freedesktop//DTD D-Bus Bus Configuration 1.0//EN"
 "http://www.freedesktop.org/standards/dbus/1.0/busconfig.dtd">
<busconfig>
  <type>session</type>
  <listen>unix:tmpdir=/tmp</listen>
  <auth>EXTERNAL</auth>
  <servicedir>{services}</servicedir>
  <policy context="default">
    <allow send_destination="*" eavesdrop="true"/>
    <allow eavesdrop="true"/>
    <allow own="*"/>
  </policy>
</busconfig>
"""


class Desktop:
    def __init__(self, name, artifacts, home=None):
        """A desktop with a new temporary home, or a later login into `home`, another desktop's."""
        self.name = name
        self.artifacts = artifacts
        os.makedirs(artifacts, exist_ok=True)
        self.root = tempfile.mkdtemp(prefix='vx-')  # short: socket paths under it must fit in 108 bytes
        self.home = home or os.path.join(self.root, 'home')
        self.runtime = os.path.join(self.root, 'runtime')
        os.makedirs(self.home, exist_ok=True)
        os.makedirs(self.runtime, mode=0o700)
        self.launchctl_log = os.path.join(self.root, 'launchctl.log')
        self.engine_socket = os.path.join(self.runtime, 'engine.sock')
        self.processes = []
        self.host = None
        self.host_output = os.path.join(self.root, 'host.out')
        self.env = {}

    # -- the session ---------------------------------------------------------------------------

    def start(self, current=True):
        """Starts the display and the bus. The `current` desktop is also the one the test itself
        talks to (accessibility, screenshots); a later login's is not."""
        base = {
            'PATH': '/usr/local/bin:/usr/bin:/bin',
            'HOME': self.home,
            'XDG_RUNTIME_DIR': self.runtime,
            'XDG_CONFIG_HOME': os.path.join(self.home, '.config'),
            'XDG_DATA_HOME': os.path.join(self.home, '.local', 'share'),
            'XDG_CACHE_HOME': os.path.join(self.home, '.cache'),
            'LANG': 'C.UTF-8',
            'GSETTINGS_BACKEND': 'memory',
            'GTK_THEME': 'Adwaita',
        }
        # The sanitizers' settings, with the desktop stack's leak suppressions that the build gives
        # every test that starts GTK, so a host built with them reports only its own leaks.
        for keep in ('ASAN_OPTIONS', 'UBSAN_OPTIONS', 'LSAN_OPTIONS'):
            if keep in os.environ:
                base[keep] = os.environ[keep]

        self.env = dict(base)

        read_end, write_end = os.pipe()
        self._spawn(['Xvfb', '-displayfd', str(write_end), '-screen', '0', '1280x800x24', '-nolisten', 'tcp',
                     '-noreset'], pass_fds=[write_end], log='xvfb')
        os.close(write_end)
        display = read_line_from(read_end, 20, 'Xvfb')
        os.close(read_end)
        self.env['DISPLAY'] = ':' + display

        read_end, write_end = os.pipe()
        self._spawn(['dbus-daemon', f'--config-file={self._write_bus_config()}', '--nofork',
                     f'--print-address={write_end}'], pass_fds=[write_end], log='dbus')
        os.close(write_end)
        self.env['DBUS_SESSION_BUS_ADDRESS'] = read_line_from(read_end, 20, 'the D-Bus session bus')
        os.close(read_end)
        if current:
            # The test itself talks to this desktop: accessibility, D-Bus, screenshots, input.
            os.environ.update(self.env)
        return self

    def _write_bus_config(self):
        """A session bus that can start one service, the accessibility bus: any other service the
        test does not play itself (a notification server, a tray) is missing, even on a machine
        where a desktop installed one."""
        services = os.path.join(self.root, 'bus-services')
        os.makedirs(services, exist_ok=True)
        for folder in ('/usr/share/dbus-1/services', '/usr/local/share/dbus-1/services'):
            accessibility = os.path.join(folder, 'org.a11y.Bus.service')
            if os.path.exists(accessibility):
                shutil.copy(accessibility, services)
                break
        config = os.path.join(self.root, 'bus.conf')
        with open(config, 'w') as out:
            out.write(BUS_CONFIG.format(services=services))
        return config

    def _spawn(self, argv, log, pass_fds=(), env=None):
        out = open(os.path.join(self.root, f'{log}.log'), 'ab')
        process = subprocess.Popen(argv, stdin=subprocess.DEVNULL, stdout=out, stderr=subprocess.STDOUT,
                                   env=env or self.env, pass_fds=pass_fds, start_new_session=True,
                                   preexec_fn=_die_with_test)
        self.processes.append(process)
        return process

    def stop(self):
        if self.host and self.host.poll() is None:
            self.stop_host()
        for process in reversed(self.processes):
            if process.poll() is None:
                # The whole group: the bus's activated services (the accessibility bus) too.
                os.killpg(process.pid, signal.SIGTERM)
                try:
                    process.wait(5)
                except subprocess.TimeoutExpired:
                    process.kill()
                    process.wait()
        # Keep what the processes said next to the screenshots.
        reported = []
        for log in os.listdir(self.root):
            if log.endswith('.log') or log.endswith('.out'):
                kept = os.path.join(self.artifacts, f'{self.name}-{log}')
                shutil.copy(os.path.join(self.root, log), kept)
                if _sanitizer_reported(kept):
                    reported.append(kept)
        shutil.rmtree(self.root, ignore_errors=True)
        # A host built with the sanitizers that reports a leak or an error fails the test, whatever
        # the test itself checked.
        if reported:
            raise AssertionError('a sanitizer reported in ' + ', '.join(sorted(reported)))

    def install_url_handler(self, scheme, name):
        """Makes a stand-in application, in the temporary home, the default handler of `scheme`;
        it records each start, with its arguments, as a line of the returned log. Call it before
        the host starts."""
        log = os.path.join(self.root, f'{name}.log')
        program = os.path.join(self.root, f'{name}.sh')
        with open(program, 'w') as script:
            script.write(f"#!/bin/sh\nprintf 'started %s\\n' \"$*\" >> '{log}'\n")
        os.chmod(program, 0o755)
        applications = os.path.join(self.env['XDG_DATA_HOME'], 'applications')
        os.makedirs(applications, exist_ok=True)
        with open(os.path.join(applications, f'{name}.desktop'), 'w') as entry:
            entry.write(f'[Desktop Entry]\nType=Application\nName={name}\nExec={program} %u\n'
                        f'MimeType=x-scheme-handler/{scheme};\n')
        os.makedirs(self.env['XDG_CONFIG_HOME'], exist_ok=True)
        with open(os.path.join(self.env['XDG_CONFIG_HOME'], 'mimeapps.list'), 'a') as defaults:
            defaults.write(f'[Default Applications]\nx-scheme-handler/{scheme}={name}.desktop\n')
        return log

    # -- the host ------------------------------------------------------------------------------

    def write_standin(self):
        path = os.path.join(self.root, 'launchctl-standin')
        with open(path, 'w') as standin:
            standin.write(STANDIN_LAUNCHCTL.format(log=self.launchctl_log))
        os.chmod(path, 0o755)
        return path

    def start_host(self, host, extra=(), engine=True):
        """Starts the host under test in its private mount namespace."""
        if os.geteuid() != 0 or not shutil.which('unshare'):
            raise SetupError('the stand-in job-manager tool needs root and unshare(1) for a private mount namespace')
        mounts = os.path.join(self.root, 'mounts')
        os.makedirs(mounts, exist_ok=True)
        argv = [host] + (['--engine-socket', self.engine_socket] if engine else []) + list(extra)
        command = ['unshare', '--mount', '--propagation', 'private', '--', '/bin/sh', '-c', IN_NAMESPACE, 'sh',
                   mounts, self.write_standin()] + argv
        out = open(self.host_output, 'ab')
        self.host = subprocess.Popen(command, stdin=subprocess.DEVNULL, stdout=out, stderr=subprocess.STDOUT,
                                     env=self.env, preexec_fn=_die_with_test)
        return self.host

    def start_host_plain(self, host, extra=()):
        """Starts the host as a person would, with the real job-manager tool."""
        out = open(self.host_output, 'ab')
        self.host = subprocess.Popen([host] + list(extra), stdin=subprocess.DEVNULL, stdout=out,
                                     stderr=subprocess.STDOUT, env=self.env, preexec_fn=_die_with_test)
        return self.host

    def launch_again(self, host, arguments=(), timeout=20):
        """A second launch of the host, as a person starting it again or opening a URL; returns its exit status."""
        result = subprocess.run([host] + list(arguments), stdin=subprocess.DEVNULL, capture_output=True,
                                env=self.env, timeout=timeout)
        with open(os.path.join(self.root, 'second-launch.out'), 'ab') as out:
            out.write(result.stdout + result.stderr)
        return result.returncode

    def host_lines(self):
        with open(self.host_output, 'rb') as out:
            return out.read().decode('utf-8', 'replace').splitlines()

    def wait_for_host_line(self, line, timeout=20):
        wait_until(lambda: line in self.host_lines(), timeout, f'the host to print "{line}"')

    def host_mapped_files(self):
        """The files the running host has mapped: its libraries and modules. The host is the
        process started (unshare and the shell exec into it)."""
        with open(f'/proc/{self.host.pid}/maps') as maps:
            return {fields[5] for fields in (line.split(maxsplit=5) for line in maps) if len(fields) == 6}

    def stop_host(self, timeout=10):
        self.host.send_signal(signal.SIGTERM)
        try:
            return self.host.wait(timeout)
        except subprocess.TimeoutExpired:
            self.host.kill()
            self.host.wait()
            raise AssertionError('the host did not end on SIGTERM')

    def autostart_entry(self, label):
        return os.path.join(self.env['XDG_CONFIG_HOME'], 'autostart', f'{label}.desktop')

    def run_autostart(self):
        """What a session does at login: dex, an autostart runner, starts the user's autostart
        entries (only the user's: the machine's own in /etc/xdg/autostart are left alone). Returns
        what dex printed."""
        autostart = os.path.join(self.env['XDG_CONFIG_HOME'], 'autostart')
        log = os.path.join(self.root, 'dex.log')
        # Into a file, not a pipe: what dex starts keeps its output open for as long as it runs.
        with open(log, 'ab') as out:
            status = subprocess.run(['dex', '--autostart', '--verbose', '--search-paths', autostart],
                                    stdin=subprocess.DEVNULL, stdout=out, stderr=subprocess.STDOUT, env=self.env,
                                    timeout=60).returncode
        with open(log, encoding='utf-8', errors='replace') as out:
            output = out.read()
        assert status == 0, output
        return output

    def launchctl_calls(self):
        try:
            with open(self.launchctl_log) as log:
                return log.read().splitlines()
        except FileNotFoundError:
            return []

    # -- a person's hands and eyes --------------------------------------------------------------

    def click(self, x, y):
        subprocess.run(['xdotool', 'mousemove', '--sync', str(int(x)), str(int(y)), 'click', '1'], check=True,
                       env=self.env, timeout=20)

    def move_pointer(self, x, y):
        subprocess.run(['xdotool', 'mousemove', '--sync', str(int(x)), str(int(y))], check=True, env=self.env,
                       timeout=20)

    def press_key(self, key):
        subprocess.run(['xdotool', 'key', key], check=True, env=self.env, timeout=20)

    def screen_pixels(self):
        """The screen as it is now: a function of (x, y) giving the (red, green, blue) there."""
        import gi
        gi.require_version('Gdk', '3.0')
        from gi.repository import Gdk
        Gdk.init([])
        root = Gdk.get_default_root_window()
        image = Gdk.pixbuf_get_from_window(root, 0, 0, root.get_width(), root.get_height())
        pixels = image.get_pixels()
        stride = image.get_rowstride()
        channels = image.get_n_channels()

        def at(x, y):
            offset = y * stride + x * channels
            return tuple(pixels[offset:offset + 3])
        return at

    def screenshot(self, label):
        """Saves the whole screen as <artifacts>/<test>-<label>.png and returns the path."""
        return self.save_screenshot(os.path.join(self.artifacts, f'{self.name}-{label}.png'))

    def save_screenshot(self, path):
        import gi
        gi.require_version('Gdk', '3.0')
        from gi.repository import Gdk
        Gdk.init([])
        root = Gdk.get_default_root_window()
        image = Gdk.pixbuf_get_from_window(root, 0, 0, root.get_width(), root.get_height())
        image.savev(path, 'png', [], [])
        return path
