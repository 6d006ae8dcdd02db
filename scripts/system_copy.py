"""A throwaway copy of this system for the package's tests: in a private mount namespace, /usr,
/etc and /var get an overlay whose upper layer is a tmpfs, so that dpkg, apt and their scripts
write only there and everything vanishes with the namespace. The machine itself is not changed.
(/bin, /lib and /sbin are links into /usr on Debian 12, and no package puts files elsewhere.)"""

import fcntl
import os
import shutil
import subprocess
import sys
import tempfile

OVERLAID = ('/usr', '/etc', '/var')
# Set in the namespace's environment: the scratch folder made outside it.
SCRATCH_IN_NAMESPACE = 'VORNIX_SYSTEM_COPY_SCRATCH'


class NeedsRoot(Exception):
    pass


def scratch_in_namespace():
    """The scratch folder when this process runs in the private namespace, else None."""
    return os.environ.get(SCRATCH_IN_NAMESPACE)


def run_in_private_namespace(script, arguments):
    """Runs `script` again in a private mount namespace, with a scratch folder that outlives the
    namespace's mounts and is removed after it ends; returns its exit status."""
    if os.geteuid() != 0:
        raise NeedsRoot('a copy of the system needs root for a private mount namespace')
    scratch = tempfile.mkdtemp(prefix='vornix-system-copy-')
    try:
        os.chmod(scratch, 0o755)  # apt's download user reads packages from there
        environment = dict(os.environ, **{SCRATCH_IN_NAMESPACE: scratch})
        return subprocess.run(['unshare', '--mount', '--propagation', 'private', '--', sys.executable,
                               os.path.abspath(script), *arguments], env=environment).returncode
    finally:
        shutil.rmtree(scratch, ignore_errors=True)


def overlay_system(layers):
    os.makedirs(layers)
    subprocess.run(['mount', '-t', 'tmpfs', 'vornix-system-copy', layers], check=True)
    # The copy starts from a package database at rest: while the machine's own apt or dpkg runs
    # (it holds the front-end lock), the overlays wait.
    with open('/var/lib/dpkg/lock-frontend', 'a') as lock:
        fcntl.lockf(lock, fcntl.LOCK_EX)
        for folder in OVERLAID:
            name = folder.strip('/')
            upper, work = os.path.join(layers, name, 'upper'), os.path.join(layers, name, 'work')
            os.makedirs(upper)
            os.makedirs(work)
            subprocess.run(['mount', '-t', 'overlay', 'vornix-system-copy', '-o',
                            f'lowerdir={folder},upperdir={upper},workdir={work}', folder], check=True)
