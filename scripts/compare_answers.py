"""Compares what two builds answered: two outputs of dump_answers.

All lines must be equal byte for byte, but for the signs of NaN, which processors choose, and for
computed colours, which may differ by a few units in the last place (ulp).
"""

import re
import struct
import sys

LARGEST = 4  # ulp
# Differences of Lab and display colours are computed always, Lab only from spectra and XYZ.
COMPUTED = re.compile(rb"(get_lab_from_patch|get_lab_from_index|get_de_stats_from_index|lab_to_srgb)\(")
NAN_SIGN = re.compile(rb"-(?=nan\b)")


def place(number):
    """The position of a double in the order of all doubles."""
    bits = struct.unpack("<q", struct.pack("<d", float(number)))[0]
    return bits if bits >= 0 else -(bits & (2**63 - 1))


def distance(line, expected):
    """The largest difference of two lines with computed numbers, in ulp; infinite between others."""
    name, _, numbers = line.partition(b": ")
    expected_name, _, expected_numbers = expected.partition(b": ")
    pairs = list(zip(numbers.split(), expected_numbers.split()))
    if name != expected_name or len(numbers.split()) != len(expected_numbers.split()):
        return float("inf")
    different = [(a, b) for a, b in pairs if a != b]
    if any(b"nan" in pair for pair in different):
        return float("inf")
    return max((abs(place(a) - place(b)) for a, b in different), default=0)


def compare(answers, expected):
    """How many lines there are, and the largest difference in ulp. Ends for a larger one."""
    file = ""
    largest = 0
    lines, expected_lines = (NAN_SIGN.sub(b"", text).split(b"\n") for text in (answers, expected))
    for line, expected_line in zip(lines, expected_lines):
        if line.startswith(b"file "):
            file = line.decode()
        if line == expected_line:
            continue
        ulp = distance(line, expected_line) if COMPUTED.match(line) else float("inf")
        if ulp > LARGEST:
            sys.exit(f"{file}: differs by {ulp} ulp\n  {line}\n  expected {expected_line}")
        largest = max(largest, ulp)
    if len(lines) != len(expected_lines):
        sys.exit(f"{len(lines)} lines, expected {len(expected_lines)}")
    return len(lines), largest


def read(path):
    with open(path, "rb") as file:
        return file.read()


if __name__ == "__main__":
    print("%d answers, largest difference %d ulp" % compare(read(sys.argv[1]), read(sys.argv[2])))
