"""The desktop tests: each drives the real vornix-host from outside, as a person would, through
the tray, the pointer and the keyboard, and reads what it shows through the accessibility tree."""

import http.server
import os
import plistlib
import signal
import subprocess
import threading
import time

from gi.repository import GLib

import accessibility as a11y
import harness
from harness import wait_until
from test_engine import TestEngine
from tray import TrayWatcher

UI = 'com.vornix.os/ui_interactions'
CUSTOM = 'com.vornix.os/custom_url_scheme'

ROWS_SIGNED_OUT = [
    'Vornix OS', ('switch', 'Launch on Login', False), 'Launch on Login', '---',
    'Account', 'Sign In...', '---',
    'Version: 0.0.0', 'Port: ', '---',
    'Launch Vornix for Developers', 'Discover Integrations', 'About', 'Get Help', 'Submit Feedback or Issues',
    'Check for Updates...', 'Quit',
]


class Session:
    """The host started with a tray and a test engine (or with no engine at all), its popover not
    yet open."""

    def __init__(self, desktop, host, tray=True, engine=True):
        self.desktop = desktop
        self.tray = TrayWatcher() if tray else None
        desktop.start_host(host, engine=engine)
        self.engine = TestEngine(desktop.engine_socket) if engine else None
        desktop.wait_for_host_line('finished launching')
        if self.tray:
            self.tray.wait_for_item()

    def open_popover(self):
        self.tray.click(1200, 12)
        return a11y.wait_for_popover()

    def button(self, name):
        return wait_until(lambda: a11y.find(a11y.popover(), ('push button',), name), 10, f'the button "{name}"')

    def press(self, name):
        self.desktop.click(*a11y.centre(self.button(name)))

    def close(self):
        if self.tray:
            self.tray.stop()
        if self.engine:
            self.engine.close()


def popover_shows_the_exact_rows_before_any_report(desktop, host):
    session = Session(desktop, host)
    assert a11y.host_is_running(), 'the host is not on the accessibility bus'
    assert a11y.showing_windows() == [], 'a window shows before the popover is opened'
    assert session.tray.item_property('IconName') == 'com.vornix.os-symbolic'
    assert session.tray.item_property('IconPixmap'), 'the tray item has no pixels to show'
    popover = session.open_popover()
    assert a11y.popover_rows() == ROWS_SIGNED_OUT, a11y.popover_rows()
    assert a11y.is_active(popover), 'the popover did not take the keyboard focus'
    x, y, width, height = a11y.extents(popover)
    assert width == 200, f'the popover is {width} wide'
    assert y >= 12, f'the popover at {(x, y, width, height)} does not open below the icon'
    desktop.screenshot('popover')
    session.close()


def the_popover_opens_and_closes_from_the_tray_icon(desktop, host):
    session = Session(desktop, host)
    session.open_popover()
    session.tray.click(1200, 12)
    a11y.wait_for_popover_closed()
    session.open_popover()
    session.close()


def clicking_elsewhere_closes_the_popover_and_the_host_keeps_running(desktop, host):
    session = Session(desktop, host)
    session.open_popover()
    desktop.click(200, 600)
    a11y.wait_for_popover_closed()
    assert desktop.host.poll() is None, 'the host ended with its last window'
    assert a11y.showing_windows() == [], 'the main window shows before the engine allowed it'
    session.close()


def auth_state_shows_the_email_and_sign_out_about_one_second_later(desktop, host):
    session = Session(desktop, host)
    session.open_popover()
    sent = time.monotonic()
    answer = session.engine.call(UI, 'auth_state', {
        'signedIn': True, 'email': 'ada@example.com', 'appVersion': '2.4.1', 'port': '8123'})
    assert answer == ('success', True), answer
    assert 'Sign In...' in a11y.popover_rows(), 'the popover changed before a second had passed'
    wait_until(lambda: 'Sign Out...' in a11y.popover_rows(), 10, '"Sign Out..." in the popover')
    elapsed = time.monotonic() - sent
    assert elapsed >= 0.9, f'the popover changed {elapsed:.2f} s after the report'
    rows = a11y.popover_rows()
    assert rows[4:8] == ['Account', 'ada@example.com', 'Sign Out...', '---'], rows
    assert 'Version: 2.4.1' in rows and 'Port: 8123' in rows, rows
    assert 'Sign In...' not in rows, rows
    desktop.screenshot('signed-in')
    session.close()


