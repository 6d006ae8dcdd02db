"""Reads the host's windows through the accessibility tree, as a screen reader would."""

import gi

gi.require_version('Atspi', '2.0')
from gi.repository import Atspi  # noqa: E402

from harness import wait_until  # noqa: E402

HOST_NAMES = ('vornix-host', 'Vornix OS')


def host_application():
    desktop = Atspi.get_desktop(0)
    for index in range(desktop.get_child_count()):
        application = desktop.get_child_at_index(index)
        if application is not None and application.get_name() in HOST_NAMES:
            # Read afresh each time: the tests wait for the tree to change.
            application.set_cache_mask(Atspi.Cache.NONE)
            return application
    return None


def children(node):
    for index in range(node.get_child_count()):
        child = node.get_child_at_index(index)
        if child is not None:
            yield child


def showing(node):
    return node.get_state_set().contains(Atspi.StateType.SHOWING)


def role(node):
    return node.get_role_name()


def extents(node):
    box = node.get_extents(Atspi.CoordType.SCREEN)
    return box.x, box.y, box.width, box.height


def centre(node):
    x, y, width, height = extents(node)
    return x + width // 2, y + height // 2


def windows():
    application = host_application()
    return list(children(application)) if application else []


def showing_window(name=None, role_names=None):
    for window in windows():
        if showing(window) and (name is None or window.get_name() == name) and (
                role_names is None or role(window) in role_names):
            return window
    return None


def rows(window):
    """The popover's visible rows from top to bottom: the text of labels and buttons, '---' for
    a separator; a switch is ('switch', name, on)."""
    found = []

    def visit(node):
        kind = role(node)
        if not showing(node):
            return
        if kind == 'label':
            found.append(node.get_name())
        elif kind == 'push button':
            found.append(node.get_name())
            return
        elif kind == 'separator':
            found.append('---')
        elif kind in ('toggle button', 'switch', 'check box'):
            found.append(('switch', node.get_name(), node.get_state_set().contains(Atspi.StateType.CHECKED)))
            return
        for child in children(node):
            visit(child)

    visit(window)
    return found


def find(window, role_names, name):
    def visit(node):
        if role(node) in role_names and node.get_name() == name and showing(node):
            return node
        for child in children(node):
            hit = visit(child)
            if hit:
                return hit
        return None
    return visit(window)


def wait_for_popover(timeout=20):
    return wait_until(lambda: showing_window('Vornix OS', ('window', 'frame')), timeout, 'the popover to show')


def wait_for_popover_closed(timeout=20):
    wait_until(lambda: showing_window('Vornix OS', ('window', 'frame')) is None, timeout, 'the popover to close')


def is_active(window):
    return window.get_state_set().contains(Atspi.StateType.ACTIVE)
