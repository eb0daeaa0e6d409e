"""Colours, statistics and what a header tells."""

from __future__ import annotations

from array import array
from collections.abc import Iterable, Iterator, Mapping
from dataclasses import dataclass
from typing import List, NamedTuple

from ._libraries import library
from ._tables import Table, address_of


class Lab(NamedTuple):
    """CIELAB."""

    L: float
    a: float
    b: float


class XYZ(NamedTuple):
    """Tristimulus values in the scale of the file."""

    X: float
    Y: float
    Z: float


class RGB(NamedTuple):
    """Display sRGB, each from 0 to 255 and not rounded."""

    r: float
    g: float
    b: float


@dataclass(frozen=True)
class RepeatStats:
    """The differences between the repeated measurements of a patch."""

    count: int
    """The number of measurements, at least 1."""
    mean: float | None
    """Mean Delta E*ab (CIE 1976) of all pairs of measurements; None for one measurement."""
    max: float | None
    """Largest Delta E*ab of all pairs of measurements; None for one measurement."""


class Instrument(NamedTuple):
    """The instrument and its settings, in the spelling of the file."""

    manufacturer: str | None
    model: str | None
    serial_number: str | None
    geometry: str | None
    filter: str | None
    polarization: str | None
    measurement_source: str | None


class Sample(NamedTuple):
    """The measured sample, in the spelling of the file."""

    backing: str | None
    colorant: str | None
    manufacturer: str | None
    material: str | None
    print_conditions: str | None
    production_date: str | None
    serial_number: str | None
    target_type: str | None


def lab_to_srgb(lab: Iterable[float]) -> RGB:
    """Converts L*, a*, b* (D50) to display sRGB, each clipped to 0 to 255 and not rounded."""
    values = array("d", lab)
    if len(values) != 3:
        raise ValueError("Lab has three numbers")
    library.lab_to_srgb(address_of(values), address_of(values))
    return RGB(*values)


class Densities(NamedTuple):
    """The densities of a chart."""

    names: tuple[str, ...]
    """The columns, such as "D_RED"."""
    values: Table
    """One row for each patch and one number for each name; nan where nothing was measured."""


class Keywords(Mapping[str, List[str]]):
    """The keywords of the file header: sorted names, each with its values in file order."""

    def __init__(self, entries: Iterable[tuple[str, str]]) -> None:
        self._values: dict[str, list[str]] = {}
        for name, value in entries:
            self._values.setdefault(name, []).append(value)

    def __getitem__(self, name: str) -> list[str]:
        return list(self._values[name])

    def __iter__(self) -> Iterator[str]:
        return iter(self._values)

    def __len__(self) -> int:
        return len(self._values)

    def __contains__(self, name: object) -> bool:
        return name in self._values

    def names(self) -> list[str]:
        """The names, each once, sorted."""
        return list(self._values)

    def first(self, name: str) -> str | None:
        """The first value of a keyword; None if there is no such keyword."""
        return self._values[name][0] if name in self._values else None

    def __repr__(self) -> str:
        return f"Keywords({self._values!r})"