LABEL = 'com.vornix.os.launch'


def _job_file(desktop):
    return os.path.join(desktop.home, '.local', 'share', 'LaunchAgents', f'{LABEL}.plist')


def _entry_keys(path):
    with open(path, encoding='utf-8') as entry:
        lines = entry.read().splitlines()
    assert lines[0] == '[Desktop Entry]', lines
    return dict(line.split('=', 1) for line in lines[1:])


def _switch(session):
    return wait_until(lambda: a11y.find(a11y.popover(), ('toggle button', 'switch'), 'Launch on Login'), 10,
                      'the switch')


def _toggle_and_wait(session, on):
    """Clicks the switch and waits until the popover shows it `on`."""
    session.desktop.click(*a11y.centre(_switch(session)))
    wait_until(lambda: ('switch', 'Launch on Login', on) in a11y.popover_rows(), 10,
               f'the switch to show {"on" if on else "off"}')


def launch_on_login_keeps_the_autostart_entry_in_step_with_the_switch(desktop, host):
    session = Session(desktop, host)
    session.open_popover()
    entry = desktop.autostart_entry(LABEL)

    _toggle_and_wait(session, True)
    wait_until(lambda: os.path.exists(entry), 20, f'the autostart entry {entry}')
    with open(_job_file(desktop), 'rb') as file:
        assert plistlib.load(file)['RunAtLoad'] is True
    keys = _entry_keys(entry)
    assert keys == {'Type': 'Application', 'Name': LABEL, 'Exec': os.path.realpath(host), 'NoDisplay': 'true',
                    'X-GNOME-Autostart-enabled': 'true'}, keys
    validation = subprocess.run(['desktop-file-validate', entry], capture_output=True, text=True)
    assert validation.returncode == 0 and validation.stdout == '', validation.stdout

    _toggle_and_wait(session, False)
    wait_until(lambda: not os.path.exists(entry), 20, 'the autostart entry to be removed')
    with open(_job_file(desktop), 'rb') as file:
        assert plistlib.load(file)['RunAtLoad'] is False, 'the job file does not say RunAtLoad false'
    assert desktop.launchctl_calls() == [], f'launchctl was run: {desktop.launchctl_calls()}'
    session.close()


def _login(desktop, name, host):
    """A fresh login into the same home on a new private desktop (its own display and session
    bus, its own tray), where dex starts the autostart entries. Returns the desktop, its tray and
    what dex printed; the caller stops both."""
    login = harness.Desktop(f'{desktop.name}-{name}', desktop.artifacts, home=desktop.home)
    login.start(current=False)
    tray = TrayWatcher(address=login.env['DBUS_SESSION_BUS_ADDRESS'])
    return login, tray, login.run_autostart()


def _end_autostarted_host(item, host):
    """Ends the host that registered `item` (org.kde.StatusNotifierItem-PID-1), after checking
    that it is the host under test."""
    pid = int(item.split('-')[1])
    assert os.path.realpath(f'/proc/{pid}/exe') == os.path.realpath(host), item
    os.kill(pid, signal.SIGTERM)
    wait_until(lambda: not os.path.exists(f'/proc/{pid}') or _is_zombie(pid), 10, 'the autostarted host to end')


def _is_zombie(pid):
    try:
        with open(f'/proc/{pid}/stat') as stat:
            return stat.read().rsplit(')', 1)[1].split()[0] == 'Z'
    except FileNotFoundError:
        return True


