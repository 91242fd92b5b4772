#!/usr/bin/python3
"""create_bench.py BUILD: 50 documents by `brendle create` against one `soffice --convert-to` run over the same templates.

Prints a table of both times, in turn and several times over, and the ratio of the best ones."""

import os
import shutil
import subprocess
import sys
import tempfile
import time

COUNT = 50
ROUNDS = 3
LIMIT = 1.15


def templates(build, extension):
    """All sample templates of that extension, each once."""
    found = {}
    for folder, _, files in os.walk(build + "/program/Products"):
        for name in files:
            if name.lower().endswith(extension):
                found.setdefault(name, os.path.join(folder, name))
    return [found[name] for name in sorted(found)]


def copies(sources, count, folder, first=0):
    """`count` copies of the sources in turn, each under a name of its own."""
    os.makedirs(folder, exist_ok=True)
    paths = []
    for i in range(count):
        source = sources[i % len(sources)]
        paths.append(os.path.join(folder, "T%03d%s" % (first + i, os.path.splitext(source)[1])))
        shutil.copy(source, paths[-1])
    return paths


def selection_of(paths, target):
    """A selection document of the templates, as a partner's session hands it over."""
    with open(target, "w", encoding="utf-8") as file:
        file.write("<Documents>" + "".join(
            "<Document><Title><![CDATA[%s]]></Title><FileName><![CDATA[Z:%s]]></FileName><Type><![CDATA[TSR]]></Type>"
            "<Year><![CDATA[2007]]></Year></Document>" % (os.path.basename(path), path.replace("/", "\\"))
            for path in paths) + "</Documents>")
    return target


def private_environment(home):
    env = {**os.environ, "HOME": home, "XDG_CONFIG_HOME": home + "/config", "XDG_DATA_HOME": home + "/data",
           "XDG_CACHE_HOME": home + "/cache", "XDG_RUNTIME_DIR": home + "/run",
           "ZORVOBRENDLE_MACHINE_DIR": home + "/machine", "LC_ALL": "C.UTF-8"}
    os.makedirs(home + "/run", mode=0o700, exist_ok=True)
    os.makedirs(home + "/machine", exist_ok=True)
    for variable in ("DISPLAY", "DBUS_SESSION_BUS_ADDRESS"):
        env.pop(variable, None)
    return env


def timed(command, env):
    start = time.monotonic()
    result = subprocess.run(command, env=env, capture_output=True, text=True)
    if result.returncode != 0:
        sys.exit("%s failed: %s%s" % (command[0], result.stdout[-500:], result.stderr[-500:]))
    return time.monotonic() - start


def conversion(home, form, target, paths):
    return ["soffice", "-env:UserInstallation=file://%s/profile" % home, "--headless", "--convert-to", form, "--outdir",
            target, *paths]


def in_a_home(run, *arguments):
    home = tempfile.mkdtemp(prefix="zb-bench-")
    try:
        run(home, *arguments)
    finally:
        shutil.rmtree(home)


def run(home, build):
    paths = copies(templates(build, ".dot"), COUNT, home + "/templates")
    selection = selection_of(paths, home + "/selection.xml")
    env = private_environment(home)
    ours, bare = [], []
    print("round   brendle create   soffice --convert-to")
    for i in range(ROUNDS):
        made, converted = "%s/made%d" % (home, i), "%s/converted%d" % (home, i)
        ours.append(timed([build + "/bin/brendle", "create", "--to", made, "--selection", selection], env))
        bare.append(timed(conversion(home, "doc:MS Word 97", converted, paths), env))
        if len(os.listdir(made)) != COUNT or len(os.listdir(converted)) != COUNT:
            sys.exit("not every document was made")
        print("%5d   %12.2f s   %18.2f s" % (i + 1, ours[-1], bare[-1]))
    ratio = min(ours) / min(bare)
    print("ratio of the best: %.2f (at most %.2f)" % (ratio, LIMIT))
    sys.exit(0 if ratio <= LIMIT else 1)


if __name__ == "__main__":
    in_a_home(run, os.path.abspath(sys.argv[1]))
