#!/usr/bin/python3
"""Prints the host's accessibility tree as JSON (with --applications: the names of the
applications on the accessibility bus): its showing windows and, under them, every
showing node with its role, name, states and screen extents. Each look at the screen is its own
short process, so no accessibility connection state is carried from one look to the next."""

import json
import sys

import gi

gi.require_version('Atspi', '2.0')
from gi.repository import Atspi  # noqa: E402

# The host names itself after its application id.
HOST_NAMES = ('com.vornix.os', 'Vornix OS')


def describe(node):
    states = node.get_state_set()
    box = node.get_extents(Atspi.CoordType.SCREEN)
    found = {
        'role': node.get_role_name(),
        'name': node.get_name(),
        'showing': states.contains(Atspi.StateType.SHOWING),
        'active': states.contains(Atspi.StateType.ACTIVE),
        'checked': states.contains(Atspi.StateType.CHECKED),
        'enabled': states.contains(Atspi.StateType.SENSITIVE),
        'extents': [box.x, box.y, box.width, box.height],
        'children': [],
    }
    if found['showing']:
        for index in range(node.get_child_count()):
            child = node.get_child_at_index(index)
            if child is not None:
                found['children'].append(describe(child))
    return found


def main():
    desktop = Atspi.get_desktop(0)
    if sys.argv[1:] == ['--applications']:
        names = [desktop.get_child_at_index(index).get_name() for index in range(desktop.get_child_count())]
        json.dump(names, sys.stdout)
        return
    windows = []
    for index in range(desktop.get_child_count()):
        application = desktop.get_child_at_index(index)
        if application is None or application.get_name() not in HOST_NAMES:
            continue
        for window_index in range(application.get_child_count()):
            window = application.get_child_at_index(window_index)
            if window is not None:
                windows.append(describe(window))
    json.dump(windows, sys.stdout)


if __name__ == '__main__':
    main()
