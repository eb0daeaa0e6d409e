#!/usr/bin/env python3
"""Plants faults in the library, one at a time, and prints those that no test notices.

Each fault is planted in a copy of the sources under build/mutate/. What depends on it is built and
tested there: first with the test program and, when that passes, with the rest of the suite.

Not counted are faults that do not compile, faults that leave the machine code as it is, and those
of equivalent_mutations.txt. Faults chosen for a reason are in mutations.txt. Both files consist of
paragraphs like those that this program prints:

  FILE: what goes wrong, or why no test can see it
  - lines of the file
  + lines that replace them
"""

import argparse
import os
import random
import re
import resource
import shutil
import signal
import subprocess
import sys
import threading
import time
from collections import Counter
from pathlib import Path
from typing import NamedTuple

ROOT = Path(__file__).resolve().parent.parent
WORK = ROOT / "build/mutate"
FOLDERS = ("api", "base", "colortypes", "dataset", "measdata")
NOT_SAMPLED = re.compile(r"/tables/|api/measdata\.h")  # numbers and declarations alone
# The headers of the standard library take most of the time of the compiler.
PRECOMPILE = """cmake_language(DEFER CALL target_precompile_headers measdata_objects PRIVATE
  <algorithm> <array> <cmath> <cstdint> <functional> <memory> <optional> <ranges> <span> <string>
  <string_view> <vector>)
"""
CONFIGURATION = ("-GNinja", "-DCMAKE_BUILD_TYPE=", "-DCMAKE_CXX_FLAGS=-O1", "-DMEASDATA_TOOLS=OFF",
                 "-DMEASDATA_INSTALL=OFF", "-DMEASDATA_WARNINGS_AS_ERRORS=OFF")
TEST_PROGRAM = "tests/measdata_tests"
SLOW_TESTS = "HostileInput.*:*Generated*"  # they come last
LARGEST_MEMORY = 4 << 30  # a faulty program may ask for memory without end
LEAST_CAUGHT = 95  # percent


class Mutation(NamedTuple):
    file: str
    line: int
    old: tuple[str, ...]  # whole lines without indentation
    new: tuple[str, ...]
    note: str = ""

    def __str__(self):
        return "\n".join([f"{self.file}:{self.line}: {self.note}",
                          *("- " + line for line in self.old), *("+ " + line for line in self.new)])

    def change(self):
        return self.file, self.old, self.new


# What can be changed in a source ------------------------------------------------------------------

TOKEN = re.compile(
    r"""(?P<space>\s+|//[^\n]*|/\*.*?\*/|^[ ]*\#(?:\\\n|[^\n])*)
    |(?P<text>"(?:\\.|[^"\\\n])*"|'(?:\\.|[^'\\\n])*')
    |(?P<number>(?:0[xX][\da-fA-F']+|\d[\d']*\.?\d*(?:[eE][+-]?\d+)?)[uUlLfF]*)
    |(?P<name>[A-Za-z_]\w*)
    |(?P<sign><<=|>>=|->|\+\+|--|&&|\|\||[=!<>+\-*/%&|^]=|<<|>>|::|.)""",
    re.VERBOSE | re.MULTILINE | re.DOTALL)
PAIRS = "== != < <= > >= && || + - * / & | << >> += -= *= /= true false".split()
OTHER = dict(zip(PAIRS[::2], PAIRS[1::2])) | dict(zip(PAIRS[1::2], PAIRS[::2]))
DECLARATION = re.compile(
    r"(?:const|static|constexpr|using|namespace|friend|template|explicit|inline|virtual|struct"
    r"|class|enum|public|protected|private|case|default|return|static_assert)\b"
    r"|(?!delete|throw|else)[\w:]+(?:<[^;=]*>)?[&*\s]+\w+\s*[=({;\[,)]")
STATEMENT = re.compile(r"\w|\+\+|--|\*|\(|::")
TABLE_LINE = re.compile(r'(?:[\s\d.,eE+{}()-]|"[^"]*")+;?\s*(?://.*)?')


