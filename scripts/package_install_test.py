#!/usr/bin/python3
"""Installs the Debian package into a throwaway copy of this system and uses it as a person
would: `apt-get install ./<deb>`, the installed host on a private desktop until its tray item
registers, `vornix-tool --version`, then `apt-get purge`, after which nothing the package
installed may be left.

The copy is system_copy's: the machine itself is not changed.
    package_install_test.py DEB [ARTIFACTS]   (as root; it enters its own mount namespace; the
                                              desktop's logs land in ARTIFACTS)"""

import os
import shutil
import signal
import subprocess
import sys

sys.path.insert(0, os.path.join(os.path.dirname(os.path.abspath(__file__)), '..', 'desktop_tests'))

from harness import Desktop, SetupError  # noqa: E402
from system_copy import NeedsRoot, overlay_system, run_in_private_namespace, scratch_in_namespace  # noqa: E402


def step(text):
    print(f'package install: {text}', flush=True)


def fail(text):
    raise AssertionError(text)


def run(argv, **kwargs):
    return subprocess.run(argv, check=True, text=True, capture_output=True, **kwargs).stdout


def apt_get(*arguments):
    environment = dict(os.environ, DEBIAN_FRONTEND='noninteractive')
    result = subprocess.run(['apt-get', '-y', '-q', '--no-install-recommends', *arguments], text=True,
                            capture_output=True, env=environment)
    if result.returncode != 0:
        fail(f'apt-get {" ".join(arguments)} failed:\n{result.stdout}{result.stderr}')
    return result.stdout


def installed_paths(package):
    """What dpkg recorded for the package, without the root it lists first as "/."."""
    return [line for line in run(['dpkg-query', '-L', package]).splitlines() if line.startswith('/') and line != '/.']


def owned_by_another_package(path, package):
    result = subprocess.run(['dpkg-query', '-S', path], text=True, capture_output=True)
    owners = {owner.strip() for line in result.stdout.splitlines()
              for owner in line.split(': ', 1)[0].split(',')}
    return result.returncode == 0 and bool(owners - {package})


def icon_cache_names(icon):
    try:
        with open('/usr/share/icons/hicolor/icon-theme.cache', 'rb') as cache:
            return icon.encode() + b'\0' in cache.read()
    except FileNotFoundError:
        return False


def check_installed_files(paths, version):
    multiarch = run(['dpkg-architecture', '-qDEB_HOST_MULTIARCH']).strip()
    expected = [
        '/usr/bin/vornix-host',
        '/usr/bin/vornix-tool',
        f'/usr/lib/{multiarch}/vornix-host/vornix-http-fetcher.so',
        '/usr/share/vornix-host/icons/TrayIcon.svg',
        '/usr/share/vornix-host/icons/com.vornix.os-symbolic.svg',
        '/usr/share/icons/hicolor/scalable/status/com.vornix.os-symbolic.svg',
        '/usr/share/icons/hicolor/scalable/apps/com.vornix.os.svg',
        '/usr/share/applications/com.vornix.os.desktop',
        '/usr/share/metainfo/com.vornix.os.metainfo.xml',
        '/usr/share/man/man1/vornix-host.1.gz',
        '/usr/share/man/man1/vornix-tool.1.gz',
        '/usr/share/doc/vornix-os/copyright',
    ]
    for path in expected:
        if path not in paths or not os.path.isfile(path):
            fail(f'the package did not install {path}')
    host_libraries = run(['ldd', '/usr/bin/vornix-host'])
    if 'libcurl' in host_libraries:
        fail('the installed host loads libcurl at start-up')
    # Debian's trigger of desktop-file-utils, not a script of ours, made the host the scheme's handler.
    with open('/usr/share/applications/mimeinfo.cache') as cache:
        if 'x-scheme-handler/vornix-os=com.vornix.os.desktop;' not in cache.read().splitlines():
            fail('the desktop database does not list com.vornix.os.desktop for x-scheme-handler/vornix-os')
    # ... and that of hicolor-icon-theme put the icon in the theme's cache.
    if not icon_cache_names('com.vornix.os'):
        fail('the hicolor icon cache does not list com.vornix.os')
    page = run(['man', '-w', 'vornix-host']).strip()
    if page != '/usr/share/man/man1/vornix-host.1.gz':
        fail(f'man finds vornix-host at {page!r}')
    tool_version = run(['/usr/bin/vornix-tool', '--version']).strip()
    if tool_version != f'vornix-tool {version}':
        fail(f'vornix-tool --version printed {tool_version!r}, the package is {version}')
    step(f'installed; {tool_version}; the desktop database names the URL handler')


