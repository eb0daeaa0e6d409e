"""Checks the formatting of sources (clang-format) and their code (clang-tidy).

Reads the paths from standard input. What passed is remembered in build/lint/passed.json: a source
is checked again when it, a file that it includes, its compile command, the rules or the tool
changed.

clang-tidy takes most of its time for the standard library's headers. Therefore many sources are
tidied as one text, which reads each header once; a text that does not pass is halved until the
sources that fail are found.
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
import tempfile

BUILD = pathlib.Path("build/release")
LINT = pathlib.Path("build/lint")
BATCH = 12  # sources in one text
PASSED = LINT / "passed.json"
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
    """By source, without precompiled headers: each compiler reads only its own, and a source must not
    need them."""
    entries = json.loads((BUILD / "compile_commands.json").read_text())
    for entry in entries:
        entry["command"] = re.sub(r" -Winvalid-pch| -include \S+/cmake_pch\.hxx", "", entry["command"])
    (LINT / "compile_commands.json").write_text(json.dumps(entries))
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
    def output(sources):
        return output_of(["clang-format", "--dry-run", "--Werror", *sources])

    @staticmethod
    def batches(sources):
        return [sources[i:i + 2 * BATCH] for i in range(0, len(sources), 2 * BATCH)]


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
    def output(sources):
        if len(sources) == 1:
            return output_of(["clang-tidy", "--quiet", "-p", str(LINT), *TIDY_OPTIONS, *sources])
        with tempfile.NamedTemporaryFile("w", dir=PASSED.parent, suffix=".cpp") as text:
            text.write(joined(sources))
            text.flush()
            flags, rules = surroundings_of(sources[0])
            return output_of(["clang-tidy", "--quiet", f"--config-file={rules}", *TIDY_OPTIONS,
                              text.name, "--", *flags])

    @staticmethod
    def batches(sources):
        """Batches of C++ sources with the same flags that can be read as one text."""
        batches = []
        for source in sources:
            for batch in batches:
                if len(batch) < BATCH and all(are_compatible(source, other) for other in batch):
                    batch.append(source)
                    break
            else:
                batches.append([source])
        return batches


def output_of(command):
    """What a check prints when it fails."""
    result = subprocess.run(command, capture_output=True, text=True)
    if result.returncode == 0:
        return ""
    return result.stdout or result.stderr or f"{command[0]} failed"


def joined(sources):
    """One text of all sources. What several of them include is included once."""
    text = []
    seen = set()
    for source in sources:
        own = set()
        for line in pathlib.Path(source).read_text().splitlines(keepends=True):
            if line.startswith("#include") and line not in own:
                own.add(line)
                if line in seen:
                    continue
            text.append(line)
        seen |= own
    return "".join(text)


@functools.cache
def surroundings_of(source):
    """The flags of a C++ source and the file with the rules for it."""
    if source not in compile_commands() or not source.endswith(".cpp"):
        return None
    words = shlex.split(compile_commands()[source]["command"])
    first = next(i for i, word in enumerate(words) if word[0] == "-")
    rules = next(path for path in rules_of(source, ".clang-tidy") if os.path.exists(path))
    return words[first:words.index("-o")], rules


@functools.cache
def names_in(source):
    """The names that a source defines for itself alone, and all of its words."""
    text = re.sub(r"//.*|\"(?:[^\"\\\n]|\\.)*\"", "", pathlib.Path(source).read_text())
    own = "\n".join(re.findall(r"^namespace \{$.*?^\}$|^(?:int main|extern *int \w+)\(", text, re.M | re.S))
    own = re.sub(r"^(?: |\}|using |namespace |#).*|<[^>]*>", "", own, flags=re.M)
    names = re.findall(r"^.*?(?:\b(?:class|struct) (\w+)|(\w+) *[({=;\[])", own, re.M)
    return {name for pair in names for name in pair}, set(re.findall(r"\w+", text))


def are_compatible(source, other):
    """Whether two sources can share a text: no name of one means another thing in the other."""
    (defined, words), (other_defined, other_words) = names_in(source), names_in(other)
    return (surroundings_of(source) is not None and surroundings_of(source) == surroundings_of(other) and
            defined.isdisjoint(other_words) and other_defined.isdisjoint(words))


def key_of(check, source, inputs):
    rules, extra = check.settings(source)
    parts = [version(check.tool), TIDY_OPTIONS, extra] + [[path, content(path)] for path in [*rules, *inputs]]
    return hashlib.sha256(json.dumps(parts).encode()).hexdigest()


def is_unchanged(check, source, passed):
    entry = passed.get(f"{check.name} {source}")
    return entry is not None and key_of(check, source, entry["inputs"]) == entry["key"]


def failures(check, sources, passed):
    """How many of the sources fail; those that pass are remembered."""
    output = check.output(sources)
    if output and len(sources) > 1:
        half = len(sources) // 2
        return failures(check, sources[:half], passed) + failures(check, sources[half:], passed)
    if output:
        print(output)
        return 1
    for source in sources:
        inputs = check.inputs(source)
        if inputs:
            passed[f"{check.name} {source}"] = {"inputs": inputs, "key": key_of(check, source, inputs)}
    return 0


def main():
    sources = sys.stdin.read().split()
    if not sources:
        sys.exit("lint: no sources found")
    tidied = [s for s in sources if s.endswith((".c", ".cpp")) and not NOT_TIDIED.search(s)]
    checks = {Tidy: tidied, Format: sources}
    PASSED.parent.mkdir(parents=True, exist_ok=True)
    passed = json.loads(PASSED.read_text()) if PASSED.exists() else {}
    changed = {check: [s for s in of_check if not is_unchanged(check, s, passed)]
               for check, of_check in checks.items()}
    batches = [(check, batch) for check in checks for batch in check.batches(changed[check])]
    # A large batch as the last one would leave processors idle.
    batches.sort(key=lambda job: (job[0] is Format, -len(job[1])))
    with concurrent.futures.ThreadPoolExecutor(os.cpu_count()) as pool:
        failed = sum(pool.map(lambda job: failures(*job, passed), batches))
    PASSED.write_text(json.dumps(passed))
    total, number = (sum(map(len, group.values())) for group in (checks, changed))
    if failed:
        sys.exit(f"lint: {failed} of {number} checks failed")
    print(f"lint: clean, {len(sources)} files, {total - number} of {total} checks unchanged since they "
          "passed")


main()