def launch_on_login_starts_the_host_at_the_next_login_and_nothing_once_off(desktop, host):
    started = time.monotonic()
    entry = desktop.autostart_entry(LABEL)
    session = Session(desktop, host)
    session.open_popover()
    _toggle_and_wait(session, True)
    wait_until(lambda: os.path.exists(entry), 20, 'the autostart entry')
    session.close()
    assert desktop.stop_host() == 0

    # The next login starts the host, whose tray item registers with that session's tray.
    login, tray, said = _login(desktop, 'login-on', host)
    try:
        item = tray.wait_for_item(30)
        print(f'switch on to tray item after the next login: {time.monotonic() - started:.1f} s')
        _end_autostarted_host(item, host)
    finally:
        tray.stop()
        login.stop()
    assert entry in said, said

    # The entry removed by hand: the popover shows the switch off; on and off again work.
    os.remove(entry)
    session = Session(desktop, host)
    session.open_popover()
    assert ('switch', 'Launch on Login', False) in a11y.popover_rows(), a11y.popover_rows()
    _toggle_and_wait(session, True)
    wait_until(lambda: os.path.exists(entry), 20, 'the autostart entry written again')
    _toggle_and_wait(session, False)
    wait_until(lambda: not os.path.exists(entry), 20, 'the autostart entry to be removed')
    session.close()
    assert desktop.stop_host() == 0

    # Switched off, the next login starts nothing.
    login, tray, said = _login(desktop, 'login-off', host)
    try:
        time.sleep(5)
        assert tray.registered_items() == [], tray.registered_items()
    finally:
        tray.stop()
        login.stop()
    assert LABEL not in said, said
    assert desktop.launchctl_calls() == [], f'launchctl was run: {desktop.launchctl_calls()}'


def every_command_button_sends_its_method_name_to_the_engine(desktop, host):
    session = Session(desktop, host)
    session.open_popover()
    for label, method in [('Sign In...', 'sign_in'), ('Discover Integrations', 'add_integrations'),
                          ('About', 'about'), ('Get Help', 'get_help'), ('Submit Feedback or Issues', 'feedback'),
                          ('Quit', 'quit')]:
        session.press(label)
        arguments = session.engine.wait_for_call(UI, method)
        assert arguments is None, f'"{method}" came with arguments {arguments!r}'
    sent = [method for channel, method, _ in session.engine.calls if channel == UI]
    assert sent == ['sign_in', 'add_integrations', 'about', 'get_help', 'feedback', 'quit'], sent
    session.close()


