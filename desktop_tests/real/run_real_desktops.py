#!/usr/bin/python3
"""The host on the real desktops, one after the other, each in its own process and session:
    run_real_desktops.py --host PATH --artifacts FOLDER [DESKTOP...]
One verdict line per desktop, then 'N passed, N failed'; exit status 0 only when all passed."""

import argparse
import faulthandler
import importlib
import os
import subprocess
import sys
import time
import traceback

HERE = os.path.dirname(os.path.abspath(__file__))
sys.path.insert(0, HERE)
# The desktop tests' harness, which the tier's sessions share a few helpers with.
sys.path.insert(1, os.path.dirname(HERE))

# In the order they are brought up: the quickest first.
DESKTOPS = {
    'xfce': ('xfce', 'XfceDesktop'),
    'sway': ('sway', 'SwayDesktop'),
    'kde': ('kde', 'KdeDesktop'),
    'gnome': ('gnome', 'GnomeDesktop'),
}
VERDICT = 'verdict: '
TIME_LIMIT = 300


def visit(name, host, artifacts):
    """Brings the desktop up, makes the tour and prints its verdict line."""
    from session import SetupError
    from tour import Tour
    module, cls = DESKTOPS[name]
    desktop = getattr(importlib.import_module(module), cls)(artifacts)
    started = time.monotonic()
    try:
        desktop.start()
        up = time.monotonic() - started
        failures, facts, latency = Tour(desktop, host).run()
    except SetupError as error:
        failures, facts, latency, up = [f'the desktop did not come up: {error}'], [], None, None
    except Exception:  # noqa: BLE001 - a broken step is this desktop's failure, not the tier's end
        traceback.print_exc()
        failures, facts, latency, up = ['the tour broke (see the traceback above)'], [], None, None
    finally:
        desktop.stop()
    if up is not None:
        facts.insert(0, f'up in {up:.0f} s')
    if latency:
        facts.append(f'popover latency {latency}')
    result = 'passed' if not failures else 'FAILED: ' + '; '.join(failures)
    print(f'{VERDICT}{name}: {result} [{"; ".join(facts)}]', flush=True)
    return not failures


def main():
    parser = argparse.ArgumentParser()
    parser.add_argument('--host', required=True)
    parser.add_argument('--artifacts', required=True)
    parser.add_argument('--one', action='store_true', help='visit the one desktop named, in this process')
    parser.add_argument('desktops', nargs='*', default=list(DESKTOPS))
    options = parser.parse_args()
    host = os.path.abspath(options.host)
    artifacts = os.path.abspath(options.artifacts)
    os.makedirs(artifacts, exist_ok=True)
    # The desktop user must be able to run the host and write nothing else of ours.
    os.chmod(artifacts, 0o755)

    if options.one:
        # Where a visit hangs, in its output, before the time limit ends it.
        faulthandler.dump_traceback_later(TIME_LIMIT - 10, exit=True)
        return 0 if visit(options.desktops[0], host, artifacts) else 1

    passed = failed = 0
    tour_started = time.monotonic()
    for name in options.desktops:
        if name not in DESKTOPS:
            parser.error(f'no desktop named {name}; known: {", ".join(DESKTOPS)}')
        started = time.monotonic()
        verdict = f'{name}: FAILED: no verdict'
        try:
            run = subprocess.run([sys.executable, os.path.abspath(__file__), '--one', '--host', host, '--artifacts',
                                  artifacts, name], stdout=subprocess.PIPE, stderr=subprocess.STDOUT,
                                 timeout=TIME_LIMIT)
            output = run.stdout.decode(errors='replace')
        except subprocess.TimeoutExpired as expired:
            output = (expired.stdout or b'').decode(errors='replace')
            verdict = f'{name}: FAILED: no verdict in {TIME_LIMIT} s'
        with open(os.path.join(artifacts, f'{name}-tour.txt'), 'w') as kept:
            kept.write(output)
        for line in output.splitlines():
            if line.startswith(VERDICT):
                verdict = line[len(VERDICT):]
        print(f'{verdict} ({time.monotonic() - started:.0f} s)', flush=True)
        if ': passed' in verdict:
            passed += 1
        else:
            failed += 1
    print(f'the desktops took {time.monotonic() - tour_started:.0f} s')
    print(f'{passed} passed, {failed} failed')
    return 0 if failed == 0 else 1


if __name__ == '__main__':
    sys.exit(main())
