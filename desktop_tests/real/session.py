"""What every real desktop of the tier shares: a temporary root (home, runtime folder), a private
D-Bus session bus, processes that end with the test, a record of the bus's calls with their
times, and the host started as a person starts it (no engine, no test switch)."""

import ctypes
import os
import pwd
import shutil
import signal
import subprocess
import tempfile
import threading
import time

# Shared with the desktop tests (run_real_desktops.py puts their folder on the path): the setup
# error (here: the desktop did not come up; the verdict says what was missing) and the reader of
# the line a starting server writes to a pipe.
from harness import SetupError, read_line_from

_PR_SET_PDEATHSIG = 1

# sway refuses to run as root; the Wayland desktops run as this user, made on first use.
DESKTOP_USER = 'vornix-desktop'


def wait_until(condition, timeout, what, interval=0.05):
    deadline = time.monotonic() + timeout
    while True:
        value = condition()
        if value:
            return value
        if time.monotonic() > deadline:
            raise SetupError(f'timed out after {timeout:.0f} s waiting for {what}')
        time.sleep(interval)


def _die_with_test():
    # Set after the change of user, which clears it: no desktop outlives the tier's process.
    ctypes.CDLL(None, use_errno=True).prctl(_PR_SET_PDEATHSIG, signal.SIGTERM)


def desktop_user():
    """The unprivileged user the Wayland compositors run as (and the host with them)."""
    try:
        return pwd.getpwnam(DESKTOP_USER)
    except KeyError:
        subprocess.run(['useradd', '--system', '--no-create-home', '--home-dir', '/nonexistent',
                        '--shell', '/usr/sbin/nologin', DESKTOP_USER], check=True)
        return pwd.getpwnam(DESKTOP_USER)


