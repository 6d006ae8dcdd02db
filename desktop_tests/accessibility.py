"""Reads the host's windows through the accessibility tree, as a screen reader would. Each read
is a fresh snapshot taken by atspi_snapshot.py in a process of its own."""

import json
import os
import subprocess
import sys

from harness import wait_until

SNAPSHOT = os.path.join(os.path.dirname(os.path.abspath(__file__)), 'atspi_snapshot.py')


def windows():
    result = subprocess.run([sys.executable, SNAPSHOT], capture_output=True, timeout=30)
    if result.returncode != 0:
        return []
    return json.loads(result.stdout or b'[]')


def host_is_running():
    result = subprocess.run([sys.executable, SNAPSHOT, '--applications'], capture_output=True, timeout=30)
    return 'com.vornix.os' in json.loads(result.stdout or b'[]')


def showing_windows():
    """The names of the host's windows on the screen now."""
    return [window['name'] for window in windows() if showing(window)]


def showing(node):
    return node['showing']


def role(node):
    return node['role']


def extents(node):
    return tuple(node['extents'])


def centre(node):
    x, y, width, height = extents(node)
    return x + width // 2, y + height // 2


def is_active(window):
    return window['active']


def showing_window(name=None, role_names=None):
    for window in windows():
        if showing(window) and (name is None or window['name'] == name) and (
                role_names is None or role(window) in role_names):
            return window
    return None


def rows(window):
    """The window's visible rows from top to bottom: the text of labels and buttons, '---' for
    a separator; a switch is ('switch', name, on)."""
    found = []

    def visit(node):
        kind = role(node)
        if not showing(node):
            return
        if kind == 'label':
            found.append(node['name'])
        elif kind == 'push button':
            found.append(node['name'])
            return
        elif kind == 'separator':
            found.append('---')
        elif kind in ('toggle button', 'switch', 'check box'):
            found.append(('switch', node['name'], node['checked']))
            return
        for child in node['children']:
            visit(child)

    visit(window)
    return found


def find(window, role_names, name):
    if window is None:
        return None
    if role(window) in role_names and window['name'] == name and showing(window):
        return window
    for child in window['children']:
        hit = find(child, role_names, name)
        if hit:
            return hit
    return None


def popover():
    return showing_window('Vornix OS', ('window', 'frame'))


def popover_rows():
    window = popover()
    return rows(window) if window else []


def wait_for_popover(timeout=20):
    return wait_until(popover, timeout, 'the popover to show')


def wait_for_popover_closed(timeout=20):
    wait_until(lambda: popover() is None, timeout, 'the popover to close')
