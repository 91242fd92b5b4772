#!/usr/bin/python3
"""batch_bench.py BUILD: 200 documents of both kinds by `brendle create`, with a client's profile and the add-in, against
one `soffice --convert-to` run over the same templates; and the office's memory after the 20th and after the last.

A conversion takes one kind: the run over both is that over the texts and that over the workbooks less one bare start."""

import os
import subprocess
import sys
import time

sys.path.insert(0, os.path.dirname(os.path.abspath(__file__)))
from create_bench import (conversion, copies, in_a_home, private_environment, selection_of,  # noqa: E402
                          templates, timed)

COUNT = 200
ROUNDS = 3
LIMIT = 1.15
EARLY = 20
MEMORY_LIMIT = 1.3
PROFILE = "ClientName=Alder & Birch\nPeriodEnd=December 31, 2026\nPreparedBy=P. Moss\nReviewedBy=R. Fern\n"


def office_memory(cache):
    """Kilobytes that the office whose settings lie below `cache` holds, or None."""
    for process in filter(str.isdigit, os.listdir("/proc")):
        try:
            with open("/proc/%s/cmdline" % process, "rb") as file:
                if cache.encode() not in file.read():
                    continue
            with open("/proc/%s/status" % process, encoding="ascii") as file:
                for line in file:
                    if line.startswith("VmRSS:"):
                        return int(line.split()[1])
        except OSError:
            continue
    return None


def batch(command, env):
    """Seconds and the office's memory after each document, as far as it could be seen."""
    memory = []
    start = time.monotonic()
    with subprocess.Popen(command, env=env, stdout=subprocess.PIPE, stderr=subprocess.PIPE, text=True) as client:
        for _ in client.stdout:
            at = len(memory) + 1
            memory.append(office_memory(env["XDG_CACHE_HOME"]) if at == EARLY or at > COUNT - 5 else None)
        error = client.stderr.read()
    if client.returncode != 0:
        sys.exit("brendle failed: " + error)
    return time.monotonic() - start, memory


def run(home, build):
    texts = copies(templates(build, ".dot"), COUNT // 2, home + "/templates")
    workbooks = copies(templates(build, ".xlt"), COUNT // 2, home + "/templates", COUNT // 2)
    mixed = [path for pair in zip(texts, workbooks) for path in pair]
    selection = selection_of(mixed, home + "/selection.xml")
    profile = home + "/profile.txt"
    with open(profile, "w", encoding="utf-8") as file:
        file.write(PROFILE)
    env = private_environment(home)
    subprocess.run([build + "/bin/zorvo-companions", "--register"], env={**env, "QT_QPA_PLATFORM": "offscreen"},
                   check=True)
    nothing = ["soffice", "-env:UserInstallation=file://%s/profile" % home, "--headless", "--terminate_after_init"]
    timed(nothing, env)  # the first start makes the settings
    ours, bare, growth = [], [], []
    print("round   brendle create   soffice --convert-to   office after %d   after %d" % (EARLY, COUNT))
    for i in range(ROUNDS):
        made, converted = "%s/made%d" % (home, i), "%s/converted%d" % (home, i)
        seconds, memory = batch([build + "/bin/brendle", "create", "--to", made, "--selection", selection, "--profile",
                                 profile], env)
        ours.append(seconds)
        bare.append(timed(conversion(home, "doc:MS Word 97", converted, texts), env) +
                    timed(conversion(home, "xls:MS Excel 97", converted, workbooks), env) - timed(nothing, env))
        if len(os.listdir(made)) != COUNT or len(os.listdir(converted)) != COUNT:
            sys.exit("not every document was made")
        # The office goes with the last document: what was seen last before that counts.
        late = [kilobytes for kilobytes in memory[-5:] if kilobytes]
        growth.append(late[-1] / memory[EARLY - 1])
        print("%5d   %12.2f s   %18.2f s   %12.1f MB   %6.1f MB" %
              (i + 1, ours[-1], bare[-1], memory[EARLY - 1] / 1024, late[-1] / 1024))
    ratio = min(ours) / min(bare)
    print("ratio of the best: %.2f (at most %.2f)" % (ratio, LIMIT))
    print("growth of the office: %.2f (at most %.2f)" % (max(growth), MEMORY_LIMIT))
    sys.exit(0 if ratio <= LIMIT and max(growth) <= MEMORY_LIMIT else 1)


if __name__ == "__main__":
    in_a_home(run, os.path.abspath(sys.argv[1]))
