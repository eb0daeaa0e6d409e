"""A comparison of the kit."""

from __future__ import annotations

import ctypes
from array import array
from typing import Any

from ._documents import Document, parsed_before
from ._libraries import decoded, kit
from ._native import Owner
from ._signatures import CompareOptions
from ._tables import address_of, zeros


class ComparisonError(Exception):
    """Raised for charts that cannot be compared. Its text is a sentence that tells why."""


class NativeComparison(Owner):
    """A comparison of the kit. It keeps the documents that it uses, and what was asked."""

    __slots__ = ("_facts", "_measures", "count", "documents", "patches")

    def __init__(
        self,
        reference: tuple[Document, int],
        sample: tuple[Document, int],
        options: CompareOptions,
    ) -> None:
        charts = (reference[0].pointer, reference[1], sample[0].pointer, sample[1])
        pointer = kit.mk_compare(*charts, ctypes.byref(options))
        super().__init__(pointer, kit.mk_close_comparison)
        self.documents = (reference[0], sample[0])
        for document in self.documents:
            document.users += 1
        refusal = kit.mk_comparison_refusal(self.pointer)
        if refusal is not None:
            raise ComparisonError(decoded(refusal))
        self.count: int = kit.mk_num_compared(self.pointer)
        first, second = array("i", [0]) * self.count, array("i", [0]) * self.count
        kit.mk_compared_patches(self.pointer, address_of(first), address_of(second))
        self.patches = (first, second)
        """The positions of the first patches in the reference and in the sample."""
        self._measures: dict[str, array[float]] = {}
        self._facts: Any = None

    def __del__(self) -> None:
        super().__del__()
        for document in getattr(self, "documents", ()):
            document.dismiss()

    def measure(self, name: str) -> array[float]:
        """One number for each colour; nan where there is none."""
        values = self._measures.get(name)
        if values is None:
            values = zeros(self.count)
            kit.mk_compared_measure(self.pointer, name.encode(), address_of(values))
            self._measures[name] = values
        return values

    def figure(self, name: str) -> float | None:
        value = ctypes.c_double()
        found = kit.mk_figure(self.pointer, name.encode(), ctypes.byref(value))
        return value.value if found else None

    def facts(self) -> Any:
        """What only the JSON tells of the comparison."""
        if self._facts is None:
            self._facts = parsed_before("colours", self.made(kit.mk_comparison_json))
        return self._facts
