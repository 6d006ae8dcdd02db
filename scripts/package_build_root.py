#!/usr/bin/python3
"""Builds the Debian package as Debian's build daemons do, so that a build dependency missing
from debian/control fails here and not on someone else's machine: in a throwaway copy of this
system (system_copy) cut down to the essential and required packages, build-essential and the
package's Build-Depends (with the test-only ones), `dpkg-buildpackage -b -us -uc` with the
package's own tests.
    package_build_root.py TREE [JOBS]   (as root; TREE is a copy of the source; the package lands
                                        beside it)"""

import os
import re
import signal
import subprocess
import sys

from system_copy import NeedsRoot, overlay_system, run_in_private_namespace, scratch_in_namespace


def step(text):
    print(f'package build root: {text}', flush=True)


def output(argv):
    return subprocess.run(argv, check=True, text=True, capture_output=True).stdout


def build_dependencies(control):
    """The package names of the source's Build-Depends, test-only ones included: the first of
    each set of alternatives, without versions, architectures and build profiles."""
    with open(control) as text:
        source = text.read().split('\n\n', 1)[0]
    field = re.search(r'^Build-Depends:(.*(?:\n[ \t].*)*)', source, re.MULTILINE)
    names = []
    for relation in field.group(1).split(','):
        first = relation.split('|', 1)[0].strip()
        if first:
            names.append(re.match(r'[a-z0-9][a-z0-9+.-]*', first).group(0))
    return names


def cut_down_to_build_root(control):
    """Leaves only what a build daemon's system has: essential and required packages,
    build-essential and the Build-Depends, with what they depend on."""
    installed = output(['dpkg-query', '-W', '-f=${db:Status-Status}\t${Package}\t${Essential}\t${Priority}\t${Provides}\n'])
    needed = {'build-essential', *build_dependencies(control)}
    everything, kept = [], []
    for line in installed.splitlines():
        status, package, essential, priority, provides = line.split('\t')
        if status != 'installed':
            continue
        everything.append(package)
        # A virtual build dependency (debhelper-compat) is kept through the package providing it.
        provided = {name.strip().split(' ')[0] for name in provides.split(',') if name.strip()}
        if essential == 'yes' or priority == 'required' or package in needed or provided & needed:
            kept.append(package)
    # Package scripts must not start or stop the machine's services from inside the copy.
    with open('/usr/sbin/policy-rc.d', 'w') as policy:
        policy.write('#!/bin/sh\nexit 101\n')
    os.chmod('/usr/sbin/policy-rc.d', 0o755)
    output(['apt-mark', 'auto', *everything])
    output(['apt-mark', 'manual', *kept])
    # sudo's removal script refuses while root has no password (a machine with a desktop
    # installed has sudo); in this throwaway copy nobody needs it.
    environment = dict(os.environ, DEBIAN_FRONTEND='noninteractive', SUDO_FORCE_REMOVE='yes')
    subprocess.run(['apt-get', '-y', '-q', 'autoremove', '--purge',
                    '-o', 'APT::AutoRemove::RecommendsImportant=false',
                    '-o', 'APT::AutoRemove::SuggestsImportant=false'],
                   check=True, stdout=subprocess.DEVNULL, env=environment)
    left = output(['dpkg-query', '-W', '-f=${db:Status-Status}\n']).split().count('installed')
    step(f'{left} of {len(everything)} packages left: essential, required, build-essential, Build-Depends')


def main():
    tree = os.path.abspath(sys.argv[1])
    jobs = sys.argv[2] if len(sys.argv) > 2 else '2'
    scratch = scratch_in_namespace()
    if not scratch:
        return run_in_private_namespace(__file__, [tree, jobs])
    overlay_system(os.path.join(scratch, 'layers'))
    cut_down_to_build_root(os.path.join(tree, 'debian', 'control'))
    step('dpkg-buildpackage -b -us -uc, with the tests')
    environment = dict(os.environ, DEB_BUILD_OPTIONS=f'parallel={jobs}')
    return subprocess.run(['dpkg-buildpackage', '-b', '-us', '-uc'], cwd=tree, env=environment).returncode


if __name__ == '__main__':
    signal.signal(signal.SIGTERM, signal.default_int_handler)
    try:
        sys.exit(main())
    except NeedsRoot as error:
        print(f'package build root: cannot run here: {error}', flush=True)
        sys.exit(77)
