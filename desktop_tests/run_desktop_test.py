#!/usr/bin/python3
"""Runs one desktop test of vornix-host on a private desktop:
    run_desktop_test.py NAME --host PATH --artifacts FOLDER
Exit status 0 when it passes, 1 when it fails, 77 when the machine cannot run it."""

import argparse
import faulthandler
import signal
import os
import sys
import traceback

sys.path.insert(0, os.path.dirname(os.path.abspath(__file__)))

from harness import Desktop, SetupError  # noqa: E402


def main():
    faulthandler.register(signal.SIGUSR1)
    parser = argparse.ArgumentParser()
    parser.add_argument('name')
    parser.add_argument('--host', required=True)
    parser.add_argument('--artifacts', required=True)
    options = parser.parse_args()

    desktop = Desktop(options.name, options.artifacts)
    status = run_case(desktop, options)
    try:
        desktop.stop()
    except AssertionError as error:
        print(f'{options.name}: failed: {error}')
        return 1
    if status == 0:
        print(f'{options.name}: passed')
    return status


def run_case(desktop, options):
    try:
        desktop.start()
        import desktop_cases  # after start(): the accessibility bus is read from this desktop's session
        case = getattr(desktop_cases, options.name)
        case(desktop, options.host)
        return 0
    except SetupError as error:
        print(f'{options.name}: skipped: {error}')
        return 77
    except Exception:  # noqa: BLE001 - any failure of the case is reported as such
        traceback.print_exc()
        try:
            print('saved', desktop.screenshot('failure'))
        except Exception:  # noqa: BLE001
            pass
        print(f'{options.name}: failed; the host said:')
        try:
            print('\n'.join(desktop.host_lines()))
        except OSError:
            pass
        return 1


if __name__ == '__main__':
    sys.exit(main())
