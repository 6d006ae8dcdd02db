#!/usr/bin/env bash
# Times the property-list reader and writer against expat's raw parse (empty handlers),
# Debian's libplist and Python's plistlib, all on the same files in one run: a typical 1 KB
# job file and a 10 MB document of job dictionaries, both written by plistlib. Prints each
# time and the ratios. Times are processor time (benchmark's CPU column, Python's
# process_time), which other work on a shared machine disturbs far less than wall time.
# Results land in build/gcc/bench-plist/.
set -euo pipefail
cd "$(dirname "$0")/.."

bash scripts/bootstrap.sh
cmake --preset gcc >/dev/null
cmake --build --preset gcc -j2 --target plist_benchmark

folder=build/gcc/bench-plist
mkdir -p "$folder"

python3 - "$folder" <<'PY'
import os, plistlib, sys

def job(number):
    label = "com.vornix.job%d" % number
    return {
        "Label": label,
        "ProgramArguments": ["/usr/local/bin/vornix-agent", "--config", "/etc/vornix/%s.conf" % label],
        "RunAtLoad": True,
        "KeepAlive": number % 2 == 0,
        "WorkingDirectory": "/var/lib/vornix/" + label,
        "StandardOutPath": "/var/log/vornix/%s.log" % label,
        "EnvironmentVariables": {"PATH": "/usr/local/bin:/usr/bin:/bin", "LANG": "en_US.UTF-8"},
        "StartCalendarInterval": {"Hour": number % 24, "Minute": number % 60, "Weekday": number % 7 + 1},
        "Nice": -5,
        "ProcessType": "Background",
    }

folder = sys.argv[1]
with open(os.path.join(folder, "job.plist"), "wb") as file:
    file.write(plistlib.dumps(job(7)))
jobs = [job(number) for number in range(10_600)]
with open(os.path.join(folder, "large.plist"), "wb") as file:
    file.write(plistlib.dumps(jobs))
PY

VORNIX_PLIST_BENCH_DIR="$folder" build/gcc/plist/plist_benchmark --benchmark_min_time=0.5 \
  --benchmark_out="$folder/results.json" --benchmark_out_format=json

python3 - "$folder" <<'PY'
import json, os, plistlib, sys, time, timeit

folder = sys.argv[1]
job = open(os.path.join(folder, "job.plist"), "rb").read()
large = open(os.path.join(folder, "large.plist"), "rb").read()
job_value = plistlib.loads(job)

def seconds(statement, repeat):
    timer = timeit.Timer(statement, timer=time.process_time)
    number, _ = timer.autorange()
    return min(timer.repeat(repeat=repeat, number=number)) / number

ours = {entry["name"]: entry["cpu_time"] * {"ns": 1e-9, "us": 1e-6, "ms": 1e-3}[entry["time_unit"]]
        for entry in json.load(open(os.path.join(folder, "results.json")))["benchmarks"]}
times = {
    "read 1 KB job: ours": ours["BM_ReadJob_Ours"],
    "read 1 KB job: libplist plist_from_xml": ours["BM_ReadJob_Libplist"],
    "read 1 KB job: expat raw parse": ours["BM_ReadJob_ExpatRaw"],
    "read 1 KB job: plistlib": seconds(lambda: plistlib.loads(job), 5),
    "write 1 KB job: ours": ours["BM_WriteJob_Ours"],
    "write 1 KB job: libplist plist_to_xml": ours["BM_WriteJob_Libplist"],
    "write 1 KB job: plistlib": seconds(lambda: plistlib.dumps(job_value), 5),
    "read 10 MB: ours": ours["BM_ReadLarge_Ours"],
    "read 10 MB: libplist plist_from_xml": ours["BM_ReadLarge_Libplist"],
    "read 10 MB: expat raw parse": ours["BM_ReadLarge_ExpatRaw"],
    "read 10 MB: plistlib": seconds(lambda: plistlib.loads(large), 3),
}
print("\nsizes: job %d bytes, large %d bytes" % (len(job), len(large)))
for name, value in times.items():
    print("%-42s %12.1f us" % (name, value * 1e6))

def ratio(text, numerator, denominator, target, higher_is_better=True):
    value = times[numerator] / times[denominator]
    met = value >= target if higher_is_better else value <= target
    print("%-58s %7.2f  (target %s %.1f: %s)" % (text, value, ">=" if higher_is_better else "<=", target,
                                                "met" if met else "MISSED"))

print()
ratio("10 MB read: plistlib / ours", "read 10 MB: plistlib", "read 10 MB: ours", 8)
ratio("10 MB read: libplist / ours", "read 10 MB: libplist plist_from_xml", "read 10 MB: ours", 1)
ratio("10 MB read: ours / expat raw parse", "read 10 MB: ours", "read 10 MB: expat raw parse", 1.5, False)
ratio("1 KB job read: libplist / ours", "read 1 KB job: libplist plist_from_xml", "read 1 KB job: ours", 1)
ratio("1 KB job read: plistlib / ours", "read 1 KB job: plistlib", "read 1 KB job: ours", 1)
ratio("1 KB job write: plistlib / ours", "write 1 KB job: plistlib", "write 1 KB job: ours", 1)
ratio("1 KB job write: libplist / ours", "write 1 KB job: libplist plist_to_xml", "write 1 KB job: ours", 1)
PY
