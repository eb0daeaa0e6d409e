"""Gathers the charts that builds are compared on: those of the sources and generated ones.

Call: comparison_charts.py FOLDER. Writes the charts and list.txt, which names them.
"""

import pathlib
import random
import struct
import sys

ROOT = pathlib.Path(__file__).parents[1]
PIECE = b"\x1e"  # divides the texts of an input of the load fuzzer


def of_sources():
    """The example charts, and each text of the fuzzers' corpora."""
    for folder in ("examples/data", "docs/samples/data", "fuzz/corpus/preflight"):
        for path in sorted((ROOT / folder).iterdir()):
            if path.suffix != ".cpp":
                yield f"{path.parent.name}-{path.name}", path.read_bytes()
    for path in sorted((ROOT / "fuzz/corpus/load").iterdir()):
        # The first byte is no text: it says how the fuzzer loads.
        for i, text in enumerate(path.read_bytes()[1:].split(PIECE)):
            yield f"load-{path.name}-{i}", text


class Numbers:
    """Numbers in all the forms that files hold, the same ones on every run."""

    def __init__(self, seed):
        self.random = random.Random(seed)

    def odd(self):
        """Any double at all, or a form that is hard to read."""
        bits = struct.unpack("<d", self.random.randbytes(8))[0]
        return self.random.choice([
            repr(bits), f"{bits:.17e}", f"{self.random.uniform(0, 100):.25f}", "nan", "-inf", "1e999",
            "4.9e-324", "2.2250738585072011e-308", "9007199254740993", "0x1p3", "1,5", ".5", "5.", "+3",
            "-0", "1e", "--1", "", "x"])

    def plain(self, largest):
        return f"{self.random.uniform(0, largest):.{self.random.randint(0, 12)}f}"


def chart(fields, rows):
    lines = ["CGATS.17", 'INSTRUMENTATION "Maker Model 12"', "BEGIN_DATA_FORMAT", " ".join(fields),
             "END_DATA_FORMAT", "BEGIN_DATA", *(" ".join(row) for row in rows), "END_DATA"]
    return "\n".join(lines) + "\n"


def spectral(seed, start, step, bands, rows=60):
    """CMYK with repeats, and spectra on one grid."""
    numbers = Numbers(seed)
    fields = ["SAMPLE_ID", "CMYK_C", "CMYK_M", "CMYK_Y", "CMYK_K",
              *(f"SPECTRAL_NM{start + i * step}" for i in range(bands))]
    return chart(fields, [[str(row), *(str(numbers.random.choice((0, 0, 40, 100))) for _ in range(4)),
                           *(numbers.plain(1.2) for _ in range(bands))] for row in range(rows)])


def colours(seed, rows=80):
    """RGB with repeats, XYZ and Lab."""
    numbers = Numbers(seed)
    fields = "SAMPLE_NAME RGB_R RGB_G RGB_B XYZ_X XYZ_Y XYZ_Z LAB_L LAB_A LAB_B".split()
    return chart(fields, [[f'"n {row}"', *(str(numbers.random.choice((0, 128, 255))) for _ in range(3)),
                           *(numbers.plain(110) for _ in range(6))] for row in range(rows)])


def odd_numbers(seed, rows=80):
    numbers = Numbers(seed)
    fields = "SAMPLE_ID CMYK_C CMYK_M CMYK_Y CMYK_K LAB_L LAB_A LAB_B".split()
    return chart(fields, [[str(row), *(numbers.odd() or "0" for _ in range(7))] for row in range(rows)])


def table(seed, rows=60):
    """A table with semicolons."""
    numbers = Numbers(seed)
    head = "SAMPLE_ID;CMYK_C;CMYK_M;CMYK_Y;CMYK_K;LAB_L;LAB_A;LAB_B"
    body = [";".join([str(row), *(str(numbers.random.choice((0, 50, 100))) for _ in range(4)),
                      *(numbers.odd() if numbers.random.random() < 0.1 else numbers.plain(100)
                        for _ in range(3))]) for row in range(rows)]
    return "\r\n".join([head, *body]) + "\r\n"


# Greek and Japanese: no code page has both.
OTHER_SCRIPTS = ["\u03c7\u03ac\u03c1\u03c4\u03b7\u03c2.txt", "\u6e2c\u5b9a.txt"]


def generated():
    grids = [(380, 10, 36), (400, 10, 31), (360, 10, 48), (380, 20, 18), (340, 20, 25), (385, 5, 70),
             (400, 3, 100), (460, 10, 23), (550, 10, 1)]
    for start, step, bands in grids:
        yield f"grid-{start}-{step}-{bands}.txt", spectral(start * step, start, step, bands).encode()
    for seed, name in enumerate(OTHER_SCRIPTS):
        yield name, colours(seed).encode()
        # The only channel is named after the file.
        yield f"gray-{name}", chart(["GRAY", "LAB_L"], [["0", "95"], ["100", "12.5"]]).encode()
    for seed in range(6):
        yield f"colours-{seed}.txt", colours(seed).encode()
        yield f"odd-{seed}.txt", odd_numbers(seed).encode()
        yield f"table-{seed}.csv", table(seed).encode()


def write(folder):
    folder.mkdir(parents=True, exist_ok=True)
    names = []
    for name, text in [*of_sources(), *generated()]:
        (folder / name).write_bytes(text)
        names.append(name)
    (folder / "list.txt").write_bytes("".join(f"{name}\n" for name in names).encode())
    return names


if __name__ == "__main__":
    print(len(write(pathlib.Path(sys.argv[1]))), "charts")
