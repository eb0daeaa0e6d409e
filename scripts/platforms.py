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
    suffix: str = ""  # of programs


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
    "windows": [Platform("windows", ["x86_64-w64-mingw32-g++-posix", "wine"], ["wine"], ".exe")],
}
REFERENCE = Platform("release", [])


def output_of(command, **options):
    result = subprocess.run(command, stdout=subprocess.PIPE, stderr=subprocess.STDOUT, text=True,
                            **options)
    if result.returncode != 0:
        sys.exit(f"{shlex.join(map(str, command))} failed:\n{result.stdout}")
    return result.stdout


def build(preset, targets=("dump_answers",)):
    output_of(["cmake", "--preset", preset], cwd=ROOT)
    printed = output_of(["cmake", "--build", BUILD / preset, "--parallel", "2", "--target", *targets],
                        cwd=ROOT)
    if "warning:" in printed:
        sys.exit(f"{preset}: warnings\n{printed}")


def answers_of(platform):
    """What the library answers about all charts."""
    output = WORK / f"{platform.preset}.answers"
    program = BUILD / platform.preset / f"dump_answers{platform.suffix}"
    output_of([*platform.runner, program, "list.txt", f"../{output.name}"], cwd=CHARTS)
    return output.read_bytes()


def missing_of(platform):
    return [tool for tool in platform.tools if shutil.which(tool) is None]


# Each writes to the standard output or to a file with a name in another script.
TOOL_CALLS = [
    ["measinfo", "--all", *comparison_charts.OTHER_SCRIPTS],
    ["measinfo", "--json", "gray-" + comparison_charts.OTHER_SCRIPTS[0]],
    ["measinfo", "--plain", comparison_charts.OTHER_SCRIPTS[1]],
    ["measreport", "-o", "\u5831\u544a.html", *comparison_charts.OTHER_SCRIPTS],
]


def tool_outputs(platform):
    """What the tools print and write for charts with names in other scripts."""
    outputs = []
    for name, *arguments in TOOL_CALLS:
        command = [*platform.runner, BUILD / platform.preset / "tools" / (name + platform.suffix), *arguments]
        result = subprocess.run(command, cwd=CHARTS, stdout=subprocess.PIPE)
        if result.returncode != 0:
            sys.exit(f"{platform.preset}: {name} {' '.join(arguments)}: exit status {result.returncode}")
        outputs.append(result.stdout)
        if "-o" in arguments:
            report = CHARTS / arguments[arguments.index("-o") + 1]
            outputs.append(report.read_bytes())
            report.unlink()
    return outputs


def use_wine():
    """Sets where Wine keeps its files and finds the libraries of the compiler."""
    folders = [BUILD / "windows"]
    for library in ("libstdc++-6.dll", "libgcc_s_seh-1.dll", "libwinpthread-1.dll"):
        path = output_of(["x86_64-w64-mingw32-g++-posix", f"-print-file-name={library}"])
        folders.append(pathlib.Path(path.strip()).resolve().parent)
    os.environ.update(WINEPREFIX=str(WORK / "wine"), WINEDEBUG="-all", LC_ALL="C.UTF-8",
                      WINEDLLOVERRIDES="mscoree,mshtml=", WINEPATH=";".join(f"Z:{f}" for f in folders))
    (WORK / "wine").mkdir(parents=True, exist_ok=True)


def compare_windows(platform, expected):
    """The answers of the library, and the outputs of the tools, under Wine."""
    if platform.tools[0] in missing_of(platform):
        print(f"windows: skipped, not installed: {' '.join(missing_of(platform))}")
        return
    build("windows", ["all", "dump_answers"])
    if missing_of(platform):
        print("windows: built, but not run; not installed: wine")
        return
    use_wine()
    lines, ulp = compare_answers.compare(answers_of(platform), expected)
    build(REFERENCE.preset, ["measinfo", "measreport"])
    for call, output, here in zip(TOOL_CALLS + ["report"], tool_outputs(platform), tool_outputs(REFERENCE)):
        if output != here:
            sys.exit(f"windows: {call} prints something else than here")
    print(f"windows: {lines} answers as here, computed colours within {ulp} ulp; tools print the same")


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
    build(REFERENCE.preset)
    expected = answers_of(REFERENCE)
    known = PLATFORMS[kind]
    unknown = set(names) - {platform.preset for platform in known} - {"macos"}
    if unknown:
        sys.exit(f"unknown: {' '.join(sorted(unknown))}; known: "
                 f"{' '.join(platform.preset for platform in known)}")
    for platform in known:
        if not names or platform.preset in names:
            (compare_windows if kind == "windows" else compare)(platform, expected)
    if kind == "cross" and (not names or "macos" in names):
        compile_for_macos()


main(sys.argv[1], sys.argv[2:])
