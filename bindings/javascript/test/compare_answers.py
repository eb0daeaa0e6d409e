"""Compares what Node answers about files, and about files broken from them, with what Python does.

usage: compare_answers.py FILE...      in the environment: MEASDATA_LIBRARY, MEASDATA_PYTHON
"""

import json
import math
import os
import pathlib
import random
import subprocess
import sys
import tempfile

HERE = pathlib.Path(__file__).resolve().parent
sys.path.insert(0, os.environ["MEASDATA_PYTHON"])
import measdata

BROKEN = 100
ULPS = 4  # by which computed colours may differ: the mathematical functions of systems do


def is_same(one, other):
    if isinstance(one, float) and isinstance(other, (float, int)):
        return abs(one - other) <= ULPS * math.ulp(max(abs(one), abs(other), 1e-2))
    if isinstance(one, dict) and isinstance(other, dict):
        return one.keys() == other.keys() and all(is_same(one[key], other[key]) for key in one)
    if isinstance(one, list) and isinstance(other, list):
        return len(one) == len(other) and all(map(is_same, one, other))
    return one == other


random.seed(1)
folder = pathlib.Path(tempfile.mkdtemp())
sources = [pathlib.Path(path).read_bytes() for path in sys.argv[1:]]
paths = [pathlib.Path(path).resolve() for path in sys.argv[1:]]
for number in range(BROKEN):
    text = bytearray(random.choice(sources))
    for _ in range(random.randint(1, 20)):
        start = random.randrange(len(text))
        end = start + random.choice((0, 1, 1, 3, 50))
        text[start:end] = random.choice((b"", b"-", b"\t", b"\n", b"nan", b"\xe9", b'"', b"1e3", b";"))
    paths.append(folder / f"broken{number}.txt")
    paths[-1].write_bytes(text)

answers = subprocess.run(["node", HERE / "answers.mjs", *paths], check=True, capture_output=True).stdout
differences = 0
for path, line in zip(paths, answers.decode().splitlines(), strict=True):
    other = json.loads(line)
    try:
        own = {"name": path.name, "answers": json.loads(measdata.load(path).to_json())}
    except measdata.MeasurementError as error:
        own = {"name": path.name, "messages": error.messages}
    if not is_same(own, other):
        differences += 1
        print(path, {key for key in own.get("answers", {}) if not is_same(own["answers"][key], other.get("answers", {}).get(key))})
print(f"{len(paths)} files, {differences} answered in other ways")
sys.exit(1 if differences else 0)
