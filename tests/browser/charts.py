"""Small charts for the pages that are checked: what a page may hold, and what may break it."""

import pathlib
from typing import Iterable, Sequence

Row = Sequence[object]
BANDS = [f"SPECTRAL_NM{380 + 10 * band}" for band in range(36)]
COMPARISONS = {"compared": ("reference", "sample"), "compared-equal": ("odd-names", "odd-names"),
               "compared-three": ("reference", "sample", "transmittance")}
CMYK = [f"CMYK_{ink}" for ink in "CMYK"]


def chart(fields: Sequence[str], rows: Iterable[Row], header: str = "") -> str:
    lines = ["\t".join(str(cell) for cell in row) for row in rows]
    return "\n".join(["CGATS.17", 'ORIGINATOR\t"measdata"', *header.splitlines(),
                      f"NUMBER_OF_FIELDS\t{len(fields)}", "BEGIN_DATA_FORMAT", "\t".join(fields),
                      "END_DATA_FORMAT", f"NUMBER_OF_SETS\t{len(lines)}", "BEGIN_DATA", *lines,
                      "END_DATA", ""])


def spectrum(inks: Sequence[float], most: float = 0.9) -> list[str]:
    """A band of the spectrum falls with the one ink of four that absorbs most there."""
    return [f"{most * (1 - inks[band // 12] / 130) * (1 - inks[3] / 110):.4f}" for band in range(36)]


def mixed(number: int, count: int, steps: int) -> list[float]:
    """The number written in digits, spread over 0 to 100."""
    return [number // steps**place % steps * 100 / (steps - 1) for place in range(count)]


def lab(row: int) -> list[float]:
    return [95 - row % 19 * 4.5, row * 37 % 121 - 60, row * 53 % 131 - 65]


def spectral(rows: int, most: float, header: str = "") -> str:
    inks = [mixed(row, 4, 7) for row in range(rows)]
    return chart(["SAMPLE_ID", "SAMPLE_NAME", *CMYK, *BANDS],
                 ([row + 1, f'"{row + 1}"', *ink, *spectrum(ink, most)]
                  for row, ink in enumerate(inks)), header)


def plain(prefix: str, channels: str, rows: int, most: int = 100, steps: int = 6) -> str:
    return chart(["SAMPLE_ID", *(f"{prefix}_{name}" for name in channels), "LAB_L", "LAB_A", "LAB_B"],
                 ([row + 1, *(round(part * most / 100) for part in mixed(row, len(channels), steps)),
                   *lab(row)] for row in range(rows)))


def display() -> str:
    levels = [(r, g, b) for r in (0, 128, 255) for g in (0, 128, 255) for b in (0, 128, 255)]
    return chart(["SAMPLE_ID", "RGB_R", "RGB_G", "RGB_B", "XYZ_X", "XYZ_Y", "XYZ_Z"],
                 ([number, r, g, b, *(f"{one:.3f}" for one in (
                     0.3 + 0.16 * r + 0.14 * g + 0.07 * b, 0.3 + 0.08 * r + 0.28 * g + 0.03 * b,
                     0.4 + 0.01 * r + 0.05 * g + 0.37 * b))]
                  for number, (r, g, b) in enumerate(levels, 1)), 'DEVCALSTD\t"display"')


def odd_names() -> str:
    names = ["<script>alert(1)</script>", "&amp;&lt;b&gt;", "Unbreakable" * 12, "a 'b' `c` </style>"]
    return chart(["SAMPLE_ID", "SAMPLE_NAME", *CMYK, "LAB_L", "LAB_A", "LAB_B"],
                 ([row, f'"{name}"', row * 20, 0, 0, 0, *lab(row)] for row, name in enumerate(names)),
                 f'DESCRIPTOR\t"<i>{"Endless" * 30}</i>"\nINSTRUMENTATION\t"{"Word" * 40}"')


def write(folder: pathlib.Path, examples: pathlib.Path) -> dict[str, list[pathlib.Path]]:
    """Writes the charts; returns the files of each page of measreport."""
    grey = (str(0.2 + 0.001 * band) for band in range(36))
    texts = {
        "grey": chart(["SAMPLE_ID", "GRAY", *BANDS], ([step, step, *(
            f"{0.26 - step * 0.001 + band * 0.0002:.4f}" for band in range(36))]
            for step in range(0, 101, 10))),
        "device-only": chart(["SAMPLE_ID", *CMYK], ([row, *mixed(row, 4, 3)] for row in range(81))),
        "one-patch": chart(["SAMPLE_ID", "GRAY", *BANDS], [["A1", 50, *grey]]),
        "one-repeated": chart(["SAMPLE_ID", "GRAY", "LAB_L", "LAB_A", "LAB_B"],
                              [["A1", 50, 61.2, 0.3, -1], ["A2", 50, 61.4, 0.2, -1.1]]),
        "transmittance": spectral(60, 0.8, 'MEASUREMENT_TYPE\t"TRANSMITTANCE"'),
        "rgb-260": plain("RGB", "RGB", 260, 255, 7),
        "display": display(),
        "seven-inks": plain("7CLR", "1234567", 300, steps=3),
        "odd-names": odd_names(),
        "unreadable": "nothing of a chart\n",
        "large": spectral(1617, 0.9),
        "sample": spectral(120, 0.88), "reference": spectral(120, 0.9),
    }
    for name, text in texts.items():
        (folder / f"{name}.txt").write_text(text, encoding="utf-8")
    pages = {name: [folder / f"{name}.txt"] for name in texts if name not in ("sample", "reference")}
    pages.update((path.stem, [path]) for path in sorted(examples.iterdir())
                 if path.suffix in (".txt", ".csv"))
    pages["six"] = [folder / f"{name}.txt" for name in
                    ("rgb-260", "grey", "seven-inks", "odd-names", "unreadable", "transmittance")]
    return pages
