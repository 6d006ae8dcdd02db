#!/usr/bin/python3
"""Measures vornix-host against a minimal GTK 3 tray program in the same run, on a private
virtual desktop with a stand-in tray (scripts/bench-host.sh builds both and calls this):
  - start: from launching the program to its item being registered with the tray's watcher;
  - memory: resident set once started and settled;
  - idle wake-ups: context switches of all the program's threads over an idle stretch.
    bench_host.py HOST MINIMAL [RUNS] [IDLE_SECONDS]"""

import os
import statistics
import subprocess
import sys
import time

sys.path.insert(0, os.path.join(os.path.dirname(os.path.abspath(__file__)), '..', 'desktop_tests'))

from harness import Desktop  # noqa: E402
from tray import TrayWatcher  # noqa: E402


def rss_kib(pid):
    with open(f'/proc/{pid}/status') as status:
        for line in status:
            if line.startswith('VmRSS:'):
                return int(line.split()[1])
    return 0


def context_switches(pid):
    total = 0
    for task in os.listdir(f'/proc/{pid}/task'):
        with open(f'/proc/{pid}/task/{task}/status') as status:
            for line in status:
                if line.startswith(('voluntary_ctxt_switches', 'nonvoluntary_ctxt_switches')):
                    total += int(line.split()[1])
    return total


def start(desktop, watcher, argv):
    """Starts a program; returns it and the seconds until its tray item was registered."""
    seen = len(watcher.items)
    began = time.monotonic()
    program = subprocess.Popen(argv, env=desktop.env, stdout=subprocess.DEVNULL, stderr=subprocess.DEVNULL)
    with watcher.lock:
        if not watcher.lock.wait_for(lambda: len(watcher.items) > seen, 30):
            raise RuntimeError(f'{argv[0]} registered no tray item')
        registered = watcher.items[seen][1]
    return program, registered - began


def stop(program):
    program.terminate()
    program.wait(10)


def main():
    host, minimal = sys.argv[1], sys.argv[2]
    runs = int(sys.argv[3]) if len(sys.argv) > 3 else 5
    idle_seconds = float(sys.argv[4]) if len(sys.argv) > 4 else 60.0
    desktop = Desktop('bench', os.path.join(os.path.dirname(host), '..', 'bench-artifacts')).start()
    watcher = TrayWatcher()
    programs = {'vornix-host': [host], 'minimal GTK 3 tray': [minimal]}
    try:
        starts = {name: [] for name in programs}
        for _ in range(runs):
            for name, argv in programs.items():
                program, seconds = start(desktop, watcher, argv)
                starts[name].append(seconds)
                stop(program)

        running = {name: start(desktop, watcher, argv)[0] for name, argv in programs.items()}
        time.sleep(3)  # let both settle after start-up before the idle stretch
        memory = {name: rss_kib(program.pid) for name, program in running.items()}
        before = {name: context_switches(program.pid) for name, program in running.items()}
        time.sleep(idle_seconds)
        wakeups = {name: context_switches(program.pid) - before[name] for name, program in running.items()}
        for program in running.values():
            stop(program)
    finally:
        watcher.stop()
        desktop.stop()

    host_start = statistics.median(starts['vornix-host'])
    minimal_start = statistics.median(starts['minimal GTK 3 tray'])
    print(f'{"program":22} {"start (median of " + str(runs) + ")":>22} {"resident memory":>16} '
          f'{"wake-ups in " + str(int(idle_seconds)) + " s idle":>22}')
    for name in programs:
        print(f'{name:22} {statistics.median(starts[name]) * 1000:19.1f} ms {memory[name] / 1024:13.1f} MiB '
              f'{wakeups[name]:22d}')
    print(f'vornix-host / minimal: start {host_start / minimal_start:.2f}x, '
          f'memory {memory["vornix-host"] / memory["minimal GTK 3 tray"]:.2f}x (target: within 1.2x each, '
          f'and no periodic wake-ups while idle)')


if __name__ == '__main__':
    main()
