# SPDX-License-Identifier: MIT
"""The part of serve that runs on the private machine."""

import pathlib
import signal
import sys

from pegasus_server import DEVICE_LIST, Server, require_openpegasus

installation = require_openpegasus()
DEVICE_LIST.write_bytes(pathlib.Path(sys.argv[1]).read_bytes())
server = Server(installation)
server.start()
server.register("--devices", sys.argv[1])
print(f"listening on {server.url}", flush=True)
signal.pause()
