"""An ipapp-netconfd of its own for a test or a benchmark: a free port on
127.0.0.1, a temporary state directory, ncclient sessions with the twin's
client key, and a stop by the launcher's process id (SIGTERM, then SIGKILL
after a grace period); the launcher stops its servers by their ids."""

import getpass
import os
import re
import select
import signal
import socket
import subprocess
import tempfile

from ncclient import manager

START_SECONDS = 30
STOP_SECONDS = 15
RPC_SECONDS = 60
NETCONF_BASE = "urn:ietf:params:xml:ns:netconf:base:1.0"


def free_port():
    with socket.socket(socket.AF_INET, socket.SOCK_STREAM) as probe:
        probe.bind(("127.0.0.1", 0))
        return probe.getsockname()[1]


def config_element(path):
    """A configuration file of ours as the <config> of an edit-config."""
    with open(path, encoding="utf-8") as file:
        text = re.sub(r"<!--.*?-->", "", file.read(), flags=re.S)
    return '<config xmlns="%s">%s</config>' % (NETCONF_BASE, text)


class Twin:
    """ipapp-netconfd in a temporary directory, started and ready."""

    def __init__(self, launcher, running, options=()):
        self.directory = tempfile.TemporaryDirectory(prefix="ipapp-twin-")
        self.state = os.path.join(self.directory.name, "state")
        self.port = free_port()
        command = [launcher, "--running", running, "--port", str(self.port),
                   "--state-dir", self.state, *options]
        self.process = subprocess.Popen(command, stdout=subprocess.PIPE,
                                        stderr=subprocess.PIPE, text=True)
        try:
            self.ready_line = self._await_ready()
        except BaseException:
            self.stop()
            raise

    def _await_ready(self):
        readable, _, _ = select.select([self.process.stdout], [], [], START_SECONDS)
        line = self.process.stdout.readline() if readable else ""
        if not line.startswith("ready"):
            raise AssertionError("no ready line within %d s: %r %s" % (
                START_SECONDS, line, self._logs()))
        return line

    def _logs(self):
        texts = []
        for name in ("netconfd.log", "sshd.log"):
            path = os.path.join(self.state, name)
            if os.path.exists(path):
                with open(path, encoding="utf-8", errors="replace") as file:
                    texts.append("%s:\n%s" % (name, file.read()[-3000:]))
        return "\n".join(texts)

    def connect(self):
        return manager.connect(
            host="127.0.0.1", port=self.port, username=getpass.getuser(),
            key_filename=os.path.join(self.state, "client_key"), hostkey_verify=False,
            look_for_keys=False, allow_agent=False, timeout=RPC_SECONDS)

    def stop(self):
        """Returns the launcher's exit status."""
        if self.process.poll() is None:
            self.process.send_signal(signal.SIGTERM)
            try:
                self.process.wait(STOP_SECONDS)
            except subprocess.TimeoutExpired:
                self.process.kill()
                self.process.wait()
        self.process.stdout.close()
        self.process.stderr.close()
        self.directory.cleanup()
        return self.process.returncode
