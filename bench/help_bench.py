#!/usr/bin/python3
"""help_bench.py BUILD: from process start to the help viewer's painted contents and page, on the sample help file, against
a bare Qt window of the same size. Needs a display (tools/without-display gives one) and a session bus (dbus-run-session).

Prints a table of both times and the ratio of the medians."""

import os
import statistics
import subprocess
import sys
import time

BUILD = os.path.abspath(sys.argv[1])
ROUNDS = 25
LIMIT = 2.0


def timed(*arguments):
    """From the start of the process to the line that it prints after its first paint, in milliseconds."""
    start = time.monotonic()
    process = subprocess.Popen([BUILD + "/bin/bench_help", *arguments], stdout=subprocess.PIPE, stderr=subprocess.DEVNULL)
    line = process.stdout.readline()
    taken = time.monotonic() - start
    process.stdout.close()
    process.wait()
    if line.strip() != b"painted":
        sys.exit("bench_help %s painted nothing" % " ".join(arguments))
    return taken * 1000


def main():
    viewer, bare = [], []
    for _ in range(ROUNDS):
        bare.append(timed("bare"))
        viewer.append(timed("viewer", BUILD + "/program/QBK_HELP.chm"))
    print("          median      best")
    print("viewer   %7.1f ms %7.1f ms" % (statistics.median(viewer), min(viewer)))
    print("bare     %7.1f ms %7.1f ms" % (statistics.median(bare), min(bare)))
    ratio = statistics.median(viewer) / statistics.median(bare)
    print("ratio of the medians: %.2f (at most %.2f)" % (ratio, LIMIT))
    sys.exit(0 if ratio <= LIMIT else 1)


main()
