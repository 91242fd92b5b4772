#!/usr/bin/python3
"""offerings_bench.py BUILD: the offerings form. From opening it to its first page on the screen, against the bare engine's
own first page in a process of its own; and the start and idle memory of the main program, against the same program without
the form. Needs a display (tools/without-display gives one) and a session bus (dbus-run-session).

Prints a table of each and the ratio of the medians."""

import os
import shutil
import statistics
import subprocess
import sys
import tempfile
import time

BUILD = os.path.abspath(sys.argv[1])
PAGE_LIMIT = 1.3
MAIN_LIMIT = 1.05
PAGE = "<!DOCTYPE html><body style='background:#12ab34'>"


def expect(process, line):
    read = process.stdout.readline().strip().decode()
    if read != line:
        sys.exit("%s said %r, not %r" % (process.args, read, line))


def run(command, env, begin=None):
    """Milliseconds from the line `begin` (the start of the process without one) to "painted"; and the line behind it."""
    start = time.monotonic()
    with subprocess.Popen(command, env=env, stdout=subprocess.PIPE, stderr=subprocess.DEVNULL) as process:
        if begin:
            expect(process, begin)
            start = time.monotonic()
        expect(process, "painted")
        taken = (time.monotonic() - start) * 1000
        return taken, process.stdout.readline().strip().decode()


def program_with_green_pages(folder):
    for name in os.listdir(BUILD + "/program"):
        if name not in ("TreeData", "Products"):
            os.symlink(BUILD + "/program/" + name, folder + "/" + name)
    shutil.copytree(BUILD + "/program/TreeData", folder + "/TreeData")
    for name in os.listdir(folder + "/TreeData/HTML"):
        if name.endswith(".htm"):
            with open(folder + "/TreeData/HTML/" + name, "w", encoding="utf-8") as file:
                file.write(PAGE)


def table(title, unit, first, second, limit):
    print(title)
    for name, values in (first, second):
        print("  %-28s median %9.1f %s   best %9.1f %s" % (name, statistics.median(values), unit, min(values), unit))
    ratio = statistics.median(first[1]) / statistics.median(second[1])
    print("  ratio of the medians: %.2f (at most %.2f)" % (ratio, limit))
    return ratio <= limit


def main():
    home = tempfile.mkdtemp(prefix="zb-bench-")
    env = {**os.environ, "HOME": home, "XDG_CONFIG_HOME": home + "/config", "XDG_DATA_HOME": home + "/data",
           "ZORVOBRENDLE_MACHINE_DIR": home + "/machine", "LC_ALL": "C.UTF-8"}
    if os.geteuid() == 0:
        env["QTWEBENGINE_DISABLE_SANDBOX"] = "1"
    try:
        subprocess.run([BUILD + "/bin/brendle", "registry", "import", BUILD + "/program/sample.reg"], env=env, check=True)
        os.makedirs(home + "/program")
        program_with_green_pages(home + "/program")
        green = {**env, "ZORVOBRENDLE_PROGRAM_DIR": home + "/program"}
        form, bare = [], []
        for _ in range(11):
            bare.append(run([BUILD + "/bin/bench_page", home + "/program/TreeData/HTML/CTRT.htm"], env)[0])
            form.append(run([BUILD + "/bin/bench_offerings"], green, "ready")[0])
        starts = {"bench_start": [], "bench_start_without": []}
        memory = {"bench_start": [], "bench_start_without": []}
        for _ in range(41):
            for name, values in starts.items():
                values.append(run([BUILD + "/bin/" + name, "program"], env)[0])
        for _ in range(5):
            for name, values in memory.items():
                values.append(float(run([BUILD + "/bin/" + name, "program", "memory"], env)[1]))
    finally:
        shutil.rmtree(home, ignore_errors=True)
    good = table("first page on the screen", "ms", ("form, from opening it", form), ("bare engine, from its start", bare),
                 PAGE_LIMIT)
    for title, unit, values in (("start of the main program", "ms", starts), ("its idle memory", "kB", memory)):
        good &= table(title, unit, ("with the offerings form", values["bench_start"]),
                      ("without it", values["bench_start_without"]), MAIN_LIMIT)
    sys.exit(0 if good else 1)


main()
