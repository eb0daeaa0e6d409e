"""The tone values of two charts."""

from __future__ import annotations

from typing import Any, NamedTuple


class ToneValue(NamedTuple):
    """The tone value of a step of a wedge, in percent. None where it cannot be computed."""

    value: float | None
    """By the reflectances; None for a spot colour."""
    increase: float | None
    """The tone value increase."""
    spot: float | None
    """The spot colour tone value of ISO 20654."""


class ToneStep(NamedTuple):
    """A step of a wedge in both charts. Differences are the sample minus the reference."""

    nominal: float
    """The device value in percent."""
    reference: ToneValue
    sample: ToneValue
    difference: float | None
    spot_difference: float | None


class ToneWedge(NamedTuple):
    """The tone values of an ink, in ascending order, without paper."""

    ink: str
    steps: tuple[ToneStep, ...]


def tone_wedge_of(wedge: dict[str, Any]) -> ToneWedge:
    return ToneWedge(wedge["ink"], tuple(map(_step_of, wedge["steps"])))


def _step_of(step: dict[str, Any]) -> ToneStep:
    reference, sample = _tone_of(step["reference"]), _tone_of(step["sample"])
    differences = step["difference"], step["spot_difference"]
    return ToneStep(step["nominal"], reference, sample, *differences)


def _tone_of(tone: dict[str, Any]) -> ToneValue:
    return ToneValue(tone["tone_value"], tone["increase"], tone["spot_colour_tone_value"])
