#!/usr/bin/python3
"""Stands for a reader that falls over one page of its book: asked for anything with "two" in its path, it crashes."""

import os
import signal
import struct
import sys


def answer(state, data=b""):
    sys.stdout.buffer.write(state + struct.pack("<I", len(data)) + data)
    sys.stdout.buffer.flush()


answer(b"d")
while header := sys.stdin.buffer.read(5):
    kind, length = header[:1], struct.unpack("<I", header[1:])[0]
    path = sys.stdin.buffer.read(length)
    if b"two" in path:
        os.kill(os.getpid(), signal.SIGKILL)
    if kind == b"L":
        answer(b"d", b"/one.htm\n/two.htm\n")
    elif path == b"/one.htm":
        answer(b"d", b"<p>one</p>")
    else:
        answer(b"m")