def other_numbers(text):
    digits, suffix = re.fullmatch(r"(0[xX][\da-fA-F']+|[\d'.eE+-]+)(\w*)", text).groups()
    if not re.fullmatch(r"0[xX].*|[\d']+", digits):
        return [repr(float(digits) * 1.1 or 1.0) + suffix]
    value = int(digits.replace("'", ""), 0)
    form = "#x" if digits[1:2] in ("x", "X") else "d"
    return [f"{other:{form}}{suffix}" for other in (value - 1, value + 1) if other >= 0]


def brackets(tokens):
    """For the position of each opening bracket those of its commas and of the closing one."""
    inner, opened = {}, []
    for i, token in enumerate(tokens):
        if token.group() in ("(", "[", "{"):
            opened.append(i)
            inner[i] = []
        elif opened and token.group() in (",", ")", "]", "}"):
            inner[opened[-1]].append(i)
            if token.group() != ",":
                opened.pop()
    return inner


def swapped(text, tokens, bounds):
    """Exchanges neighbours among the arguments between the bounds."""
    parts = [(tokens[a + 1].start(), tokens[b - 1].end()) for a, b in zip(bounds, bounds[1:])]
    for (a, b), (c, d) in zip(parts, parts[1:]):
        if text[a:b] != text[c:d] and "{" not in text[a:d] and not DECLARATION.match(text, a):
            yield a, d, text[c:d] + text[b:c] + text[a:b]


def changes(text):
    """The faults to plant in a source: start, end and what replaces the text between."""
    tokens = [token for token in TOKEN.finditer(text) if token.lastgroup != "space"]
    signs = [token.group() for token in tokens]
    inner = brackets(tokens)
    heads = {inner[i][-1] for i in inner if signs[i - 1] in ("if", "for", "while")}
    parentheses = 0
    for i, (token, sign) in enumerate(zip(tokens, signs)):
        start, end = token.span()
        before = signs[i - 1] if i else ""
        parentheses += (sign == "(") - (sign == ")")
        if token.lastgroup == "number":
            line = text[text.rfind("\n", 0, start) + 1:text.find("\n", end)]
            if not TABLE_LINE.fullmatch(line):
                yield from ((start, end, other) for other in other_numbers(sign))
        elif sign in OTHER and (text[start - 1] == " " and text[end] in " \n" or sign.isalpha()):
            yield start, end, OTHER[sign]  # clang-format puts no blanks around the signs of types
        elif sign == "!":
            yield start, end, ""
        elif sign == "(" and before == "if":
            last = tokens[inner[i][-1]].start()
            if not re.search(r"[=!]=|!| = ", text[end:last]):  # the first are reversed anyway
                yield end, last, f"!({text[end:last]})"
        elif before.isidentifier() and sign == "(" or before == "return" and sign == "{":
            yield from swapped(text, tokens, [i, *inner[i]])
        is_begin = before in (";", "{", "}", "else") and parentheses == 0 or i - 1 in heads
        if is_begin and STATEMENT.match(text, start) and not DECLARATION.match(text, start):
            last = statement_end(signs, inner, i)
            if last > i and signs[last - 1] not in ("default", "delete"):
                yield start, tokens[last].end(), ";"


def statement_end(signs, inner, i):
    """The position of the semicolon that ends a statement; 0 when a block comes before."""
    while i < len(signs) and signs[i] not in (";", "{", "}"):
        i = inner[i][-1] + 1 if i in inner else i + 1
    return i if i < len(signs) and signs[i] == ";" else 0


def lines_of(text):
    return tuple(line.strip() for line in text.splitlines())


def mutations_of(file):
    text = (ROOT / file).read_text()
    for start, end, new in changes(text):
        first, last = text.rfind("\n", 0, start) + 1, text.find("\n", end)
        yield Mutation(file, text.count("\n", 0, first) + 1, lines_of(text[first:last]),
                       lines_of(text[first:start] + new + text[end:last]))


