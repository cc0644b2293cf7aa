"""Time per <commit> of the NETCONF twin, refused and accepted, with the
plug-in's commit hook and without it (netconfd alone, --no-hook), at the
examples' size and on the generated device at 1x. Each sample is one
edit-config of the whole candidate (not timed) followed by the timed
commit; an accepted commit is then undone by committing the running
configuration again, a refused one by discard-changes. Without the hook the
refused candidate commits too: that is netconfd's own commit of the same
data. With the hook, the hook's own time per timed commit is read from
netconfd's log, where the hook writes it.

usage: python3 bench/twin_benchmark.py BUILD_DIR [--runs N]
"""

import argparse
import os
import re
import statistics
import subprocess
import sys
import tempfile
import time

sys.path.insert(0, os.path.join(os.path.dirname(__file__), "..", "twin", "python"))
from ncclient.operations import RPCError  # noqa: E402
from twin_process import Twin, config_element  # noqa: E402

EXAMPLES = os.path.join(os.path.dirname(__file__), "..", "examples")

# The generated device at 1x, and one route fewer (accepted) or more (over
# the route budget: refused) than it has.
DEVICE_1X = {
    "running": ["--scale=1"],
    "accepted": ["--scale=1", "--ipv4-routes=499"],
    "refused": ["--scale=1", "--ipv4-routes=501"],
}


def generate_device(generator, directory):
    files = {}
    for role, options in DEVICE_1X.items():
        files[role] = os.path.join(directory, role + ".xml")
        subprocess.run([generator, "--device=" + files[role], *options], check=True,
                       stdout=subprocess.DEVNULL)
    return files


class HookLog:
    """The hook's times that netconfd's log gained since the last look."""

    LINE = re.compile(r"ipapp-twin: \S+ in ([0-9.]+) ms")

    def __init__(self, state_dir):
        self.path = os.path.join(state_dir, "netconfd.log")
        self.offset = os.path.getsize(self.path)

    def new_times(self):
        with open(self.path, encoding="utf-8", errors="replace") as file:
            file.seek(self.offset)
            text = file.read()
            self.offset = file.tell()
        return [float(ms) for ms in self.LINE.findall(text)]


def timed_commit(session, candidate):
    """The commit's wall time in ms, and whether it was refused."""
    session.edit_config(target="candidate", config=candidate, default_operation="replace")
    start = time.perf_counter()
    try:
        session.commit()
        refused = False
    except RPCError:
        refused = True
    elapsed = (time.perf_counter() - start) * 1000
    if refused:
        session.discard_changes()
    return elapsed, refused


def median_or_none(values):
    return statistics.median(values) if values else None


class Sampler:
    """One twin and what its timed commits came to, per candidate."""

    def __init__(self, launcher, files, options):
        self.twin = Twin(launcher, files["running"], options)
        self.session = self.twin.connect()
        self.log = HookLog(self.twin.state)
        self.running = config_element(files["running"])
        self.times = {}
        self.hook_times = {}
        self.outcomes = {}

    def sample(self, role, candidate):
        elapsed, refused = timed_commit(self.session, candidate)
        self.times.setdefault(role, []).append(elapsed)
        self.hook_times.setdefault(role, []).extend(self.log.new_times())
        self.outcomes.setdefault(role, set()).add("refused" if refused else "committed")
        if not refused:
            timed_commit(self.session, self.running)
            self.log.new_times()

    def result(self, role):
        times = self.times[role]
        return (statistics.median(times), min(times), median_or_none(self.hook_times[role]),
                "/".join(sorted(self.outcomes[role])))

    def stop(self):
        try:
            self.session.close_session()
        finally:
            self.twin.stop()


def measure(launcher, files, runs):
    """With and without the hook, sample by sample in turn, so that both
    meet the same load of the machine."""
    samplers = {}
    try:
        for hook, options in (("with", []), ("without", ["--no-hook"])):
            samplers[hook] = Sampler(launcher, files, options)
        for role in ("refused", "accepted"):
            candidate = config_element(files[role])
            for _ in range(runs):
                for sampler in samplers.values():
                    sampler.sample(role, candidate)
        return {hook: {role: sampler.result(role) for role in ("refused", "accepted")}
                for hook, sampler in samplers.items()}
    finally:
        for sampler in samplers.values():
            sampler.stop()


def main():
    parser = argparse.ArgumentParser()
    parser.add_argument("build_dir")
    parser.add_argument("--runs", type=int, default=20)
    args = parser.parse_args()
    launcher = os.path.join(args.build_dir, "tools", "ipapp-netconfd")
    generator = os.path.join(args.build_dir, "bench", "ipapp-generate-config")
    with tempfile.TemporaryDirectory(prefix="ipapp-twin-bench-") as directory:
        sizes = {
            "examples": {
                "running": os.path.join(EXAMPLES, "running.xml"),
                "accepted": os.path.join(EXAMPLES, "candidate-accepted.xml"),
                "refused": os.path.join(EXAMPLES, "candidate-refused.xml"),
            },
            "device 1x": generate_device(generator, directory),
        }
        print("commit as the client sees it (median, min) and the hook's own time (median)")
        print("%-10s %-9s %-9s %10s %8s %8s  %s" % ("size", "hook", "candidate", "median ms",
                                                  "min ms", "hook ms", "outcome"))
        for size, files in sizes.items():
            for hook, results in measure(launcher, files, args.runs).items():
                for role, (median, fastest, hook_ms, outcome) in results.items():
                    print("%-10s %-9s %-9s %10.1f %8.1f %8s  %s" % (
                        size, hook, role, median, fastest,
                        "-" if hook_ms is None else "%.1f" % hook_ms, outcome))
                    sys.stdout.flush()


if __name__ == "__main__":
    main()
