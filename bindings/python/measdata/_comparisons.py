"""Two charts compared colour by colour."""

from __future__ import annotations

import math
from collections.abc import Iterator
from heapq import nlargest
from typing import Literal

from ._documents import Finding, Severity
from ._libraries import kit
from ._measures import Figures, Measures
from ._native import NativeChart
from ._native_comparison import NativeComparison
from ._patches import Patch
from ._signatures import CompareOptions
from ._tables import Numbers, Positions, numbers_of, positions_of
from ._tone_values import ToneWedge, tone_wedge_of

Match = Literal["device", "id", "name", "location", "order"]
Formula = Literal["de00", "de76", "de94", "cmc"]

_MATCHES = (None, "device", "id", "name", "location", "order")  # in the order of mk_match
_FORMULAS = ("de00", "de76", "de94", "cmc")  # in the order of mk_formula


def options_of(
    match: Match | None, formula: Formula, median: bool, cmc: tuple[float, float]
) -> CompareOptions:
    if match not in _MATCHES:
        raise ValueError("match must be None, 'device', 'id', 'name', 'location' or 'order'")
    if formula not in _FORMULAS:
        raise ValueError("formula must be 'de00', 'de76', 'de94' or 'cmc'")
    lightness, chroma = cmc
    if not (0 < lightness < math.inf and 0 < chroma < math.inf):
        raise ValueError("cmc must be two numbers above 0")
    return CompareOptions(
        _MATCHES.index(match), _FORMULAS.index(formula), bool(median), lightness, chroma
    )


class Group(Measures[Figures]):
    """The figures of a group of colours, such as group.de00.p95."""

    __slots__ = ("_comparison", "_name")

    def __init__(self, comparison: Comparison, name: str) -> None:
        self._comparison = comparison
        self._name = name

    @property
    def count(self) -> int:
        """The number of colours."""
        count: int = self._comparison._open().facts()[self._name]["count"]
        return count

    def _measured(self, name: str) -> Figures:
        figure = self._comparison._open().figure
        values = (figure(f"{self._name}.{name}.{field}") for field in Figures._fields)
        return Figures(*(math.nan if value is None else value for value in values))

    def _is_known(self, name: str) -> bool:
        return self._comparison._open().figure(f"{self._name}.{name}.mean") is not None

    def __repr__(self) -> str:
        return f"<Group {self._name!r} of {self._comparison!r}>"


class ComparedColour(Measures[float]):
    """A colour that both charts have. Repeats are averaged and count as one colour."""

    __slots__ = ("_comparison", "_position")

    def __init__(self, comparison: Comparison, position: int) -> None:
        self._comparison = comparison
        self._position = position

    @property
    def index(self) -> int:
        """The position among the colours of the comparison, from 0."""
        return self._position

    @property
    def reference(self) -> Patch:
        """The first patch of the colour in the reference."""
        return self._comparison._patch(0, self._position)

    @property
    def sample(self) -> Patch:
        """The first patch of the colour in the sample."""
        return self._comparison._patch(1, self._position)

    def _measured(self, name: str) -> float:
        return self._comparison._open().measure(name)[self._position]

    def _is_known(self, name: str) -> bool:
        return not math.isnan(self._measured(name))

    def __repr__(self) -> str:
        return f"<ComparedColour {self._position} of {self._comparison!r}>"