def sample(pattern, count, seed):
    """One fault for each file while there are enough, the rest in proportion to its length."""
    files = [path.relative_to(ROOT).as_posix() for folder in FOLDERS
             for path in (ROOT / folder).rglob("*") if path.suffix in (".cpp", ".h")]
    ranked = []
    for file in files:
        if re.search(pattern, file) and not NOT_SAMPLED.search(file):
            found = list(dict.fromkeys(mutations_of(file)))
            # By the change alone, so that another place of the file does not change the sample.
            found.sort(key=lambda mutation: random.Random(f"{seed} {mutation.change()}").random())
            ranked += [(i / len(found), file, mutation) for i, mutation in enumerate(found)]
    return sorted(mutation for _, _, mutation in sorted(ranked)[:count])


def read_list(name, pattern="."):
    found = []
    text = re.sub(r"^#.*\n", "", (ROOT / "scripts" / name).read_text(), flags=re.MULTILINE)
    for paragraph in re.split(r"\n\s*\n", text.strip()) if text.strip() else []:
        head, *rest = paragraph.splitlines()
        file, note = re.fullmatch(r"(.*?)(?::\d+)?: (.*)", head).groups()
        old, new = (tuple(line[2:] for line in rest if line[0] == sign) for sign in "-+")
        lines = lines_of((ROOT / file).read_text())
        places = [i for i in range(len(lines)) if lines[i:i + len(old)] == old]
        if not places:
            sys.exit(f"{name}: not in the sources any more:\n{paragraph}")
        if re.search(pattern, file):
            found.append(Mutation(file, places[0] + 1, old, new, note))
    return found


# Building and testing -----------------------------------------------------------------------------

running = set()  # processes, each with a group of its own


def limit_memory():
    resource.setrlimit(resource.RLIMIT_AS, (LARGEST_MEMORY, LARGEST_MEMORY))


def succeeds(command, folder, timeout=None):
    with subprocess.Popen(command, cwd=folder, stdin=subprocess.DEVNULL, stdout=subprocess.DEVNULL,
                          stderr=subprocess.DEVNULL, start_new_session=True,
                          preexec_fn=limit_memory) as process:
        running.add(process)
        try:
            return process.wait(timeout) == 0
        except subprocess.TimeoutExpired:
            os.killpg(process.pid, signal.SIGKILL)
            return False
        finally:
            running.remove(process)


def update(source, target):
    """Copies what differs; the rest keeps its time, so that ninja does not build it again."""
    content = Path(source).read_bytes()
    if not Path(target).exists() or Path(target).read_bytes() != content:
        Path(target).write_bytes(content)


class Workshop:
    """A copy of the sources with a build, both without a fault before and after each trial."""

    def __init__(self, name, jobs):
        self.sources, self.build, self.sound = (WORK / name / x for x in ("src", "build", "sound"))
        self.ninja, self.timeout = ("ninja", f"-j{jobs}"), None
        shutil.copytree(ROOT, self.sources, dirs_exist_ok=True, copy_function=update,
                        ignore=shutil.ignore_patterns("build", ".git", "__pycache__"))
        precompile = self.sources / "precompile.cmake"
        update(WORK / "precompile.cmake", precompile)
        configure = ("cmake", "-S", self.sources, "-B", self.build, *CONFIGURATION,
                     f"-DCMAKE_PROJECT_INCLUDE={precompile}")
        if not succeeds(configure, ROOT) or not succeeds(self.ninja, self.build):
            sys.exit(f"This cannot be built: {self.build}")
        self.program = (self.build / TEST_PROGRAM).read_bytes()
        listed = subprocess.run([self.build / TEST_PROGRAM, "--gtest_list_tests"],
                                capture_output=True, text=True, check=True).stdout
        suites = "|".join(re.findall(r"^(\S+)\.", listed, re.MULTILINE))
        self.rest = ("ctest", "--stop-on-failure", "--timeout", "30", "-E", f"^({suites})[.]")
        begin = time.monotonic()
        passes = self.passes()
        self.timeout = 5 + 3 * (time.monotonic() - begin)
        if not passes or not succeeds(self.rest, self.build):
            sys.exit(f"The tests fail without a fault: {self.build}")
        shutil.rmtree(self.sound, ignore_errors=True)
        shutil.copytree(self.build, self.sound)

    def restore(self):
        """Brings back the objects, programs and ninja's notes of the build without a fault."""
        for sound in self.sound.rglob("*"):
            path = self.build / sound.relative_to(self.sound)
            if sound.is_file() and not (
                    path.exists() and path.stat().st_mtime_ns == sound.stat().st_mtime_ns):
                shutil.copy2(sound, path)

    def passes(self):
        program = (self.build / TEST_PROGRAM, "--gtest_fail_fast", "--gtest_brief=1")
        return all(succeeds((*program, f"--gtest_filter={tests}"), self.build, self.timeout)
                   for tests in ("-" + SLOW_TESTS, SLOW_TESTS))

    def verdict(self):
        if not succeeds((*self.ninja, TEST_PROGRAM), self.build):
            return "does not compile"
        if (self.build / TEST_PROGRAM).read_bytes() == self.program:
            return "same code"
        if not self.passes():
            return "caught"
        if not succeeds(self.ninja, self.build):
            return "does not compile"
        return "survived" if succeeds(self.rest, self.build) else "caught"

    def trial(self, mutation):
        path = self.sources / mutation.file
        text, stamp = path.read_text(), path.stat()
        lines, first = text.split("\n"), mutation.line - 1
        lines[first:first + len(mutation.old)] = mutation.new
        path.write_text("\n".join(lines))
        verdict = self.verdict()
        self.restore()
        # Last: a run that ends before leaves a source that the next one copies anew.
        path.write_text(text)
        os.utime(path, ns=(stamp.st_atime_ns, stamp.st_mtime_ns))
        return verdict