def check_host_runs(artifacts):
    """The installed host on a private desktop: its tray item registers, with the tray icon found
    where the package put it, and it ends on SIGTERM with status 0."""
    desktop = Desktop('package-install', artifacts)
    tray = None
    try:
        desktop.start()
        from tray import TrayWatcher
        tray = TrayWatcher()
        desktop.start_host_plain('/usr/bin/vornix-host')
        tray.wait_for_item(timeout=30)
        theme_path = tray.item_property('IconThemePath')
        if theme_path != '/usr/share/vornix-host/icons':
            fail(f'the installed host looks for its tray icon in {theme_path!r}')
        step('the installed host registered its tray item, with the icon from /usr/share/vornix-host/icons')
        status = desktop.stop_host()
        if status != 0:
            fail(f'the installed host ended with status {status} on SIGTERM')
    finally:
        if tray:
            tray.stop()
        desktop.stop()


def check_purged(paths, package):
    status = subprocess.run(['dpkg-query', '-W', '-f=${db:Status-Status}', package], text=True,
                            capture_output=True).stdout
    if status not in ('', 'not-installed'):
        fail(f'after purge dpkg still knows {package} as {status!r}')
    left = [path for path in paths
            if os.path.lexists(path) and not (os.path.isdir(path) and owned_by_another_package(path, package))]
    if left:
        fail('purge left behind: ' + ', '.join(left))
    with open('/usr/share/applications/mimeinfo.cache') as cache:
        if 'com.vornix.os.desktop' in cache.read():
            fail('the desktop database still names com.vornix.os.desktop after purge')
    if icon_cache_names('com.vornix.os'):
        fail('the hicolor icon cache still lists com.vornix.os after purge')
    step(f'purged; none of the {len(paths)} paths the package installed is left')


def main():
    deb = os.path.abspath(sys.argv[1])
    artifacts = os.path.abspath(sys.argv[2]) if len(sys.argv) > 2 else os.path.join(os.path.dirname(deb), 'test')
    scratch = scratch_in_namespace()
    if not scratch:
        return run_in_private_namespace(__file__, [deb, artifacts])
    package = run(['dpkg-deb', '-f', deb, 'Package']).strip()
    version = run(['dpkg-deb', '-f', deb, 'Version']).strip()
    if subprocess.run(['dpkg-query', '-W', package], capture_output=True).returncode == 0:
        fail(f'{package} is installed on this machine already; the test needs a system without it')

    local = os.path.join(scratch, os.path.basename(deb))
    shutil.copyfile(deb, local)
    os.chmod(local, 0o644)
    overlay_system(os.path.join(scratch, 'layers'))
    step('a throwaway copy of /usr, /etc and /var is in place')

    apt_get('install', local)
    paths = installed_paths(package)
    check_installed_files(paths, version)
    check_host_runs(artifacts)
    apt_get('purge', package)
    check_purged(paths, package)
    print('package install: ok', flush=True)
    return 0


if __name__ == '__main__':
    signal.signal(signal.SIGTERM, signal.default_int_handler)
    try:
        sys.exit(main())
    except (SetupError, NeedsRoot) as error:
        print(f'package install: cannot run here: {error}', flush=True)
        sys.exit(77)
    except AssertionError as error:
        print(f'package install: FAILED: {error}', flush=True)
        sys.exit(1)
