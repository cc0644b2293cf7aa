"""The NETCONF twin end to end: ipapp-netconfd on a free port in a temporary
directory, driven by ncclient over SSH as an operator's client would.

Each example candidate is sent whole (edit-config, default-operation
replace) and committed: a refused one fails with the plug-in's text and
leaves running as it was; the accepted one reaches running. A plug-in that
crashes refuses the commit with the crash's cause; a second session meets
the first one's lock; a hundred refused commits in a row leave the server
serving. Every twin started here is stopped by its process id, also when a
case fails.

Exit status 77 (skipped) only when the NETCONF packages are not installed.
"""

import argparse
import os
import socket
import subprocess
import sys
import tempfile
import time
import unittest

try:
    from ncclient.operations import RPCError
except ImportError:
    print("skipped: python3-ncclient is not installed", file=sys.stderr)
    sys.exit(77)

sys.path.insert(0, os.path.join(os.path.dirname(__file__), "..", "..", "twin", "python"))
from twin_process import Twin, config_element, free_port  # noqa: E402

REFUSALS_IN_A_ROW = 100
REFUSALS_SECONDS = 120

ARGS = None


def expected_outcome(path):
    """The verdict and the exact text of an example's .expected file."""
    with open(path, encoding="utf-8") as file:
        verdict, _, text = file.read().partition("\n")
    return verdict, text.rstrip("\n")


def running_xml(session):
    return session.get_config(source="running").data_xml


class CommitRefusal:
    """What a refused commit's rpc-error must be, checked in one place."""

    @staticmethod
    def check(test, error, app_tag, message=None, message_start=None):
        test.assertEqual(error.type, "application")
        test.assertEqual(error.tag, "operation-failed")
        test.assertEqual(error.app_tag, app_tag)
        if message is not None:
            test.assertEqual(error.message, message)
        if message_start is not None:
            test.assertTrue(error.message.startswith(message_start), error.message)


class DeviceTwin(unittest.TestCase):
    """The bundled plug-in on the example device. Cases run in name order:
    the accepted example changes running, so it comes last."""

    @classmethod
    def setUpClass(cls):
        cls.twin = Twin(ARGS.launcher, os.path.join(ARGS.examples, "running.xml"))
        cls.addClassCleanup(cls._stop_twin)
        cls.session = cls.twin.connect()
        cls.addClassCleanup(cls.session.close_session)
        cls.initial_running = running_xml(cls.session)

    @classmethod
    def _stop_twin(cls):
        status = cls.twin.stop()
        if status != 0:
            raise AssertionError("ipapp-netconfd exited with status %r on SIGTERM" % status)

    def examples(self, verdict):
        for name in sorted(os.listdir(ARGS.examples)):
            if name.startswith("candidate-") and name.endswith(".xml"):
                path = os.path.join(ARGS.examples, name)
                expected = expected_outcome(path[:-len(".xml")] + ".expected")
                if expected[0] == verdict:
                    yield name, path, expected[1]

    def edit(self, path):
        self.session.edit_config(target="candidate", config=config_element(path),
                                 default_operation="replace")

    def edit_and_commit(self, path):
        self.edit(path)
        self.session.commit()

    def assert_refused(self, path, **refusal):
        """<validate> of the candidate and <commit> give the same refusal."""
        self.edit(path)
        for operation in (lambda: self.session.validate(source="candidate"),
                          self.session.commit):
            with self.assertRaises(RPCError) as raised:
                operation()
            CommitRefusal.check(self, raised.exception, **refusal)
        self.assertEqual(running_xml(self.session), self.initial_running)
        self.session.discard_changes()
        self.assertEqual(self.session.get_config(source="candidate").data_xml,
                         self.initial_running)

    def test_1_refused_examples_give_the_plugins_text(self):
        refused = list(self.examples("refused"))
        self.assertGreater(len(refused), 0)
        for name, path, text in refused:
            with self.subTest(example=name):
                self.assert_refused(path, app_tag="ipapp-refused", message=text)

    def test_2_second_session_meets_the_lock(self):
        with self.session.locked("candidate"):
            other = self.twin.connect()
            try:
                with self.assertRaises(RPCError) as raised:
                    other.lock("candidate")
                self.assertEqual(raised.exception.tag, "lock-denied")
                with self.assertRaises(RPCError) as raised:
                    other.edit_config(target="candidate", default_operation="replace",
                                      config=config_element(
                                          os.path.join(ARGS.examples, "running.xml")))
                self.assertIn(raised.exception.tag, ("lock-denied", "in-use"))
            finally:
                other.close_session()

    def test_3_hundred_refused_commits_leave_it_serving(self):
        _, path, text = next(self.examples("refused"))
        start = time.monotonic()
        for _ in range(REFUSALS_IN_A_ROW):
            with self.assertRaises(RPCError) as raised:
                self.edit_and_commit(path)
            self.assertEqual(raised.exception.message, text)
            self.session.discard_changes()
            self.assertLess(time.monotonic() - start, REFUSALS_SECONDS)
        self.assertEqual(running_xml(self.session), self.initial_running)
        self.assertIsNone(self.twin.process.poll())

    def test_4_accepted_example_commits(self):
        accepted = list(self.examples("accepted"))
        self.assertEqual(len(accepted), 1)
        name, path, _ = accepted[0]
        self.edit(path)
        self.session.validate(source="candidate")
        # netconfd commits nothing after a <validate> of the candidate
        # until the candidate is edited again.
        self.session.discard_changes()
        self.edit_and_commit(path)
        candidate = self.session.get_config(source="candidate").data_xml
        running = running_xml(self.session)
        self.assertEqual(running, candidate, name)
        self.assertNotEqual(running, self.initial_running, name)


