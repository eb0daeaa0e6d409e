"""Patches, one by one and as sequences."""

from __future__ import annotations

import ctypes
from collections.abc import Iterator, Sequence
from typing import Any, TypeVar, overload

from ._libraries import decoded, library
from ._native import DataSet, NativeChart, steps
from ._signatures import DeStats
from ._tables import Table, address_of, table_of, zeros
from ._values import RGB, XYZ, Lab, RepeatStats, lab_to_srgb


class Patch:
    """A row of the file. It stores no values; each access reads them from the chart."""

    __slots__ = ("_chart", "_position")

    def __init__(self, chart: NativeChart, position: int) -> None:
        self._chart = chart
        self._position = position

    def _data(self) -> DataSet:
        return self._chart._open().rows

    @property
    def index(self) -> int:
        """The position among the patches of the chart, from 0."""
        return self._position

    @property
    def id(self) -> str:
        """The identifier; empty if there is none."""
        data = self._data()
        return decoded(library.get_id_from_patch(data.pointer, self._position))

    @property
    def name(self) -> str:
        """The name; empty if there is none."""
        data = self._data()
        return decoded(library.get_name_from_patch(data.pointer, self._position))

    @property
    def location(self) -> str:
        """The location on the chart; empty if there is none."""
        data = self._data()
        return decoded(library.get_loc_from_patch(data.pointer, self._position))

    @property
    def device(self) -> tuple[float, ...] | None:
        """One value for each channel, usually 0 to 100 for inks and 0 to 255 for RGB; or None."""
        return self._data().row("device", self._position)

    @property
    def xyz(self) -> XYZ | None:
        """X, Y, Z in the scale of the file; or None."""
        values = self._data().row("xyz", self._position)
        return None if values is None else XYZ(*values)

    @property
    def lab(self) -> Lab | None:
        """Lab from the spectrum or the file; None without both. A repair computes Lab for a file
        that has only XYZ or LCh."""
        values = self._data().row("lab", self._position)
        return None if values is None else Lab(*values)

    @property
    def spectrum(self) -> tuple[float, ...] | None:
        """One value for each wavelength of the chart; or None."""
        return self._data().row("spectrum", self._position)

    @property
    def srgb(self) -> RGB | None:
        """The display colour, each value from 0 to 255 and not rounded; None without Lab."""
        lab = self.lab
        return None if lab is None else lab_to_srgb(lab)

    @property
    def hex(self) -> str | None:
        """The display colour as #RRGGBB; None without Lab."""
        srgb = self.srgb
        return None if srgb is None else "#" + "".join(f"{int(value + 0.5):02X}" for value in srgb)

    def __eq__(self, other: object) -> bool:
        if not isinstance(other, Patch) or type(other) is not type(self):
            return NotImplemented
        return self._chart is other._chart and self._position == other._position

    def __hash__(self) -> int:
        return hash((id(self._chart), self._position))

    def __repr__(self) -> str:
        return f"<{type(self).__name__} {self._position} of {self._chart.source!r}>"


class MergedPatch(Patch):
    """A merged patch: all rows with the same device values."""

    __slots__ = ()

    def _data(self) -> DataSet:
        return self._chart._open().merged

    @property
    def stats(self) -> RepeatStats | None:
        """The statistics of its measurements; None without device values or without colour."""
        rows = self._chart._open().rows
        stats = DeStats(repeat_count=-1)
        library.get_de_stats_from_index(rows.pointer, self._position, ctypes.byref(stats))
        if stats.repeat_count < 0:
            return None
        if stats.repeat_count < 2:
            return RepeatStats(1, None, None)
        return RepeatStats(stats.repeat_count, stats.de_mean, stats.de_max)


def merged_at(chart: NativeChart, index: int) -> MergedPatch | None:
    """What the library means by an index; a negative one means none."""
    return None if index < 0 else MergedPatch(chart, index)


_P = TypeVar("_P", bound=Patch)
_S = TypeVar("_S", bound="_PatchSequence[Any]")


class _PatchSequence(Sequence[_P]):
    """A lazy sequence. Slices are sequences of the same type.

    The methods return the values of all its patches, with one row for each patch: an array if numpy
    is installed, otherwise a list of tuples, or None if the file has no such data.
    """

    __slots__ = ("_chart", "_positions")
    _patch: type[_P]

    def __init__(self, chart: NativeChart, positions: range) -> None:
        self._chart = chart
        self._positions = positions

    def _data(self) -> DataSet:
        raise NotImplementedError

    def __len__(self) -> int:
        self._chart._open()
        return len(self._positions)

    @overload
    def __getitem__(self, key: int) -> _P: ...

    @overload
    def __getitem__(self: _S, key: slice) -> _S: ...

    def __getitem__(self: _S, key: int | slice) -> _P | _S:
        self._chart._open()
        if isinstance(key, slice):
            return type(self)(self._chart, self._positions[key])
        try:
            position = self._positions[key]
        except IndexError:
            raise IndexError("there is no such patch") from None
        patch: _P = self._patch(self._chart, position)
        return patch

    def __iter__(self) -> Iterator[_P]:
        self._chart._open()
        return (self._patch(self._chart, position) for position in self._positions)

    def device(self) -> Table | None:
        """The device values of all patches."""
        return self._data().table("device", self._positions)

    def xyz(self) -> Table | None:
        """X, Y, Z of all patches."""
        return self._data().table("xyz", self._positions)

    def lab(self) -> Table | None:
        """L*, a*, b* of all patches."""
        return self._data().table("lab", self._positions)

    def spectra(self) -> Table | None:
        """The spectra of all patches."""
        return self._data().table("spectrum", self._positions)

    def srgb(self) -> Table | None:
        """Display sRGB of all patches, 0 to 255 and not rounded."""
        data = self._data()
        if data.widths["lab"] == 0:
            return None
        values = zeros(3 * len(self._positions))
        data.fill("lab", self._positions, address_of(values))
        for address in steps(address_of(values), 3 * values.itemsize, len(self._positions)):
            library.lab_to_srgb(address, address)
        return table_of(values, 3)

    def __repr__(self) -> str:
        return f"<{type(self).__name__}: {len(self._positions)} of {self._chart.source!r}>"


class Patches(_PatchSequence[Patch]):
    """The patches of a chart in the order of the file."""

    __slots__ = ()
    _patch = Patch

    def _data(self) -> DataSet:
        return self._chart._open().rows


class MergedPatches(_PatchSequence[MergedPatch]):
    """The merged patches of a chart. There are none if the file has no colours but densities, or if
    it has densities and was loaded without repair."""

    __slots__ = ()
    _patch = MergedPatch

    def _data(self) -> DataSet:
        return self._chart._open().merged
