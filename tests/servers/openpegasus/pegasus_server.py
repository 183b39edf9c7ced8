# SPDX-License-Identifier: MIT
"""An OpenPegasus server for the tests alone: its own home, its own port on loopback, and, since the
tests run under private-machine, its own /var/tmp. Its programs come from PEGASUS_HOME."""

import os
import pathlib
import shutil
import signal
import socket
import subprocess
import sys
import tempfile
import time

DEVICE_LIST = pathlib.Path("/proc/bus/usb/devices")
SKIPPED = 77
LIBRARY = "libZORVA_UsbHc_DiagProvider.so"


def build_dir():
    return pathlib.Path(os.environ["ZORVA_BUILD_DIR"])


def source_dir():
    return pathlib.Path(__file__).resolve().parents[3]


def skip(reason):
    """Ends the test program in a way that ctest reports as skipped."""
    print(f"SKIPPED: {reason}", file=sys.stderr)
    sys.exit(SKIPPED)


def require_openpegasus():
    """What the tests need, or the end of the test program with the reason."""
    home = os.environ.get("PEGASUS_HOME") or os.environ.get("ZORVA_PEGASUS_HOME", "")
    if not home:
        skip("PEGASUS_HOME names no OpenPegasus installation to test with")
    if not os.access(os.path.join(home, "bin", "cimserver"), os.X_OK):
        skip(f"PEGASUS_HOME={home} holds no bin/cimserver")
    if not (build_dir() / "lib/openpegasus" / LIBRARY).exists():
        skip("the library was not built for OpenPegasus (CMake found no SDK; see PEGASUS_ROOT_DIR)")
    return pathlib.Path(home)


def free_port():
    with socket.socket() as probe:
        probe.bind(("127.0.0.1", 0))
        return probe.getsockname()[1]


def wait_for(condition, what, seconds=30):
    """Until the condition holds; an error naming `what` after so many seconds."""
    deadline = time.monotonic() + seconds
    while not condition():
        if time.monotonic() > deadline:
            raise AssertionError(f"not within {seconds} s: {what}")
        time.sleep(0.01)


class Server:
    """A server with a home made from an installation: programs shared, repository its own."""

    def __init__(self, installation):
        self.root = pathlib.Path(tempfile.mkdtemp(prefix="openpegasus-", dir="/var/tmp"))
        self.home = self.root / "home"
        (self.home / "lib").mkdir(parents=True)
        for library in (installation / "lib").iterdir():
            (self.home / "lib" / library.name).symlink_to(library)
        (self.home / "bin").symlink_to(installation / "bin")
        shutil.copytree(installation / "repository", self.home / "repository")
        for name in ("server.pem", "file.pem", "msg"):
            if (installation / name).exists():
                (self.home / name).symlink_to(installation / name)
        (self.home / "cimserver_planned.conf").touch()
        self.working_directory = self.root / "cwd"
        self.working_directory.mkdir()
        self.port = free_port()
        self.url = f"http://127.0.0.1:{self.port}"
        self.environment = {
            **os.environ, "PEGASUS_HOME": str(self.home),
            "PATH": f"{build_dir() / 'bin'}:{self.home / 'bin'}:{os.environ['PATH']}",
            "LD_LIBRARY_PATH": str(self.home / "lib")}

    def run(self, *command, check=True, text_input=None):
        """A command with this server's tools first on its path; output and status are returned."""
        done = subprocess.run([str(c) for c in command], env=self.environment, text=True,
                              input=text_input if text_input is not None else "",
                              stdout=subprocess.PIPE, stderr=subprocess.STDOUT,
                              cwd=self.working_directory, errors="replace", timeout=300)
        if check and done.returncode != 0:
            raise AssertionError(f"{' '.join(map(str, command))}: status {done.returncode}\n"
                                 f"{done.stdout}")
        return done

    def version(self):
        return self.run("cimserver", "--version").stdout.strip()

    def start(self, out_of_process=False, **configuration):
        """Returns once the server takes requests; the program itself waits for that."""
        settings = {"httpPort": self.port, "enableHttpConnection": "true",
                    "enableHttpsConnection": "false", "listenAddress": "127.0.0.1",
                    "forceProviderProcesses": "true" if out_of_process else "false",
                    **configuration}
        self.run("cimserver", *(f"{name}={value}" for name, value in settings.items()))

    def stop(self):
        self.run("cimserver", "-s")

    def is_running(self):
        return self.run("cimserver", "--status", check=False).returncode == 0

    def namespaces(self):
        """As its repository holds them: not every server lists them."""
        return sorted(entry.name.replace("#", "/") for entry in (self.home / "repository").iterdir()
                      if entry.is_dir())

    def replace_tool(self, name, first):
        """Has a tool run a piece of shell script before it does its work."""
        programs = (self.home / "bin").resolve()
        (self.home / "bin").unlink()
        (self.home / "bin").mkdir()
        for program in programs.iterdir():
            if program.name != name:
                (self.home / "bin" / program.name).symlink_to(program)
        replaced = self.home / "bin" / name
        replaced.write_text(f'#!/bin/sh\n{first}\nexec {programs / name} "$@"\n')
        replaced.chmod(0o755)

    def process_id(self):
        return int(pathlib.Path("/var/tmp", "cimserver_start.conf").read_text().split()[0])

    def provider_process(self):
        """The process that has the library loaded, the server's own or its agent's; or None. Under
        private-machine there are no other servers' processes to be confused with."""
        for entry in pathlib.Path("/proc").iterdir():
            try:
                if entry.name.isdigit() and LIBRARY in (entry / "maps").read_text():
                    return int(entry.name)
            except OSError:
                continue
        return None

    def register(self, *arguments):
        return self.run("usbhcdiag-openpegasus", "register", *arguments)

    def close(self):
        """Away with it, without the patience of an orderly stop."""
        if self.is_running():
            os.kill(self.process_id(), signal.SIGKILL)
            wait_for(lambda: not self.is_running(), "the server is gone")
        shutil.rmtree(self.root)


def resident_kibibytes(process):
    for line in pathlib.Path(f"/proc/{process}/status").read_text().splitlines():
        if line.startswith("VmRSS:"):
            return int(line.split()[1])
    raise AssertionError(f"process {process} is gone")