def run(mutations, jobs):
    """Tries all, so many at a time; returns how often each verdict was given."""
    todo, verdicts = iter(mutations), Counter()

    def work(shop):
        for mutation in todo:  # all threads take theirs from the same
            verdict = shop.trial(mutation)
            verdicts[verdict] += 1
            if verdict == "survived":
                print(f"{mutation}\n", flush=True)

    WORK.mkdir(parents=True, exist_ok=True)
    (WORK / "precompile.cmake").write_text(PRECOMPILE)
    shops = [Workshop(str(i), max(1, (os.cpu_count() or 1) // jobs)) for i in range(jobs)]
    begin = time.monotonic()
    threads = [threading.Thread(target=work, args=[shop], daemon=True) for shop in shops]
    for thread in threads:
        thread.start()
    for thread in threads:
        thread.join()
    print(f"{(time.monotonic() - begin) / max(1, len(mutations)):.1f} s a fault")
    return verdicts


def main():
    parser = argparse.ArgumentParser(prog="./dev mutate", description=__doc__.split("\n\n")[0])
    parser.add_argument("--count", type=int, default=300, metavar="N",
                        help="faults besides the chosen ones (%(default)s)")
    parser.add_argument("--seed", type=int, default=1, metavar="S", help="for another sample")
    parser.add_argument("--file", default=".", metavar="PATTERN", help="only in matching files")
    parser.add_argument("--jobs", type=int, default=1, metavar="N", help="trials at a time")
    parser.add_argument("--list", action="store_true", help="print the faults, plant none")
    options = parser.parse_args()

    equivalent = {mutation.change() for mutation in read_list("equivalent_mutations.txt")}
    drawn = sample(options.file, options.count, options.seed)
    mutations = [mutation for mutation in drawn if mutation.change() not in equivalent]
    known = len(drawn) - len(mutations)
    mutations += read_list("mutations.txt", options.file)
    if options.list:
        print(*mutations, sep="\n\n")
        return 0
    signal.signal(signal.SIGTERM, lambda *_: sys.exit(1))
    try:
        verdicts = run(mutations, options.jobs)
    finally:
        for process in list(running):
            os.killpg(process.pid, signal.SIGKILL)
    visible = verdicts["caught"] + verdicts["survived"]
    percent = 100 * verdicts["caught"] / max(1, visible)
    print(f"{verdicts['caught']} of {visible} faults caught, {percent:.1f} %; not counted: {known} "
          f"equivalent, {verdicts['same code']} that leave the machine code as it is, "
          f"{verdicts['does not compile']} that do not compile")
    return 0 if percent >= LEAST_CAUGHT else 1


if __name__ == "__main__":
    sys.exit(main())
