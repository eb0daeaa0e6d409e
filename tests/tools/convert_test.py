"""Runs measconvert: exit status, files and streams, folders, the schema of its JSON.

usage: convert_test.py MEASCONVERT DATA SCHEMA
"""

import json
import os
import pathlib
import subprocess
import sys
import tempfile

measconvert, data, schema = sys.argv[1], pathlib.Path(sys.argv[2]), sys.argv[3]
chart, repaired = data / "cmyk-spectral-310.txt", data / "semicolon-table.csv"


def run(*arguments, **options):
    command = [measconvert, *map(str, arguments)]
    return subprocess.run(command, capture_output=True, check=False, **options)


def expect(status, *arguments, **options):
    done = run(*arguments, **options)
    assert done.returncode == status, (arguments, done)
    return done


os.chdir(tempfile.mkdtemp())
# Every form of every chart, back as text, is the text again.
for path in sorted(data.glob("*.[tc][xs][tv]")):
    text = expect(0, "--to", "cgats", "--keep-unknown", path, "-o", "-").stdout
    for form in ("cgats", "iso28178", "sevenchar", "csv", "tsv", "json"):
        other = expect(0, "--to", form, "--keep-unknown", path, "-o", "-").stdout
        back = expect(0, "--to", "cgats", "--keep-unknown", "-", "-o", "-", input=other).stdout
        rows, rows_back = (t[t.index(b"BEGIN_DATA\n"):].split() for t in (text, back))
        assert [cell.strip(b'"') for cell in rows] == [cell.strip(b'"') for cell in rows_back], (
            path, form)

# Outputs are not overwritten by accident, and not left half written.
pathlib.Path("out.csv").write_text("old")
assert b"exists" in expect(2, chart, "-o", "out.csv").stderr
expect(0, "--force", chart, "-o", "out.csv")
assert pathlib.Path("out.csv").read_text().count("\n") > 310
assert expect(2, chart, "-o", "out.xls").stderr.startswith(b'measconvert: the ending of "out.xls"')
expect(1, chart, "-o", "no/folder.csv")
if os.path.exists("/dev/full"):
    expect(1, "--to", "csv", chart, "-o", "/dev/full")
assert sorted(os.listdir()) == ["out.csv"]

# Something is left behind: strict writes nothing.
assert b"Keywords: " in expect(0, chart, "-o", "lines.jsonl").stderr
expect(1, "--strict", chart, "-o", "strict.jsonl")
assert not os.path.exists("strict.jsonl")
assert json.loads(pathlib.Path("lines.jsonl").read_text().splitlines()[1])["SAMPLE_ID"]

# Folders, tables, bad calls.
os.mkdir("all")
expect(0, "--to", "json", chart, repaired, "-o", "all")
two = "BEGIN_DATA_FORMAT\nLAB_L LAB_A LAB_B\nEND_DATA_FORMAT\n" + "BEGIN_DATA\n1 2 3\nEND_DATA\n" * 2
pathlib.Path("two.txt").write_text("CGATS.17\n" + two)
expect(0, "two.txt", "--to", "csv", "-o", "all")
assert sorted(os.listdir("all")) == [
    "cmyk-spectral-310.json", "semicolon-table.json", "two_1.csv", "two_2.csv"]
expect(2, "two.txt", "-o", "two.csv")
expect(0, "--table", "2", "two.txt", "-o", "two.csv")
for call in (["--table", "3", "two.txt", "-o", "x.csv"], ["--table", "0", "two.txt", "-o", "x.csv"],
             ["two.txt", chart, "-o", "x.csv"], [chart], ["-o", "x.csv"], ["--grid", "1", chart, "-o", "x.csv"],
             ["--lab-from", "file", chart, "-o", "x.csv"], ["--to", "xls", chart, "-o", "x"]):
    expect(2, *call)
expect(1, "no-such-file", "-o", "x.csv")
assert not os.path.exists("x.csv")

try:
    import jsonschema
except ImportError:
    sys.exit()
written = json.loads(expect(0, "--to", "json", "two.txt", "-o", "-").stdout)
rules = json.loads(pathlib.Path(schema).read_text())
jsonschema.validate(written, rules)
jsonschema.validate(json.loads(pathlib.Path("all/cmyk-spectral-310.json").read_text()), rules)
written["charts"][0]["patches"][0][0] = None
assert not jsonschema.Draft202012Validator(rules).is_valid(written)
