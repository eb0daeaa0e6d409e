"""Builds the library for other processors, compilers and systems, and compares what it answers there
with what it answers here.

Call: platforms.py cross|compilers|windows [NAME...]. A platform is a CMake preset. One whose compiler
or emulator is not installed is skipped, with a message.
"""

import dataclasses
import os
import pathlib
import shlex
import shutil
import subprocess
import sys

import comparison_charts
import compare_answers

ROOT = pathlib.Path(__file__).parents[1]
BUILD = ROOT / "build"
WORK = BUILD / "comparison"
CHARTS = WORK / "charts"


@dataclasses.dataclass
class Platform:
    preset: str
    tools: list  # that have to be installed
    runner: list = dataclasses.field(default_factory=list)


def cross(preset, triplet, emulator):
    return Platform(preset, [f"{triplet}-g++", emulator], [emulator, "-L", f"/usr/{triplet}"])


# A processor of this family runs programs of i386 by itself.
I386 = "/usr/i686-linux-gnu/lib"
PLATFORMS = {
    "cross": [
        cross("s390x", "s390x-linux-gnu", "qemu-s390x"),
        cross("arm64", "aarch64-linux-gnu", "qemu-aarch64"),
        cross("armhf", "arm-linux-gnueabihf", "qemu-arm"),
        Platform("i386", ["i686-linux-gnu-g++"],
                 [f"{I386}/ld-linux.so.2", "--library-path", f"{I386}:{BUILD / 'i386'}"]),
    ],
    "compilers": [
        Platform("clang-14", ["clang++-14"]),
        Platform("libcxx-16", ["clang++-16"]),
        Platform("no-rtti", ["c++"]),
        Platform("cxx23", ["c++"]),
        Platform("lto", ["c++"]),
        Platform("lto-clang-14", ["clang++-14", "ld.lld"]),
        Platform("checked", ["c++"]),
    ],
}


def output_of(command, **options):
    result = subprocess.run(command, stdout=subprocess.PIPE, stderr=subprocess.STDOUT, text=True,
                            **options)
    if result.returncode != 0:
        sys.exit(f"{shlex.join(map(str, command))} failed:\n{result.stdout}")
    return result.stdout


def build(preset):
    output_of(["cmake", "--preset", preset], cwd=ROOT)
    printed = output_of(["cmake", "--build", BUILD / preset, "--parallel", "2"], cwd=ROOT)
    if "warning:" in printed:
        sys.exit(f"{preset}: warnings\n{printed}")


def answers_of(platform):
    """What the library answers about all charts."""
    output = WORK / f"{platform.preset}.answers"
    program = BUILD / platform.preset / "dump_answers"
    output_of([*platform.runner, program, "list.txt", f"../{output.name}"], cwd=CHARTS)
    return output.read_bytes()


def missing_of(platform):
    return [tool for tool in platform.tools if shutil.which(tool) is None]


def compare(platform, expected):
    if missing_of(platform):
        print(f"{platform.preset}: skipped, not installed: {' '.join(missing_of(platform))}")
        return
    build(platform.preset)
    lines, ulp = compare_answers.compare(answers_of(platform), expected)
    print(f"{platform.preset}: {lines} answers as here, computed colours within {ulp} ulp", flush=True)


def compile_for_macos():
    """Compiles and links the library for arm64; what is made cannot be run here."""
    zig = shutil.which("zig")
    if zig is None:
        print("macos: skipped, not installed: zig")
        return
    sources = [path for folder in ("base", "measdata", "colortypes", "dataset", "api")
               for path in sorted((ROOT / folder).rglob("*.cpp"))]
    output_of([zig, "c++", "-target", "aarch64-macos", "-shared", "-std=c++20", "-O2", f"-I{ROOT}",
               "-Wall", "-Wextra", "-Wpedantic", "-Wconversion", "-Wshadow", "-Werror",
               "-ffp-contract=off", "-fvisibility=hidden", "-DMEASDATA_BUILDING", *sources,
               "-o", WORK / "libmeasdata.dylib"])
    print("macos: compiled and linked for arm64, not run")


def main(kind, names):
    comparison_charts.write(CHARTS)
    build("answers")
    expected = answers_of(Platform("answers", []))
    known = PLATFORMS[kind]
    unknown = set(names) - {platform.preset for platform in known} - {"macos"}
    if unknown:
        sys.exit(f"unknown: {' '.join(sorted(unknown))}; known: "
                 f"{' '.join(platform.preset for platform in known)}")
    for platform in known:
        if not names or platform.preset in names:
            compare(platform, expected)
    if kind == "cross" and (not names or "macos" in names):
        compile_for_macos()


main(sys.argv[1], sys.argv[2:])
