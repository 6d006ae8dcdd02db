"""The tier's Wayland input tool (input/wayland_input.cpp) as a person's hands: one device for
the whole session, run as the session's user."""

import os

BUTTONS = {'left': 272, 'right': 273, 'middle': 274}


class WaylandInput:
    def __init__(self, session, width, height):
        self.process = session.helper([os.environ['VORNIX_WAYLAND_INPUT'], str(width), str(height)], 'input')
        if self.process.stdout.readline().strip() != b'ready':
            raise RuntimeError('the Wayland input tool did not start (see its log)')

    def send(self, command):
        self.process.stdin.write(command.encode() + b'\n')
        self.process.stdin.flush()
        if self.process.stdout.readline().strip() != b'ok':
            raise RuntimeError(f'the Wayland input tool refused "{command}"')

    def click(self, x, y, button):
        self.send(f'move {x} {y}')
        self.send(f'press {BUTTONS[button]}')
        self.send(f'release {BUTTONS[button]}')

    def key(self, code):
        self.send(f'key {code}')
