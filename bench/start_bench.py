#!/usr/bin/python3
"""start_bench.py BUILD: from process start to a filled, painted tree on the sample products, against a bare Qt window with
an empty tree view. Needs a display (tools/without-display gives one) and a session bus (dbus-run-session).

Prints a table of both times and the ratio of the medians."""

import os
import shutil
import statistics
import subprocess
import sys
import tempfile
import time

BUILD = os.path.abspath(sys.argv[1])
ROUNDS = 41
LIMIT = 1.8


def timed(command, env):
    """From the start of the process to the line that it prints after its first paint."""
    start = time.monotonic()
    process = subprocess.Popen(command, env=env, stdout=subprocess.PIPE, stderr=subprocess.DEVNULL)
    line = process.stdout.readline()
    taken = time.monotonic() - start
    process.stdout.close()
    process.wait()
    if line.strip() != b"painted":
        sys.exit("%s painted nothing" % command)
    return taken * 1000


def main():
    home = tempfile.mkdtemp(prefix="zb-bench-")
    env = {**os.environ, "HOME": home, "XDG_CONFIG_HOME": home + "/config", "XDG_DATA_HOME": home + "/data",
           "ZORVOBRENDLE_MACHINE_DIR": home + "/machine", "LC_ALL": "C.UTF-8"}
    # The framework component runs already, as on a desktop where an add-in keeps it.
    try:
        subprocess.run([BUILD + "/bin/brendle", "registry", "import", BUILD + "/program/sample.reg"], env=env, check=True)
        program, bare = [], []
        for _ in range(ROUNDS):
            bare.append(timed([BUILD + "/bin/bench_start", "bare"], env))
            program.append(timed([BUILD + "/bin/bench_start", "program"], env))
    finally:
        shutil.rmtree(home, ignore_errors=True)
    print("          median      best")
    print("program  %7.1f ms %7.1f ms" % (statistics.median(program), min(program)))
    print("bare     %7.1f ms %7.1f ms" % (statistics.median(bare), min(bare)))
    ratio = statistics.median(program) / statistics.median(bare)
    print("ratio of the medians: %.2f (at most %.2f)" % (ratio, LIMIT))
    sys.exit(0 if ratio <= LIMIT else 1)


main()