def hover_highlights_only_the_button_under_the_pointer(desktop, host):
    session = Session(desktop, host)
    session.open_popover()
    about = session.button('About')
    help_ = session.button('Get Help')

    def shade(button):
        x, y, width, height = a11y.extents(button)
        image = desktop.screen_pixels()
        return image(x + 2, y + height // 2)

    plain = shade(about)
    desktop.move_pointer(*a11y.centre(about))
    wait_until(lambda: shade(about) == (128, 128, 128), 10, '"About" to turn gray under the pointer')
    assert shade(help_) == plain
    desktop.screenshot('hover')
    desktop.move_pointer(*a11y.centre(help_))
    wait_until(lambda: shade(help_) == (128, 128, 128), 10, '"Get Help" to turn gray under the pointer')
    assert shade(about) == plain, 'the old button kept its highlight'
    session.close()


def a_second_launch_with_a_url_sends_url_params_and_shows_the_alert(desktop, host):
    session = Session(desktop, host)
    session.engine.wait_for_call(CUSTOM, 'hello')
    url = 'vornix-os://open?user=1&asset=2&share=3'
    assert desktop.launch_again(host, [url]) == 0
    arguments = session.engine.wait_for_call(CUSTOM, 'urlParams')
    assert arguments == {'user': '1', 'asset': '2', 'share': '3'}, arguments
    alert = wait_until(lambda: a11y.showing_window(None, ('alert', 'dialog')), 20, 'the alert')
    assert a11y.rows(alert)[0] == f'Open Vornix: Optional({url})', a11y.rows(alert)
    desktop.screenshot('alert')
    desktop.click(*a11y.centre(a11y.find(alert, ('push button',), 'OK')))
    wait_until(lambda: a11y.showing_window(None, ('alert', 'dialog')) is None, 10, 'the alert to close')
    assert desktop.host.poll() is None
    session.close()


def a_second_launch_without_a_url_toggles_the_popover_where_there_is_no_tray(desktop, host):
    session = Session(desktop, host, tray=False)
    assert desktop.launch_again(host) == 0
    a11y.wait_for_popover()
    assert a11y.popover_rows() == ROWS_SIGNED_OUT
    assert desktop.launch_again(host) == 0
    a11y.wait_for_popover_closed()
    session.close()


def launch_vornix_for_developers_without_the_companion_shows_not_detected(desktop, host):
    session = Session(desktop, host)
    session.open_popover()
    session.press('Launch Vornix for Developers')
    alert = wait_until(lambda: a11y.showing_window(None, ('alert', 'dialog')), 20, 'the alert')
    assert a11y.rows(alert) == ['Not Detected', 'Please make sure Vornix for Developers is installed on your machine',
                                'Install', 'Close'], a11y.rows(alert)
    desktop.wait_for_host_line('Failure to Launch')
    a11y.wait_for_popover_closed()
    desktop.screenshot('not-detected')
    desktop.click(*a11y.centre(a11y.find(alert, ('push button',), 'Close')))
    wait_until(lambda: a11y.showing_window(None, ('alert', 'dialog')) is None, 10, 'the alert to close')
    session.close()


def the_host_ends_on_sigterm_and_removes_its_engine_socket(desktop, host):
    session = Session(desktop, host)
    session.engine.wait_for_call(CUSTOM, 'hello')
    assert os.stat(desktop.engine_socket).st_mode & 0o777 == 0o600
    assert desktop.stop_host() == 0
    assert not os.path.exists(desktop.engine_socket)
    session.close()


def read_lines(path):
    try:
        with open(path) as file:
            return file.read().splitlines()
    except FileNotFoundError:
        return []


def install_in_the_not_detected_alert_opens_the_install_page(desktop, host):
    browser = desktop.install_url_handler('https', 'stand-in-browser')
    session = Session(desktop, host)
    session.open_popover()
    session.press('Launch Vornix for Developers')
    alert = wait_until(lambda: a11y.showing_window(None, ('alert', 'dialog')), 20, 'the alert')
    desktop.click(*a11y.centre(a11y.find(alert, ('push button',), 'Install')))
    wait_until(lambda: read_lines(browser), 20, 'the browser to be started')
    assert read_lines(browser) == ['started https://vornix.com/install'], read_lines(browser)
    session.close()


def launch_vornix_for_developers_starts_the_installed_companion(desktop, host):
    companion = desktop.install_url_handler('vornix-for-developers', 'stand-in-companion')
    session = Session(desktop, host)
    session.open_popover()
    session.press('Launch Vornix for Developers')
    wait_until(lambda: read_lines(companion), 20, 'the companion application to be started')
    assert read_lines(companion) == ['started '], read_lines(companion)
    assert a11y.showing_window(None, ('alert', 'dialog')) is None, 'an alert showed though the companion is there'
    assert 'Failure to Launch' not in desktop.host_lines()
    session.close()


def the_host_ends_on_sigterm_even_while_an_alert_is_open(desktop, host):
    session = Session(desktop, host)
    session.open_popover()
    session.press('Launch Vornix for Developers')
    wait_until(lambda: a11y.showing_window(None, ('alert', 'dialog')), 20, 'the alert')
    assert desktop.stop_host() == 0
    assert not os.path.exists(desktop.engine_socket)
    session.close()


class FeedServer:
    """An appcast served on the loopback address, as the update site would serve it."""

    def __init__(self, body):
        payload = body.encode()

        class Handler(http.server.BaseHTTPRequestHandler):
            def do_GET(self):
                self.send_response(200)
                self.send_header('Content-Type', 'application/rss+xml')
                self.send_header('Content-Length', str(len(payload)))
                self.end_headers()
                self.wfile.write(payload)

            def log_message(self, *args):
                pass

        self.server = http.server.HTTPServer(('127.0.0.1', 0), Handler)
        self.url = f'http://127.0.0.1:{self.server.server_port}/appcast.xml'
        threading.Thread(target=self.server.serve_forever, daemon=True).start()

    def close(self):
        self.server.shutdown()
        self.server.server_close()


def appcast(version):
    return f'''<?xml version="1.0" encoding="utf-8"?>
<rss version="2.0" xmlns:sparkle="http://www.andymatuschak.org/xml-namespaces/sparkle">
  <channel>
    <title>Vornix OS</title>
    <item>
      <title>Vornix OS {version}</title>
      <sparkle:version>{version}</sparkle:version>
      <sparkle:shortVersionString>{version}</sparkle:shortVersionString>
      <sparkle:releaseNotesLink>https://updates.vornix.com/notes/{version}.html</sparkle:releaseNotesLink>
      <enclosure url="https://updates.vornix.com/vornix-os-{version}.tar.gz" length="1" type="application/octet-stream"/>
    </item>
  </channel>
</rss>
'''


def running_version(host):
    return subprocess.run([host, '--version'], check=True, capture_output=True, text=True).stdout.split()[-1]


def check_for_updates_alert_for(desktop, host, served_version):
    """Serves a feed whose newest item is `served_version`, presses "Check for Updates..." and
    returns the rows of the alert that answers it."""
    feed = FeedServer(appcast(served_version))
    desktop.env['VORNIX_UPDATE_FEED_URL'] = feed.url
    session = Session(desktop, host)
    session.open_popover()
    session.press('Check for Updates...')
    alert = wait_until(lambda: a11y.showing_window(None, ('alert', 'dialog')), 30, 'the update alert')
    rows = a11y.rows(alert)
    desktop.screenshot('check-for-updates-' + served_version)
    buttons = [row for row in rows if a11y.find(alert, ('push button',), row)]
    desktop.click(*a11y.centre(a11y.find(alert, ('push button',), buttons[-1])))
    wait_until(lambda: a11y.showing_window(None, ('alert', 'dialog')) is None, 10, 'the alert to close')
    session.close()
    feed.close()
    return rows


def check_for_updates_offers_the_newer_version_a_served_feed_lists(desktop, host):
    rows = check_for_updates_alert_for(desktop, host, '99.0.0')
    assert rows == ['Vornix OS 99.0.0 is available',
                    f'You have version {running_version(host)}. Download the new version to update.',
                    'Download', 'Release Notes', 'Later'], rows


def check_for_updates_says_the_running_version_is_the_newest(desktop, host):
    version = running_version(host)
    rows = check_for_updates_alert_for(desktop, host, version)
    assert rows == ['Vornix OS is up to date', f'Version {version} is the newest version available.', 'OK'], rows


def the_network_libraries_are_loaded_by_the_first_update_check_not_at_start(desktop, host):
    def network_files():
        return sorted(path.strip() for path in desktop.host_mapped_files()
                      if 'libcurl' in path or 'vornix-http-fetcher' in path)

    feed = FeedServer(appcast(running_version(host)))
    desktop.env['VORNIX_UPDATE_FEED_URL'] = feed.url
    session = Session(desktop, host)
    session.open_popover()
    assert network_files() == [], f'the host mapped {network_files()} before any update check'
    session.press('Check for Updates...')
    wait_until(lambda: a11y.showing_window(None, ('alert', 'dialog')), 30, 'the update alert')
    loaded = network_files()
    assert any(path.endswith('/vornix-http-fetcher.so') for path in loaded), loaded
    assert any('/libcurl.so' in path for path in loaded), loaded
    session.close()
    feed.close()


MENU_SIGNED_OUT = [
    ('disabled', 'Vornix OS'), ('check', 'Launch on Login', 0), '---',
    ('disabled', 'Account'), 'Sign In...', '---',
    ('disabled', 'Version: 0.0.0'), ('disabled', 'Port: '), '---',
    'Launch Vornix for Developers', 'Discover Integrations', 'About', 'Get Help', 'Submit Feedback or Issues',
    'Check for Updates...', 'Quit',
]
ENGINE_COMMANDS = ['Sign In...', 'Discover Integrations', 'About', 'Get Help', 'Submit Feedback or Issues']


def the_tray_item_carries_what_the_panels_read(desktop, host):
    session = Session(desktop, host)
    item = session.tray.item_property
    assert item('Id') == 'com.vornix.os', item('Id')
    assert item('Category') == 'ApplicationStatus'
    assert item('Status') == 'Active'
    assert item('Title') == 'Vornix OS'
    assert item('ItemIsMenu') is False, 'a left click would open the menu, not the popover'
    assert item('Menu') == '/MenuBar', item('Menu')
    assert item('WindowId') == 0
    assert item('ToolTip')[2] == 'Vornix OS', item('ToolTip')
    for name in ('AttentionIconName', 'OverlayIconName', 'AttentionMovieName'):
        assert item(name) == '', (name, item(name))
    assert item('AttentionIconPixmap') == [] and item('OverlayIconPixmap') == []
    # The icon by name, found where the item says as a loose file and as a hicolor theme.
    name = item('IconName')
    assert name == 'com.vornix.os-symbolic', name
    theme = item('IconThemePath')
    assert os.path.isfile(os.path.join(theme, f'{name}.svg')), theme
    assert os.path.isfile(os.path.join(theme, 'hicolor', 'scalable', 'status', f'{name}.svg')), theme
    # Its pixels for panels without icon themes: the same drawing, light inside with a dark edge.
    pixmaps = item('IconPixmap')
    sizes = sorted((width, height) for width, height, _ in pixmaps)
    assert sizes == [(16, 16), (22, 22), (32, 32), (48, 48)], sizes
    for width, height, argb in pixmaps:
        assert len(argb) == width * height * 4
        pixels = [(argb[i], tuple(argb[i + 1:i + 4])) for i in range(0, len(argb), 4)]
        assert any(alpha == 255 and min(rgb) >= 200 for alpha, rgb in pixels), f'nothing light at {width}'
        assert any(alpha >= 128 and max(rgb) <= 80 for alpha, rgb in pixels), f'no dark edge at {width}'
    _save_icon_on_panels(desktop, pixmaps)
    session.close()


PANEL_SHADES = [0x000000, 0x2d2d2d, 0x31363b, 0xdcdcdc, 0xeff0f1, 0xffffff]


def _save_icon_on_panels(desktop, pixmaps):
    """Keeps, as an artifact, the item's pixels at each size on panels of dark and light shades
    (GNOME's and waybar's dark bars, Breeze Dark, Xfce's and Breeze's light ones), four times
    enlarged."""
    import gi
    gi.require_version('GdkPixbuf', '2.0')
    from gi.repository import GdkPixbuf
    scale, margin = 4, 8
    cell = 48 * scale + 2 * margin
    sheet = GdkPixbuf.Pixbuf.new(GdkPixbuf.Colorspace.RGB, False, 8, cell * len(PANEL_SHADES), cell * len(pixmaps))
    for row, (width, height, argb) in enumerate(sorted(pixmaps)):
        rgba = bytearray()
        for i in range(0, len(argb), 4):
            rgba += bytes(argb[i + 1:i + 4]) + bytes(argb[i:i + 1])
        icon = GdkPixbuf.Pixbuf.new_from_bytes(GLib.Bytes.new(bytes(rgba)), GdkPixbuf.Colorspace.RGB, True, 8,
                                               width, height, width * 4)
        for column, shade in enumerate(PANEL_SHADES):
            panel = GdkPixbuf.Pixbuf.new(GdkPixbuf.Colorspace.RGB, False, 8, cell, cell)
            panel.fill(shade << 8 | 0xff)
            icon.composite(panel, margin, margin, width * scale, height * scale, margin, margin, scale, scale,
                           GdkPixbuf.InterpType.NEAREST, 255)
            panel.copy_area(0, 0, cell, cell, sheet, column * cell, row * cell)
    sheet.savev(os.path.join(desktop.artifacts, f'{desktop.name}-icon-on-panels.png'), 'png', [], [])


def the_menu_holds_the_popovers_rows_and_does_what_they_do(desktop, host):
    session = Session(desktop, host)
    tray = session.tray
    assert tray.menu_call('AboutToShow', GLib.Variant('(i)', (0,))) in ((False,), (True,))
    assert tray.menu() == MENU_SIGNED_OUT, tray.menu()

    # Each command does what its popover button does: here, asks the engine.
    for label, method in [('Sign In...', 'sign_in'), ('About', 'about'), ('Quit', 'quit')]:
        tray.choose(label)
        arguments = session.engine.wait_for_call(UI, method)
        assert arguments is None, f'"{method}" came with arguments {arguments!r}'
    assert desktop.host.poll() is None, 'Quit with an engine ended the host itself'

    # The check item is the popover's switch: choosing it turns both on and writes the entry.
    before = tray.menu_signal_count('ItemsPropertiesUpdated')
    tray.choose('Launch on Login')
    entry = desktop.autostart_entry(LABEL)
    wait_until(lambda: os.path.exists(entry), 20, f'the autostart entry {entry}')
    wait_until(lambda: ('check', 'Launch on Login', 1) in tray.menu(), 10, 'the check item to be ticked')
    wait_until(lambda: tray.menu_signal_count('ItemsPropertiesUpdated') > before, 10, 'ItemsPropertiesUpdated')
    session.open_popover()
    assert ('switch', 'Launch on Login', True) in a11y.popover_rows(), a11y.popover_rows()

    # A report of the engine changes the menu with the popover.
    before = tray.menu_signal_count('LayoutUpdated')
    session.engine.call(UI, 'auth_state', {
        'signedIn': True, 'email': 'ada_l@example.com', 'appVersion': '2.4.1', 'port': '8123'})
    wait_until(lambda: tray.menu_signal_count('LayoutUpdated') > before, 10, 'LayoutUpdated')
    menu = tray.menu()
    # An underscore is the access key's mark in a menu label: the e-mail's own is doubled.
    assert menu[3:8] == [('disabled', 'Account'), ('disabled', 'ada__l@example.com'), 'Sign Out...', '---',
                         ('disabled', 'Version: 2.4.1')], menu
    assert ('disabled', 'Port: 8123') in menu and 'Sign In...' not in menu, menu
    assert 'ada_l@example.com' in a11y.popover_rows(), a11y.popover_rows()
    tray.choose('Sign Out...')
    assert session.engine.wait_for_call(UI, 'sign_out') is None
    session.close()


def without_an_engine_quit_ends_the_host_and_the_engines_commands_are_disabled(desktop, host):
    session = Session(desktop, host, engine=False)
    desktop.wait_for_host_line('finished launching')
    menu = session.tray.menu()
    for label in ENGINE_COMMANDS:
        assert ('disabled', label) in menu, menu
    for label in ('Launch Vornix for Developers', 'Check for Updates...', 'Quit'):
        assert label in menu, menu
    popover = session.open_popover()
    for label in ENGINE_COMMANDS:
        assert not a11y.find(popover, ('push button',), label)['enabled'], f'"{label}" can be pressed'
    for label in ('Launch Vornix for Developers', 'Check for Updates...', 'Quit'):
        assert a11y.find(popover, ('push button',), label)['enabled'], f'"{label}" cannot be pressed'
    desktop.screenshot('without-engine')
    # A disabled button does nothing when clicked.
    session.press('About')
    time.sleep(0.5)
    assert desktop.host.poll() is None
    session.press('Quit')
    assert desktop.host.wait(20) == 0, 'the host did not end with status 0'
    session.close()


def without_an_engine_the_menus_quit_ends_the_host(desktop, host):
    session = Session(desktop, host, engine=False)
    desktop.wait_for_host_line('finished launching')
    session.tray.choose('Quit')
    assert desktop.host.wait(20) == 0, 'the host did not end with status 0'
    session.close()


def the_hosts_windows_are_named_after_its_application_id(desktop, host):
    session = Session(desktop, host)
    session.open_popover()
    found = subprocess.run(['xdotool', 'search', '--onlyvisible', '--class', 'com.vornix.os'], capture_output=True,
                           text=True, env=desktop.env)
    windows = found.stdout.split()
    assert windows, 'no window of class com.vornix.os shows'
    for window in windows:
        wm_class = subprocess.run(['xprop', '-id', window, 'WM_CLASS'], capture_output=True, text=True,
                                  env=desktop.env).stdout.strip()
        assert wm_class == 'WM_CLASS(STRING) = "com.vornix.os", "com.vornix.os"', wm_class
    session.close()
def _distance_to(area, x, y):
    """How far the point (x, y) is from the rectangle (x, y, width, height): 0 inside it."""
    left, top, width, height = area
    dx = max(left - x, 0, x - (left + width - 1))
    dy = max(top - y, 0, y - (top + height - 1))
    return max(dx, dy)


def on_sway_the_popover_is_a_layer_surface_beside_the_icon_and_closes_like_a_menu(desktop, host):
    from sway import Sway, WIDTH, HEIGHT
    sway = Sway(desktop)
    desktop.env = sway.host_environment()
    session = Session(desktop, host)
    try:
        assert sway.drawn_area('before') is None, 'the output is not empty before the popover opens'

        # A panel at the bottom that passes screen coordinates (KDE's): beside the bottom edge,
        # centred on the click, past the panel as the click tells its thickness (the panel's far
        # side twice the click's distance from the edge, 9 px here, and 12 px more).
        session.tray.click(1200, HEIGHT - 10)
        area = wait_until(lambda: sway.drawn_area('at-the-bottom'), 10, 'the popover on the output')
        print('opened at the bottom right:', area)
        assert 'Vornix OS' not in sway.windows(), f'the popover is a window of sway: {sway.windows()}'
        left, top, width, height = area
        assert top + height == HEIGHT - (2 * 9 + 12), f'not just past the panel at the bottom edge: {area}'
        assert left + width == WIDTH and width < 400, f'not at the click, kept on the output: {area}'
        assert _distance_to(area, 1200, HEIGHT - 10) <= 48, f'far from the click: {area}'

        sway.press_key('Escape')
        wait_until(lambda: sway.drawn_area('after-escape') is None, 10, 'Escape to close the popover')

        # waybar passes the point within its icon: the popover goes to the top right corner.
        session.tray.click(11, 9)
        area = wait_until(lambda: sway.drawn_area('in-the-corner'), 10, 'the popover on the output')
        print('opened in the corner:', area)
        left, top, width, height = area
        assert top == 0 and left + width == WIDTH, f'not in the top right corner: {area}'

        # Held down a while, as a person's click is: the popover closes on the release, and the
        # next press on one of its rows is that row's (below).
        sway.click(300, 500, held=0.3)
        wait_until(lambda: sway.drawn_area('after-a-click-elsewhere') is None, 10,
                   'a click elsewhere to close the popover')
        assert desktop.host.poll() is None, 'the host ended'

        # Open again: the popover comes back where the click was, at the top edge this time, past
        # the panel as the click 12 px from the edge tells it.
        session.tray.click(700, 12)
        area = wait_until(lambda: sway.drawn_area('at-the-top'), 10, 'the popover on the output')
        print('opened at the top:', area)
        assert area[1] == 2 * 12 + 12 and area[0] <= 700 < area[0] + area[2], f'not under the click: {area}'
        assert 'Vornix OS' not in sway.windows()

        # Its last row, "Quit", does what it says: the engine is asked to quit.
        left, top, width, height = area
        sway.click(left + 40, top + height - 18)
        assert session.engine.wait_for_call(UI, 'quit') is None
    finally:
        session.close()
        sway.stop()


def on_gnome_the_popover_opens_under_the_top_bar_at_the_click_and_closes_like_a_menu(desktop, host):
    from gnome import Gnome, WIDTH
    gnome = Gnome(desktop)
    desktop.env = gnome.host_environment()
    session = Session(desktop, host)
    try:
        # GNOME's AppIndicator extension passes the screen point clicked on its top bar.
        session.tray.click(1200, 16)
        area = wait_until(lambda: gnome.drawn_area('under-the-top-bar'), 10, 'the popover on the screen')
        print('opened at the top right:', area)
        left, top, width, height = area
        assert top == 32, f'not just under the top bar: {area}'
        assert left + width == WIDTH and width < 400, f'not at the click, kept on the screen: {area}'
        assert _distance_to(area, 1200, 16) <= 48, f'far from the click: {area}'
        assert gnome.x_windows('Vornix OS'), 'the popover is not a window of the X server'

        gnome.press_key('Escape')
        wait_until(lambda: gnome.drawn_area('after-escape') is None, 10, 'Escape to close the popover')

        session.tray.click(700, 16)
        area = wait_until(lambda: gnome.drawn_area('under-the-clock'), 10, 'the popover on the screen')
        print('opened under the clock:', area)
        assert area[1] == 32 and area[0] <= 700 < area[0] + area[2], f'not under the click: {area}'

        gnome.click(300, 600)
        wait_until(lambda: gnome.drawn_area('after-a-click-elsewhere') is None, 10,
                   'a click elsewhere to close the popover')
        assert desktop.host.poll() is None, 'the host ended'
    finally:
        session.close()
        gnome.stop()
