# SPDX-License-Identifier: MIT
"""Programs in namespaces of their own, for tests that need another machine around them."""
import shutil
import subprocess
import sys

SKIPPED = 77
# Seconds. Sanitizers and load slow everything down; nothing waits that long unless something hangs.
PATIENCE = 60


def in_namespaces(user_namespace, script, *words):
    """Runs a shell script with mounts of its own; in a user namespace, too, where that is asked for."""
    unshare = ["unshare", "--mount"] + (["--user", "--map-root-user"] if user_namespace else [])
    return subprocess.run(unshare + ["sh", "-ec", script, "sh", *words], stdin=subprocess.DEVNULL,
                          stdout=subprocess.PIPE, stderr=subprocess.PIPE, text=True, timeout=PATIENCE,
                          check=False)


def require_namespaces():
    """Ends this program as skipped where there are no namespaces."""
    missing = [tool for tool in ("unshare", "setpriv") if not shutil.which(tool)]
    if missing:
        print("skipped: this machine lacks", ", ".join(missing))
        sys.exit(SKIPPED)
    if in_namespaces(True, "true").returncode != 0:
        print("skipped: no user namespaces here")
        sys.exit(SKIPPED)
