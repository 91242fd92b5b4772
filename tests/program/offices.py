"""What office processes find in files and hold, and one that waits where a test wants it to."""

import os
import subprocess

from session import BUILD, session, wait_for

READER = BUILD + "/tests/program/zorvo-office-reader"
WAITING_ADD_IN = BUILD + "/tests/program/libzorvo-waiting-addin.so"
ADD_IN_CLASSES = ["{F44130A2-C6C3-42BB-8D99-D6456011534B}", "{C6A7C3C7-77DF-40FF-BBD6-875288691224}"]


def convert(form, folder, paths):
    """By an office with settings of its own."""
    subprocess.run(["soffice", "-env:UserInstallation=file://%s/reader" % session.folder, "--headless", "--convert-to",
                    form, "--outdir", folder, *paths], env=session.env, check=True, capture_output=True, timeout=300)


def flat(files, folder):
    """{file name: the document as one XML text}, as the office reads it."""
    texts = {}
    for extension, form in (("DOC", "fodt"), ("XLS", "fods")):
        some = [name for name in files if name.endswith(extension)]
        if some:
            convert(form, session.folder + "/read", [os.path.join(folder, name) for name in some])
        for name in some:
            with open("%s/read/%s.%s" % (session.folder, name.rpartition(".")[0], form), encoding="utf-8") as file:
                texts[name] = file.read()
            os.remove(file.name)
    return texts


class WaitingAddIn:
    """Takes the place of the products' add-in until the next home: the office waits at some documents of a batch,
    counted from 1. Only documents that get a client's data are counted."""

    def __init__(self, *numbers):
        for each in ADD_IN_CLASSES:
            session.brendle("registry", "set", "HKEY_CLASSES_ROOT\\CLSID\\%s\\InprocServer32" % each, "",
                            WAITING_ADD_IN)
        with open(session.home + "/wait-at", "w", encoding="ascii") as file:
            file.write(" ".join(map(str, numbers)))

    def wait_for(self, number):
        stuffed = session.home + "/stuffed"
        wait_for("document %d" % number, lambda: os.path.exists(stuffed) and os.path.getsize(stuffed) == number, 120)

    def kill_office_at(self, number):
        self.wait_for(number)
        (process,) = session.offices(private=True)
        os.kill(process, 9)

    def let_go(self):
        os.remove(session.home + "/wait-at")


class Document:
    def __init__(self):
        self.blocks = []
        self.properties = {}


def office_documents():
    """What the user's office holds; it must be running."""
    pipe = "zb-read-%d" % os.getpid()
    subprocess.run(["soffice", "--accept=pipe,name=%s;urp;" % pipe, "--nologo", "--nodefault"], env=session.env,
                   check=True, timeout=60)

    def read():
        result = subprocess.run([READER, pipe], env=session.env, capture_output=True, text=True, timeout=60)
        return result if result.returncode == 0 else None

    documents = []
    for line in wait_for("the office's answer", read).stdout.splitlines():
        kind, _, text = line.partition(" ")
        if kind == "document":
            documents.append(Document())
        elif kind in ("paragraph", "table"):
            documents[-1].blocks.append((kind, text))
        else:
            documents[-1].properties[kind] = text
    return documents
