#!/usr/bin/python3
"""create_bench.py BUILD: 50 documents by `brendle create` against one `soffice --convert-to` run over the same templates.

Prints a table of both times, in turn and several times over, and the ratio of the best ones."""

import os
import shutil
import subprocess
import sys
import tempfile
import time

BUILD = os.path.abspath(sys.argv[1])
COUNT = 50
ROUNDS = 3
LIMIT = 1.15


def templates():
    found = []
    for folder, _, files in os.walk(BUILD + "/program/Products"):
        found += [os.path.join(folder, name) for name in files if name.lower().endswith(".dot")]
    return sorted(found)


def timed(command, env):
    start = time.monotonic()
    result = subprocess.run(command, env=env, capture_output=True, text=True)
    if result.returncode != 0:
        sys.exit("%s failed: %s%s" % (command[0], result.stdout[-500:], result.stderr[-500:]))
    return time.monotonic() - start


def main():
    home = tempfile.mkdtemp(prefix="zb-bench-")
    try:
        run(home)
    finally:
        shutil.rmtree(home)


def run(home):
    source = os.path.join(home, "templates")
    os.mkdir(source)
    found = templates()
    paths = []
    for i in range(COUNT):
        paths.append(os.path.join(source, "T%02d.dot" % i))
        shutil.copy(found[i % len(found)], paths[-1])
    selection = os.path.join(home, "selection.xml")
    with open(selection, "w", encoding="utf-8") as file:
        file.write("<Documents>" + "".join(
            "<Document><Title><![CDATA[T%02d]]></Title><FileName><![CDATA[Z:%s]]></FileName><Type><![CDATA[TSR]]></Type>"
            "<Year><![CDATA[2007]]></Year></Document>" % (i, path.replace("/", "\\"))
            for i, path in enumerate(paths)) + "</Documents>")
    env = {**os.environ, "HOME": home, "XDG_CONFIG_HOME": home + "/config", "XDG_DATA_HOME": home + "/data",
           "XDG_CACHE_HOME": home + "/cache", "ZORVOBRENDLE_MACHINE_DIR": home + "/machine", "LC_ALL": "C.UTF-8"}
    for variable in ("DISPLAY", "DBUS_SESSION_BUS_ADDRESS"):
        env.pop(variable, None)
    ours, bare = [], []
    print("round   brendle create   soffice --convert-to")
    for i in range(ROUNDS):
        made, converted = "%s/made%d" % (home, i), "%s/converted%d" % (home, i)
        ours.append(timed([BUILD + "/bin/brendle", "create", "--to", made, "--selection", selection], env))
        bare.append(timed(["soffice", "-env:UserInstallation=file://%s/profile" % home, "--headless", "--convert-to",
                           "doc:MS Word 97", "--outdir", converted, *paths], env))
        if len(os.listdir(made)) != COUNT or len(os.listdir(converted)) != COUNT:
            sys.exit("not every document was made")
        print("%5d   %12.2f s   %18.2f s" % (i + 1, ours[-1], bare[-1]))
    ratio = min(ours) / min(bare)
    print("ratio of the best: %.2f (at most %.2f)" % (ratio, LIMIT))
    sys.exit(0 if ratio <= LIMIT else 1)


main()
