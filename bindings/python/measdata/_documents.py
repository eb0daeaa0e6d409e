"""Documents of the kit: files with their charts and findings."""

from __future__ import annotations

import ctypes
import math
from array import array
from collections.abc import Iterator
from dataclasses import dataclass
from enum import Enum
from typing import Any, NamedTuple

from ._libraries import decoded, kit
from ._native import Owner


class Severity(str, Enum):
    """What a finding means for the reader. Each is equal to its word, such as "repaired"."""

    NOTE = "note"
    """Worth knowing; nothing was changed and nothing is wrong."""
    REPAIRED = "repaired"
    """What was read differs from the file here."""
    DOUBTFUL = "doubtful"
    """Two readings are possible; nothing was changed."""
    LOST = "lost"
    """Something of the file cannot be kept."""

    __str__ = str.__str__


_SEVERITIES = tuple(Severity)  # in the order of mk_severity


@dataclass(frozen=True)
class Finding:
    """What was met in a file, and what was done about it."""

    code: str
    """For programs, such as "spectra-in-percent"."""
    severity: Severity
    sentence: str
    """For people, with the figures that led to the finding."""
    line: int | None
    """The line of the file, from 1; None if the finding is about no single line."""


class Facts(NamedTuple):
    """What only the kit's JSON tells of a chart."""

    condition: str | None = None
    paper_white: int | None = None
    density_names: tuple[str, ...] = ()
    densities: array[float] = array("d")
    lch: array[float] = array("d")


def _facts_of(chart: dict[str, Any]) -> Facts:
    def numbers(key: str) -> array[float]:
        rows = (patch.get(key, ()) for patch in chart.get("patches", ()))
        return array("d", (math.nan if value is None else value for row in rows for value in row))

    m = chart["condition"]["m"]
    return Facts(
        None if m is None else m["value"],
        chart["paper_white"],
        tuple(chart["density_names"]),
        numbers("densities"),
        numbers("lch"),
    )


def parsed(text: str) -> Any:
    import json  # here, because most programs do not need it

    return json.loads(text)


def parsed_before(key: str, text: str) -> Any:
    """The JSON object up to a key whose list is most of the text. In a string, the quotes of the
    key would be escaped."""
    return parsed(text[: text.index(f'"{key}": [')].rstrip(" \n,") + "}")


class Document(Owner):
    """A document of the kit. It owns the handles of all its charts."""

    __slots__ = ("_facts", "_is_dropped", "count", "users")

    def __init__(self, pointer: int | None) -> None:
        self._is_dropped = False
        self.users = 0  # comparisons, which must be released first
        super().__init__(pointer, kit.mk_close)
        self.count: int = kit.mk_num_charts(self.pointer)
        self._facts: dict[int, Facts] = {}

    def __del__(self) -> None:
        # The garbage collector may drop a document before the comparisons that refer to it.
        self._is_dropped = True
        if getattr(self, "users", 0) == 0:
            super().__del__()

    def dismiss(self) -> None:
        """Tells that a comparison no longer uses the document."""
        self.users -= 1
        if self._is_dropped:
            self.__del__()

    def handle(self, chart: int) -> ctypes.c_void_p:
        return ctypes.c_void_p(kit.mk_chart_handle(self.pointer, chart))

    def lists(self, chart: int) -> tuple[int, ...]:
        """Where the findings of a chart are: the main one has those of the whole file, too."""
        return (-1, 0) if chart == 0 else (chart,)

    def findings(self, chart: int) -> Iterator[Finding]:
        for place in self.lists(chart):
            for i in range(kit.mk_num_findings(self.pointer, place)):
                at = (self.pointer, place, i)
                yield Finding(
                    decoded(kit.mk_finding_code(*at)),
                    _SEVERITIES[kit.mk_finding_severity(*at)],
                    decoded(kit.mk_finding_sentence(*at)),
                    kit.mk_finding_line(*at) or None,
                )

    def more_findings(self, chart: int) -> int:
        return sum(kit.mk_num_more_findings(self.pointer, place) for place in self.lists(chart))

    def plain_text(self, chart: int) -> bytes:
        length = ctypes.c_size_t()
        address = kit.mk_plain_text(self.pointer, chart, ctypes.byref(length))
        if address is None:
            raise MemoryError
        return ctypes.string_at(address, length.value)

    def facts(self, chart: int) -> Facts:
        if chart not in self._facts:
            text = self.made(kit.mk_json)
            main = parsed_before("patches", text)
            if chart > 0 or main["density_names"] or main["holds"]["lch"]:
                main = parsed(text)
            charts = (main, *main.get("further_charts", ()))
            self._facts.update((i, _facts_of(one)) for i, one in enumerate(charts))
        return self._facts[chart]
