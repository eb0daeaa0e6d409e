"""Checks the formatting of sources (clang-format) and their code (clang-tidy).

Reads the paths from standard input. What passed is remembered in build/lint/passed.json: a source
is checked again when it, a file that it includes, its compile command, the rules or the tool
changed.
"""

import concurrent.futures
import functools
import hashlib
import json
import os
import pathlib
import re
import shlex
import subprocess
import sys

BUILD = pathlib.Path("build/release")
PASSED = pathlib.Path("build/lint/passed.json")
# The tests are held to the compilers' warnings alone, and tables are numbers.
NOT_TIDIED = re.compile(r"^(tests|bench|docs/samples/test)/|/tables/")

# The analyzer looks at a fifth of the paths that it would by itself; else it takes half of the time.
TIDY_OPTIONS = [f"--extra-arg={word}" for word in (
    "-Wno-unknown-warning-option", "-Xclang", "-analyzer-config", "-Xclang", "max-nodes=45000")]


@functools.cache
def content(path):
    try:
        return hashlib.sha256(pathlib.Path(path).read_bytes()).hexdigest()
    except OSError:
        return "none"


@functools.cache
def version(tool):
    return subprocess.run([tool, "--version"], capture_output=True, check=True, text=True).stdout


@functools.cache
def compile_commands():
    entries = json.loads((BUILD / "compile_commands.json").read_text())
    return {os.path.relpath(entry["file"]): entry for entry in entries}


def rules_of(source, name):
    """The configuration files that count for a source: those of its folder and of all above it."""
    return [str(folder / name) for folder in pathlib.Path(source).parents]


def files_read(source):
    """The source and all that it includes, as the compiler finds them."""
    entry = compile_commands()[source]
    command = shlex.split(entry["command"])
    output = command.index("-o")
    del command[output:output + 2]
    rule = subprocess.run(command + ["-M"], cwd=entry["directory"], capture_output=True, check=True,
                          text=True).stdout
    return [os.path.join(entry["directory"], path) for path in rule.replace("\\\n", " ").split()[1:]]


class Format:
    name = "format"
    tool = "clang-format"

    @staticmethod
    def inputs(source):
        return [source]

    @staticmethod
    def settings(source):
        return rules_of(source, ".clang-format"), ""

    @staticmethod
    def command(source):
        return ["clang-format", "--dry-run", "--Werror", source]


class Tidy:
    name = "tidy"
    tool = "clang-tidy"

    @staticmethod
    def inputs(source):
        return files_read(source) if source in compile_commands() else None

    @staticmethod
    def settings(source):
        return rules_of(source, ".clang-tidy"), compile_commands().get(source, {}).get("command")

    @staticmethod
    def command(source):
        return ["clang-tidy", "--quiet", "-p", str(BUILD), *TIDY_OPTIONS, source]


def key_of(check, source, inputs):
    rules, extra = check.settings(source)
    parts = [version(check.tool), TIDY_OPTIONS, extra] + [[path, content(path)] for path in [*rules, *inputs]]
    return hashlib.sha256(json.dumps(parts).encode()).hexdigest()


def is_unchanged(check, source, passed):
    entry = passed.get(f"{check.name} {source}")
    return entry is not None and key_of(check, source, entry["inputs"]) == entry["key"]


def run(check, source, passed):
    """Whether the source passes; if so, that is remembered."""
    inputs = check.inputs(source)
    key = key_of(check, source, inputs or [])
    result = subprocess.run(check.command(source), capture_output=True, text=True)
    if result.returncode != 0:
        print(result.stdout + (result.stderr if check is Format or not result.stdout else ""))
        return False
    if inputs:
        passed[f"{check.name} {source}"] = {"inputs": inputs, "key": key}
    return True


def main():
    sources = sys.stdin.read().split()
    if not sources:
        sys.exit("lint: no sources found")
    tidied = [s for s in sources if s.endswith((".c", ".cpp")) and not NOT_TIDIED.search(s)]
    jobs = [(Format, source) for source in sources] + [(Tidy, source) for source in tidied]
    passed = json.loads(PASSED.read_text()) if PASSED.exists() else {}
    changed = [job for job in jobs if not is_unchanged(*job, passed)]
    # The longest sources last would leave processors idle at the end.
    changed.sort(key=lambda job: (job[0] is Tidy, -os.path.getsize(job[1])))
    with concurrent.futures.ThreadPoolExecutor(os.cpu_count()) as pool:
        verdicts = list(pool.map(lambda job: run(*job, passed), changed))
    PASSED.parent.mkdir(parents=True, exist_ok=True)
    PASSED.write_text(json.dumps(passed))
    if not all(verdicts):
        sys.exit(f"lint: {verdicts.count(False)} of {len(changed)} checks failed")
    print(f"lint: clean, {len(sources)} files, {len(jobs) - len(changed)} of {len(jobs)} checks "
          "unchanged since they passed")


main()
