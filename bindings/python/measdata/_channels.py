"""The device channels of a chart."""

from __future__ import annotations

from ._libraries import library, text_of
from ._native import NativeChart
from ._patches import MergedPatch, merged_at


class Channel:
    """A device channel of a chart."""

    __slots__ = ("_chart", "_position")

    def __init__(self, chart: NativeChart, position: int) -> None:
        self._chart = chart
        self._position = position

    @property
    def name(self) -> str | None:
        """The name of the ink or colorant; None if the file does not name it."""
        return text_of(self._chart._ask(library.get_device_channel_name, self._position))

    @property
    def distinct(self) -> list[tuple[float, int]]:
        """The distinct values in ascending order, each with the number of its patches."""
        ask, channel = self._chart._ask, self._position
        return [
            (
                ask(library.get_distinct_dev_value, channel, i),
                ask(library.get_distinct_dev_value_count, channel, i),
            )
            for i in range(ask(library.num_distinct_dev_values, channel))
        ]

    @property
    def wedge(self) -> list[MergedPatch]:
        """The merged patches in which only this channel is not 0, in ascending order."""
        ask, channel = self._chart._ask, self._position
        return [
            MergedPatch(self._chart, ask(library.get_wedge_index, channel, step))
            for step in range(ask(library.num_wedge_steps, channel))
        ]

    @property
    def solid(self) -> MergedPatch | None:
        """The last step of the wedge if its value is exactly 100, otherwise None."""
        return merged_at(self._chart, self._chart._ask(library.get_solid_index, self._position))

    def __repr__(self) -> str:
        return f"<Channel {self._position} of {self._chart.source!r}>"
