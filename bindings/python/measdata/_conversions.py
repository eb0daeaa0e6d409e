"""Charts in other forms."""

from __future__ import annotations

import contextlib
import ctypes
import os
import tempfile
from collections.abc import Iterable
from typing import Literal, NamedTuple

from ._documents import Document
from ._libraries import decoded, kit
from ._native import Owner
from ._signatures import ConvertOptions

Form = Literal["iso28178", "cgats", "sevenchar", "csv", "tsv", "json", "jsonl", "cxf", "ti3"]
LabSource = Literal["file", "xyz", "spectra"]

_FORMS_OF_ENDINGS: dict[str, Form] = {
    ".txt": "iso28178",
    ".csv": "csv",
    ".tsv": "tsv",
    ".json": "json",
    ".jsonl": "jsonl",
    ".cxf": "cxf",
    ".ti3": "ti3",
}


class ConversionError(Exception):
    """Raised for a chart that cannot be converted as asked for. Its text tells why."""


class Converted(NamedTuple):
    """A chart in another form."""

    text: str
    left_behind: tuple[str, ...]
    """What the text does not hold, a sentence each."""


class _NativeConversion(Owner):
    """A conversion of the kit."""

    __slots__ = ()

    def result(self) -> Converted:
        refusal = kit.mk_conversion_refusal(self.pointer)
        if refusal is not None:
            raise ConversionError(decoded(refusal))
        size = ctypes.c_size_t()
        address = kit.mk_converted_text(self.pointer, ctypes.byref(size))
        text = ctypes.string_at(address, size.value).decode(errors="replace")
        count = kit.mk_num_left_behind(self.pointer)
        sentences = (decoded(kit.mk_left_behind(self.pointer, i)) for i in range(count))
        return Converted(text, tuple(sentences))


def _listed(words: str | Iterable[str] | None) -> bytes | None:
    if words is None:
        return None
    return (words if isinstance(words, str) else ",".join(words)).encode()


def options_of(
    select: str | Iterable[str] | None,
    lab_from: LabSource | None,
    grid: tuple[float, float, float] | None,
    merged: bool,
    percent: bool,
    keep_unknown: bool,
    digits: int,
    decimal_comma: bool,
    bare: bool,
    cxf_pairs: bool,
) -> ConvertOptions:
    return ConvertOptions(
        _listed(select),
        _listed(lab_from),
        None if grid is None else ":".join(map(repr, map(float, grid))).encode(),
        bool(merged),
        bool(percent),
        bool(keep_unknown),
        digits,
        bool(decimal_comma),
        bool(bare),
        bool(cxf_pairs),
    )


def converted(document: Document, chart: int, form: str, options: ConvertOptions) -> Converted:
    arguments = (document.pointer, chart, form.encode(), ctypes.byref(options))
    return _NativeConversion(kit.mk_convert(*arguments), kit.mk_close_conversion).result()


def form_of(path: str) -> Form:
    form = _FORMS_OF_ENDINGS.get(os.path.splitext(path)[1].lower())
    if form is None:
        raise ValueError(f"the ending of {path!r} tells no form")
    return form


def write_new_file(path: str, text: str, overwrite: bool) -> None:
    """Writes under another name first, so that a failure leaves the file that was there."""
    if not overwrite and os.path.lexists(path):
        raise FileExistsError(f"{path} exists")
    path = os.path.realpath(path)
    descriptor, temporary = tempfile.mkstemp(".tmp", dir=os.path.dirname(path))
    try:
        with open(descriptor, "wb") as file:
            file.write(text.encode())
        os.chmod(temporary, _mode_of(path))
        os.replace(temporary, path)
    except BaseException:
        with contextlib.suppress(OSError):
            os.unlink(temporary)
        raise


def _mode_of(path: str) -> int:
    """The permissions of the file, or those that a new one gets."""
    try:
        return os.stat(path).st_mode & 0o777
    except FileNotFoundError:
        mask = os.umask(0)
        os.umask(mask)
        return 0o666 & ~mask
