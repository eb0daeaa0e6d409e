"""Runs measinfo on a pseudo-terminal and on a pipe: which colours and blocks does it show?

usage: terminal_test.py MEASINFO CHART
"""

import os
import pty
import subprocess
import sys


def terminal_output(command, environment):
    reader, terminal = pty.openpty()
    with subprocess.Popen(command, env=environment, stdout=terminal):
        os.close(terminal)
        output = b""
        try:
            while part := os.read(reader, 65536):
                output += part
        except OSError:
            pass  # the end on Linux
    os.close(reader)
    return output.decode()


def pipe_output(command, environment):
    done = subprocess.run(command, env=environment, capture_output=True, check=False)
    return done.stdout.decode()


GOOD = {"TERM": "xterm-256color", "COLORTERM": "truecolor", "NO_COLOR": "",
        "LC_ALL": "", "LC_CTYPE": "", "LANG": "C.UTF-8"}
PAPER = "48;2;242;244;247m  "  # the colour that the line of the paper tells
CASES = [  # environment, options, how to run; escapes of colours or none, whether there are blocks
    ({}, [], terminal_output, PAPER, True),
    ({"NO_COLOR": "1"}, [], terminal_output, None, True),
    ({"NO_COLOR": "1"}, ["--color"], terminal_output, PAPER, True),
    ({}, ["--color=always", "--color=never"], terminal_output, None, True),
    ({"COLORTERM": ""}, [], terminal_output, "48;5;231m  ", True),
    ({"COLORTERM": "", "TERM": "xterm-direct"}, [], terminal_output, PAPER, True),
    ({"COLORTERM": "", "TERM": "vt100"}, [], terminal_output, None, True),
    ({"TERM": "dumb"}, [], terminal_output, None, True),
    ({"LC_ALL": "C"}, [], terminal_output, PAPER, False),
    ({}, [], pipe_output, None, False),
    ({}, ["--color=always"], pipe_output, PAPER, False),
    ({}, ["--color=auto", "--all"], pipe_output, None, False),
]

measinfo, chart = sys.argv[1:]
faults = []
for environment, options, run, colour, has_blocks in CASES:
    output = run([measinfo, *options, chart], {**os.environ, **GOOD, **environment})
    if "#F2F4F7" not in output:
        faults.append((environment, options, "no paper"))
    if ("\x1b" in output) != bool(colour) or (colour and colour not in output):
        faults.append((environment, options, "colours"))
    if any("\u2581" <= character <= "\u2588" for character in output) != has_blocks:
        faults.append((environment, options, "blocks"))
for word in ("--color=maybe", "--all=1"):
    if subprocess.run([measinfo, word, chart], capture_output=True, check=False).returncode != 2:
        faults.append((word, "accepted"))
sys.exit("\n".join(map(str, faults)) or 0)