class CrashingPluginTwin(unittest.TestCase):
    """The tests' plug-in, which aborts on an interface named "abort": the
    commit is refused as unchecked, with the crash's cause."""

    def test_crash_refuses_the_commit_with_its_cause(self):
        twin = Twin(ARGS.launcher, ARGS.crash_running, ["--plugin", ARGS.test_plugin])
        self.addCleanup(twin.stop)
        session = twin.connect()
        self.addCleanup(session.close_session)
        before = running_xml(session)
        session.edit_config(target="candidate", config=config_element(ARGS.crash_candidate),
                            default_operation="replace")
        with self.assertRaises(RPCError) as raised:
            session.commit()
        CommitRefusal.check(
            self, raised.exception, app_tag="ipapp-unchecked",
            message_start="configuration not checked, so refused: the plug-in ended without "
                          "a verdict in validate_ipv6_nd_ra_interval /config/interface/l3{abort}/ipv6/nd/ra: "
                          "killed by signal 6 (Aborted)")
        self.assertEqual(running_xml(session), before)
        self.assertIsNone(twin.process.poll())


class LauncherBadInput(unittest.TestCase):
    """Bad usage and bad input: one line on stderr naming the file or option
    and the problem, exit status 2, no server started."""

    def run_launcher(self, arguments):
        return subprocess.run([ARGS.launcher, *arguments], capture_output=True, text=True,
                              timeout=30)

    def test_bad_input_is_one_line_and_status_2(self):
        with tempfile.TemporaryDirectory(prefix="ipapp-twin-bad-") as directory, \
                socket.socket(socket.AF_INET, socket.SOCK_STREAM) as taken:
            taken.bind(("127.0.0.1", 0))
            taken.listen()
            busy_port = str(taken.getsockname()[1])
            running = os.path.join(ARGS.examples, "running.xml")
            state = os.path.join(directory, "state")
            missing = os.path.join(directory, "missing.xml")
            off_model = os.path.join(directory, "off-model.xml")
            with open(off_model, "w", encoding="utf-8") as file:
                file.write('<config xmlns="urn:ipapp:yang:device-config"><bogus/></config>\n')
            port = str(free_port())
            common = ["--port", port, "--state-dir", state]
            rows = [
                (common,
                 "--running, --port and --state-dir are required (see --help)"),
                (["--running", running, "--port", "65536", "--state-dir", state],
                 "--port takes a TCP port from 1 to 65535, not '65536' (see --help)"),
                (["--running", running, "--running", running] + common,
                 "--running given twice (see --help)"),
                (["--running", running, "--colour", "red"] + common,
                 "unknown option '--colour' (see --help)"),
                (["--running", missing] + common,
                 missing + ": cannot read: No such file or directory"),
                (["--running", off_model] + common,
                 off_model + ": Node \"bogus\" not found as a child of \"config\" node."),
                (["--running", running, "--plugin", missing] + common,
                 "cannot load the plug-in: " + missing + ": cannot open shared object file"),
                (["--running", running, "--port", port, "--state-dir",
                  os.path.join(missing, "state")],
                 os.path.join(missing, "state") + ": cannot make the state directory: "
                 "No such file or directory"),
                (["--running", running, "--port", busy_port, "--state-dir", state],
                 "127.0.0.1:" + busy_port + " cannot be used: Address already in use"),
            ]
            for arguments, message in rows:
                with self.subTest(arguments=arguments):
                    result = self.run_launcher(arguments)
                    self.assertEqual(result.returncode, 2)
                    self.assertEqual(result.stdout, "")
                    self.assertEqual(result.stderr.count("\n"), 1, result.stderr)
                    self.assertTrue(result.stderr.startswith("ipapp-netconfd: " + message),
                                    result.stderr)


def main():
    global ARGS
    parser = argparse.ArgumentParser()
    for option in ("--launcher", "--examples", "--test-plugin", "--crash-running",
                   "--crash-candidate"):
        parser.add_argument(option, required=True)
    ARGS, rest = parser.parse_known_args()
    for program in ("/usr/sbin/netconfd", "/usr/sbin/sshd", "/usr/sbin/netconf-subsystem"):
        if not os.access(program, os.X_OK):
            print("skipped: %s is not installed" % program, file=sys.stderr)
            return 77
    program = unittest.main(argv=[sys.argv[0]] + rest, exit=False, verbosity=2)
    return 0 if program.result.wasSuccessful() else 1


if __name__ == "__main__":
    sys.exit(main())