class Comparison(Measures[Numbers]):
    """Two charts compared colour by colour. Chart.compare creates it.

    It is a sequence of the colours that both charts have with Lab, in the order of the reference.
    Its measures have one number for each colour: an array if numpy is installed, otherwise a list.
    """

    def __init__(
        self,
        charts: tuple[NativeChart, NativeChart],
        native: NativeComparison,
        formula: Formula,
    ) -> None:
        self._charts = charts
        self._native: NativeComparison | None = native
        self.formula: Formula = formula
        """The formula of worst, and of the pictures and verdicts of the page."""

    def close(self) -> None:
        """Closes the comparison. Later uses of it raise ValueError. The charts stay open."""
        self._native = None

    @property
    def closed(self) -> bool:
        return self._native is None

    def __enter__(self) -> Comparison:
        self._open()
        return self

    def __exit__(self, *_: object) -> None:
        self.close()

    def _open(self) -> NativeComparison:
        native = self._native
        if native is None:
            raise ValueError("the comparison is closed")
        return native

    def _measured(self, name: str) -> Numbers:
        return numbers_of(self._open().measure(name))

    def _is_known(self, name: str) -> bool:
        return not all(map(math.isnan, self._open().measure(name)))

    def _patch(self, side: Literal[0, 1], position: int) -> Patch:
        return Patch(self._charts[side], self._open().patches[side][position])

    def __len__(self) -> int:
        return self._open().count

    def __getitem__(self, position: int) -> ComparedColour:
        try:
            return ComparedColour(self, range(len(self))[position])
        except IndexError:
            raise IndexError("there is no such colour") from None

    def __iter__(self) -> Iterator[ComparedColour]:
        return (ComparedColour(self, position) for position in range(len(self)))

    def worst(self, count: int = 10) -> list[ComparedColour]:
        """The colours with the largest differences in the formula, the largest first."""
        differences = self._open().measure(self.formula)
        positions = nlargest(count, range(len(differences)), differences.__getitem__)
        return [ComparedColour(self, position) for position in positions]

    @property
    def reference_patches(self) -> Positions:
        """For each colour the position of its first patch in the reference."""
        return positions_of(self._open().patches[0])

    @property
    def sample_patches(self) -> Positions:
        """For each colour the position of its first patch in the sample."""
        return positions_of(self._open().patches[1])

    @property
    def all(self) -> Group:
        """The figures of all colours."""
        return Group(self, "all")

    def _group(self, name: str) -> Group | None:
        group = Group(self, name)
        return group if group._is_known("de76") else None

    @property
    def paper(self) -> Group | None:
        """The figures of the paper; None if it was not compared."""
        return self._group("paper")

    @property
    def solids(self) -> Group | None:
        """The figures of single inks or channels at full; None if there are none."""
        return self._group("solids")

    @property
    def wedges(self) -> Group | None:
        """The figures of single inks or channels at any value; None if there are none."""
        return self._group("wedges")

    @property
    def overprints(self) -> Group | None:
        """The figures of two or more inks or channels at full; None if there are none."""
        return self._group("overprints")

    @property
    def greys(self) -> Group | None:
        """The figures of colours that are nearly neutral on this paper; None if there are none."""
        return self._group("greys")

    @property
    def surface(self) -> Group | None:
        """The figures of the surface of the device space; None if there are none."""
        return self._group("surface")

    @property
    def match(self) -> str:
        """A sentence about what was matched and why."""
        sentence: str = self._open().facts()["match"]
        return sentence

    @property
    def findings(self) -> tuple[Finding, ...]:
        """What to know before any figure, such as different measurement conditions."""
        return tuple(
            Finding(found["code"], Severity(found["severity"]), found["sentence"], found["line"])
            for found in self._open().facts()["findings"]
        )

    @property
    def only_in_reference(self) -> tuple[str, ...]:
        """The labels of the colours that the sample does not have."""
        return tuple(self._open().facts()["only_in_reference"])

    @property
    def only_in_sample(self) -> tuple[str, ...]:
        """The labels of the colours that the reference does not have."""
        return tuple(self._open().facts()["only_in_sample"])

    @property
    def tone_values(self) -> tuple[ToneWedge, ...]:
        """The tone values of each ink whose paper and solid both charts have; empty for RGB."""
        return tuple(map(tone_wedge_of, self._open().facts()["tone_values"]))

    def to_json(self) -> str:
        """The whole comparison as a JSON object."""
        return self._open().made(kit.mk_comparison_json)

    def to_html(self) -> str:
        """The comparison as an HTML page without scripts."""
        return self._open().made(kit.mk_comparison_html)

    def __repr__(self) -> str:
        reference, sample = (chart.source for chart in self._charts)
        state = "closed" if self._native is None else f"{self._native.count} colours"
        return f"<Comparison of {reference!r} and {sample!r}: {state}>"
