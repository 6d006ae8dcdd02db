#!/usr/bin/python3
"""Runs vornix-host where there is no display: on a private virtual display (Xvfb) with its own
session bus and a stand-in tray, opens the popover as a click on the tray icon would, and saves
a screenshot of it. With a terminal attached the host then runs on until Ctrl-C.
    run_headless.py HOST SCREENSHOT"""

import os
import sys

sys.path.insert(0, os.path.join(os.path.dirname(os.path.abspath(__file__)), '..', 'desktop_tests'))

from harness import Desktop  # noqa: E402
from tray import TrayWatcher  # noqa: E402


def main():
    host, screenshot = sys.argv[1], os.path.abspath(sys.argv[2])
    os.makedirs(os.path.dirname(screenshot), exist_ok=True)
    desktop = Desktop('run', os.path.dirname(screenshot))
    tray = None
    try:
        desktop.start()
        tray = TrayWatcher()
        desktop.start_host_plain(host)
        tray.wait_for_item()
        print('run: vornix-host is running on a virtual display with its icon in the tray; opening its popover')
        tray.click(1200, 12)
        import accessibility  # after start(): reads this desktop's accessibility bus
        accessibility.wait_for_popover()
        desktop.save_screenshot(screenshot)
        print(f'run: a screenshot of the open popover: {screenshot}')
        if sys.stdin.isatty():
            print('run: the host keeps running; press Ctrl-C to end it')
            try:
                desktop.host.wait()
            except KeyboardInterrupt:
                pass
    finally:
        if tray:
            tray.stop()
        desktop.stop()


if __name__ == '__main__':
    main()
