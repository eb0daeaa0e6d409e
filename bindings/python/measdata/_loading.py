"""Loads files and blocks of bytes."""

from __future__ import annotations

import ctypes
import os
from collections.abc import Callable
from typing import Any

from ._charts import Chart, Mode
from ._documents import Document
from ._libraries import releasing_kit, releasing_library
from ._native import Parser, messages_of

_MK_REPAIR, _MK_AS_IS = 0, 1


class MeasurementError(Exception):
    """Raised for a file that cannot be read as measurements."""

    def __init__(self, source: str, messages: list[str]) -> None:
        super().__init__(source, messages)
        self.source = source
        self.messages = messages
        """The sentences of the findings or, for a given mode, the messages of the load."""

    def __str__(self) -> str:
        return ": ".join([self.source, "; ".join(self.messages) or "no measurements"])


def load(
    path: str | bytes | os.PathLike[str] | os.PathLike[bytes],
    mode: Mode = "auto",
    *,
    repair: bool = True,
) -> Chart:
    """Loads a file and returns its main chart; the further ones are in its `tables`.

    Deviations from the format are repaired and listed in the findings. With repair=False the file
    is read as it stands: as a CGATS.17 / ISO 28178 file or its older form with a seven-character
    identifier and, if that fails, as a semicolon-separated table with known columns.

    The mode "measurement" or "table" reads a file as it stands and in this one way. Such a chart
    has no findings, further tables, plain text, JSON or HTML.

    Raises OSError if the file cannot be opened, and MeasurementError if it has no table.
    """
    encoded = os.fsencode(path)  # UTF-8 on Windows and macOS, the bytes of the name elsewhere
    if b"\0" in encoded:
        raise ValueError("embedded null character")
    parse, open_file = releasing_library.parse_file, releasing_kit.mk_open_file
    source = os.fsdecode(path)
    try:
        if mode == "auto":
            return _open_document(open_file(encoded, _options(repair)), source)
        return _load(lambda handle: parse(handle, encoded), source, mode)
    except MeasurementError:
        # Pipes and devices are never read, and opening one could block.
        if os.path.isfile(path) or os.path.isdir(path) or not os.path.exists(path):
            with open(path, "rb"):
                pass
        raise


def load_bytes(
    data: bytes | bytearray | memoryview,
    name: str | None = None,
    mode: Mode = "auto",
    *,
    repair: bool = True,
) -> Chart:
    """Loads the contents of a file. `name` replaces the path; load describes the rest."""
    block = data if isinstance(data, bytes) else bytes(memoryview(data))
    encoded = None if name is None else name.encode("utf-8", "surrogateescape")
    if encoded is not None and b"\0" in encoded:
        raise ValueError("embedded null character")
    parse, open_block = releasing_library.parse_mem, releasing_kit.mk_open_block
    source = "<bytes>" if name is None else name
    if mode == "auto":
        return _open_document(open_block(len(block), block, encoded, _options(repair)), source)
    return _load(lambda handle: parse(handle, len(block), block, encoded), source, mode)


def _options(repair: bool) -> int:
    return _MK_REPAIR if repair else _MK_AS_IS


def _open_document(pointer: int | None, source: str) -> Chart:
    document = Document(pointer)
    if document.count == 0:
        sentences = "\n".join(finding.sentence for finding in document.findings(0))
        raise MeasurementError(source, [line for line in sentences.split("\n") if line])
    return Chart(document, source)


def _load(parse: Callable[[ctypes.c_void_p], Any], source: str, mode: Mode) -> Chart:
    if mode not in ("measurement", "table"):
        raise ValueError("mode must be 'auto', 'measurement' or 'table'")
    parser = Parser(("measurement", "table").index(mode))
    if parse(parser.pointer):
        return Chart(parser, source)
    raise MeasurementError(source, messages_of(parser.pointer))