class Session:
    """A private session; `user` is None for root (X11) or the desktop user's passwd entry."""

    def __init__(self, name, artifacts, user=None):
        self.name = name
        self.artifacts = artifacts
        os.makedirs(artifacts, exist_ok=True)
        self.user = user
        self.root = tempfile.mkdtemp(prefix='vxr-')  # short: socket paths must fit in 108 bytes
        self.home = os.path.join(self.root, 'home')
        self.runtime = os.path.join(self.root, 'runtime')
        os.makedirs(self.home)
        os.makedirs(self.runtime, mode=0o700)
        if user:
            os.chmod(self.root, 0o755)
            for folder in (self.home, self.runtime):
                os.chown(folder, user.pw_uid, user.pw_gid)
        self.processes = []
        self.calls = []  # (wall time, member, path, sender, destination) of the method calls seen on the bus
        self.host = None
        self.env = {
            'PATH': '/usr/local/bin:/usr/bin:/bin',
            'HOME': self.home,
            'USER': user.pw_name if user else 'root',
            'XDG_RUNTIME_DIR': self.runtime,
            'XDG_CONFIG_HOME': os.path.join(self.home, '.config'),
            'XDG_DATA_HOME': os.path.join(self.home, '.local', 'share'),
            'XDG_CACHE_HOME': os.path.join(self.home, '.cache'),
            'LANG': 'C.UTF-8',
        }
        # The host's prefix among the data folders, as an install into /usr or /usr/local would be.
        prefix = os.environ.get('VORNIX_PREFIX')
        self.env['XDG_DATA_DIRS'] = ((os.path.join(prefix, 'share') + ':') if prefix else '') + \
            '/usr/local/share:/usr/share'

    def path(self, *parts):
        return os.path.join(self.root, *parts)

    def write(self, relative, text, mode=0o644):
        """A file in the session's home, owned by the session's user."""
        target = os.path.join(self.home, relative)
        os.makedirs(os.path.dirname(target), exist_ok=True)
        with open(target, 'w') as out:
            out.write(text)
        os.chmod(target, mode)
        if self.user:
            folder = target
            while folder != self.home:
                os.chown(folder, self.user.pw_uid, self.user.pw_gid)
                folder = os.path.dirname(folder)
        return target

    def spawn(self, argv, log, env=None, pass_fds=(), as_root=False):
        out = open(self.path(f'{log}.log'), 'ab')
        user = None if as_root or not self.user else self.user
        process = subprocess.Popen(argv, stdin=subprocess.DEVNULL, stdout=out, stderr=subprocess.STDOUT,
                                   env=env or self.env, pass_fds=pass_fds, start_new_session=True,
                                   user=user.pw_uid if user else None, group=user.pw_gid if user else None,
                                   extra_groups=[] if user else None, preexec_fn=_die_with_test)
        self.processes.append(process)
        return process

    def helper(self, argv, log):
        """A tier's helper as the session's user, spoken to through its standard input and output."""
        user = self.user
        process = subprocess.Popen(argv, stdin=subprocess.PIPE, stdout=subprocess.PIPE,
                                   stderr=open(self.path(f'{log}.log'), 'ab'), env=self.env,
                                   user=user.pw_uid if user else None, group=user.pw_gid if user else None,
                                   extra_groups=[] if user else None, preexec_fn=_die_with_test)
        self.processes.append(process)
        return process

    def run(self, argv, timeout=20, check=True, env=None):
        """A short command as the session's user; returns its standard output as bytes."""
        user = self.user
        result = subprocess.run(argv, stdin=subprocess.DEVNULL, capture_output=True, env=env or self.env,
                                timeout=timeout, user=user.pw_uid if user else None,
                                group=user.pw_gid if user else None, extra_groups=[] if user else None)
        if check and result.returncode != 0:
            raise SetupError(f'{argv[0]} failed: {result.stderr.decode(errors="replace").strip()}')
        return result.stdout

    def start_bus(self):
        read_end, write_end = os.pipe()
        self.spawn(['dbus-daemon', '--session', '--nofork', f'--print-address={write_end}'], 'dbus',
                   pass_fds=[write_end])
        os.close(write_end)
        self.env['DBUS_SESSION_BUS_ADDRESS'] = read_line_from(read_end, 20, 'the D-Bus session bus')
        os.close(read_end)
        self._watch_bus()
        # The calls on the items' menus in full, arguments too, for the artifacts.
        self.spawn(['dbus-monitor', '--address', self.env['DBUS_SESSION_BUS_ADDRESS'],
                    "type='method_call',interface='com.canonical.dbusmenu'"], 'menu-calls')

    def _watch_bus(self):
        """Records the method calls on the bus with their times, so that the tier can say when
        the panel called the host and which of its menus it opened."""
        monitor = subprocess.Popen(['dbus-monitor', '--address', self.env['DBUS_SESSION_BUS_ADDRESS'], '--profile',
                                    "type='method_call'"], stdin=subprocess.DEVNULL, stdout=subprocess.PIPE,
                                   stderr=subprocess.DEVNULL, start_new_session=True, preexec_fn=_die_with_test,
                                   user=self.user.pw_uid if self.user else None,
                                   group=self.user.pw_gid if self.user else None,
                                   extra_groups=[] if self.user else None)
        self.processes.append(monitor)

        def read():
            for line in monitor.stdout:
                # type  timestamp  serial  sender  destination  path  interface  member
                fields = line.decode(errors='replace').split('\t')
                if len(fields) >= 8 and fields[0] == 'mc':
                    self.calls.append((float(fields[1]), fields[7].strip(), fields[5], fields[3], fields[4]))
        threading.Thread(target=read, daemon=True).start()

    def share_with_bus(self, *names):
        """Gives the services the bus starts these variables of the session, known only after the bus."""
        pairs = ', '.join(f"'{name}': '{self.env[name]}'" for name in names)
        self.run(['gdbus', 'call', '--session', '--dest', 'org.freedesktop.DBus', '--object-path',
                  '/org/freedesktop/DBus', '--method', 'org.freedesktop.DBus.UpdateActivationEnvironment',
                  '{' + pairs + '}'])

    def calls_since(self, moment, members):
        return [call for call in list(self.calls) if call[0] >= moment and call[1] in members]

    def start_host(self, host, env_extra=None):
        env = dict(self.env)
        env.update(env_extra or {})
        self.host = self.spawn([host], 'host', env=env)
        return self.host

    def host_output(self):
        with open(self.path('host.log'), 'rb') as out:
            return out.read().decode('utf-8', 'replace')

    def stop(self):
        for process in reversed(self.processes):
            if process.poll() is None:
                try:
                    os.killpg(process.pid, signal.SIGTERM)
                except ProcessLookupError:
                    continue
                try:
                    process.wait(5)
                except subprocess.TimeoutExpired:
                    os.killpg(process.pid, signal.SIGKILL)
                    process.wait()
        for log in os.listdir(self.root):
            if log.endswith('.log'):
                shutil.copy(self.path(log), os.path.join(self.artifacts, f'{self.name}-{log}'))
        shutil.rmtree(self.root, ignore_errors=True)
