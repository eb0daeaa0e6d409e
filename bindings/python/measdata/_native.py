"""Native objects and what they hold."""

from __future__ import annotations

import ctypes
from array import array
from collections.abc import Callable, Sequence
from typing import Any, NamedTuple

from ._libraries import decoded, library
from ._signatures import DOUBLE
from ._tables import Table, address_of, table_of, zeros


class Owner:
    """Owns a native object. Callers of the libraries keep it referenced until the call returns."""

    __slots__ = ("_release", "pointer")

    def __init__(self, pointer: int | None, release: Callable[..., None]) -> None:
        self._release = release  # still exists while the module is torn down
        # An object instead of a number, because there must be no second owner.
        self.pointer = ctypes.c_void_p(pointer)
        if not self.pointer:
            raise MemoryError

    def __del__(self) -> None:
        if hasattr(self, "pointer"):
            self._release(ctypes.byref(self.pointer))

    def made(self, function: Callable[..., bytes | None]) -> str:
        """The text that a function of the kit makes of the object."""
        text = function(self.pointer)
        if text is None:
            raise MemoryError
        return decoded(text)

    def handle(self, chart: int) -> ctypes.c_void_p:
        """The pointer that the measdata library takes for a chart."""
        raise NotImplementedError


class Parser(Owner):
    """A handle of the measdata library, without the kit."""

    __slots__ = ()

    def __init__(self, parse_mode: int) -> None:
        super().__init__(library.init_parser(), library.cleanup_parser)
        library.set_parse_mode(self.pointer, parse_mode)

    def handle(self, chart: int) -> ctypes.c_void_p:
        return self.pointer


def messages_of(handle: ctypes.c_void_p) -> list[str]:
    # Names from the file are part of the text, so only line feeds separate lines.
    lines = decoded(library.parse_messages(handle)).split("\n")
    return lines[:-1] if lines[-1] == "" else lines


class DataSet:
    """The patches or the merged patches of a chart, behind one pointer of the library."""

    __slots__ = ("count", "owner", "pointer", "widths")

    def __init__(self, owner: Owner, pointer: ctypes.c_void_p) -> None:
        self.owner = owner
        self.pointer = pointer
        self.count: int = library.num_patches(pointer)
        has = library
        # The number of values of each kind per patch; 0 if the file has none.
        self.widths: dict[str, int] = {
            "device": has.has_device_data(pointer) and has.num_device_channels(pointer),
            "xyz": has.has_xyz_data(pointer) and 3,
            "lab": 3 if self._has_lab() else 0,
            "spectrum": has.has_spectral_data(pointer) and has.spectral_size(pointer),
        }

    def _has_lab(self) -> bool:
        """Whether the library writes Lab: if so, two different arrays become equal."""
        answers = []
        for fill in (0.0, 1.0):
            lab = array("d", [fill] * 3)
            library.get_lab_from_patch(self.pointer, 0, address_of(lab))
            answers.append(lab.tobytes())
        return answers[0] == answers[1]

    def fill(self, kind: str, positions: Sequence[int], address: int) -> None:
        """Writes the numbers of the patches one after the other."""
        stride = self.widths[kind] * ctypes.sizeof(DOUBLE)
        if kind == "spectrum":
            self._fill_spectra(positions, address, stride)
        else:
            write, pointer = _WRITERS[kind], self.pointer
            for position in positions:
                write(pointer, position, address)
                address += stride

    def _fill_spectra(self, positions: Sequence[int], address: int, stride: int) -> None:
        sources = [library.get_spectrum_from_patch(self.pointer, p) for p in positions]
        if None in sources:
            raise LookupError("a patch has no spectrum")
        if sources and sources == steps(sources[0], stride, len(sources)):
            ctypes.memmove(address, sources[0], stride * len(sources))  # all are in one block
            return
        for source in sources:
            ctypes.memmove(address, source, stride)
            address += stride

    def row(self, kind: str, position: int) -> tuple[float, ...] | None:
        width = self.widths[kind]
        if width == 0:
            return None
        values = (DOUBLE * width)()
        self.fill(kind, (position,), ctypes.addressof(values))
        return tuple(values)

    def table(self, kind: str, positions: range) -> Table | None:
        width = self.widths[kind]
        if width == 0:
            return None
        values = zeros(width * len(positions))
        self.fill(kind, positions, address_of(values))
        return table_of(values, width)


_WRITERS: dict[str, Callable[[ctypes.c_void_p, int, int], None]] = {
    "device": library.get_dev_from_patch,
    "xyz": library.get_xyz_from_patch,
    "lab": library.get_lab_from_patch,
}


def steps(first: int, step: int, count: int) -> list[int]:
    return list(range(first, first + step * count, step))


class Native(NamedTuple):
    """What an open chart holds."""

    owner: Owner
    rows: DataSet
    merged: DataSet


class NativeChart:
    """The part of a chart that its patches and channels need."""

    def __init__(self, native: Native, source: str) -> None:
        self._native: Native | None = native
        self.source = source
        """The path or name given to the load."""

    def _open(self) -> Native:
        native = self._native
        if native is None:
            raise ValueError("the chart is closed")
        return native

    def _ask(self, function: Callable[..., Any], *arguments: int) -> Any:
        rows = self._open().rows
        return function(rows.pointer, *arguments)
