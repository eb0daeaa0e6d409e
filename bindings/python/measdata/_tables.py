"""Numbers of many patches or colours."""

from __future__ import annotations

from array import array
from typing import TYPE_CHECKING, List, Tuple, Union

if TYPE_CHECKING:
    import numpy
    from numpy.typing import NDArray

Table = Union["NDArray[numpy.float64]", List[Tuple[float, ...]]]
"""Rows of numbers: an array when numpy is installed, else a list of tuples."""


def zeros(count: int) -> array[float]:
    return array("d", [0.0]) * count


def address_of(values: array[float]) -> int:
    return values.buffer_info()[0]


def table_of(values: array[float], width: int) -> Table:
    try:
        import numpy
    except ImportError:
        return list(zip(*[iter(values)] * width))
    return numpy.asarray(values).reshape(-1, width)
