"""Numbers of many patches or colours."""

from __future__ import annotations

from array import array
from typing import TYPE_CHECKING, Any, List, Tuple, Union

if TYPE_CHECKING:
    import numpy
    from numpy.typing import NDArray

Table = Union["NDArray[numpy.float64]", List[Tuple[float, ...]]]
"""Rows of numbers: an array when numpy is installed, else a list of tuples."""
Numbers = Union["NDArray[numpy.float64]", List[float]]
"""One number for each colour: an array when numpy is installed, else a list."""
Positions = Union["NDArray[numpy.int32]", List[int]]
"""One position for each colour: an array when numpy is installed, else a list."""


def zeros(count: int) -> array[float]:
    return array("d", [0.0]) * count


def address_of(values: array[Any]) -> int:
    return values.buffer_info()[0]


def table_of(values: array[float], width: int) -> Table:
    try:
        import numpy
    except ImportError:
        return list(zip(*[iter(values)] * width))
    return numpy.asarray(values).reshape(-1, width)


def numbers_of(values: array[float]) -> Numbers:
    """A copy of the numbers."""
    try:
        import numpy
    except ImportError:
        return list(values)
    return numpy.array(values)


def positions_of(values: array[int]) -> Positions:
    """A copy of the positions."""
    try:
        import numpy
    except ImportError:
        return list(values)
    return numpy.array(values)
