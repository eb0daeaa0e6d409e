"""The measures of a colour difference, and their figures."""

from __future__ import annotations

from typing import Generic, NamedTuple, TypeVar

_T = TypeVar("_T")


class Figures(NamedTuple):
    """What is said of one measure of many colours."""

    mean: float
    median: float
    p90: float
    """The smallest value that at least 90 % of the colours do not exceed."""
    p95: float
    max: float
    """Of signed values, the one with the largest magnitude."""
    std: float
    """The standard deviation of a sample; 0 for one colour."""
    best90: float
    """The mean of the smallest 90 %."""


class Measures(Generic[_T]):
    """The measures of one colour or of many. Differences are the sample minus the reference."""

    __slots__ = ()

    def _measured(self, name: str) -> _T:
        raise NotImplementedError

    def _is_known(self, name: str) -> bool:
        """Whether any colour has the measure."""
        raise NotImplementedError

    def _spectral(self, name: str) -> _T | None:
        return self._measured(name) if self._is_known(name) else None

    @property
    def de00(self) -> _T:
        """CIEDE2000."""
        return self._measured("de00")

    @property
    def de76(self) -> _T:
        """Delta E*ab, CIE 1976."""
        return self._measured("de76")

    @property
    def de94(self) -> _T:
        """CIE94 with the weights of graphic arts; the chroma is the reference's."""
        return self._measured("de94")

    @property
    def cmc(self) -> _T:
        """CMC(l:c) with the weights given to compare."""
        return self._measured("cmc")

    @property
    def dl(self) -> _T:
        """The difference in L*."""
        return self._measured("dl")

    @property
    def da(self) -> _T:
        """The difference in a*."""
        return self._measured("da")

    @property
    def db(self) -> _T:
        """The difference in b*."""
        return self._measured("db")

    @property
    def dc(self) -> _T:
        """The difference in chroma C*ab."""
        return self._measured("dc")

    @property
    def dh(self) -> _T:
        """The difference in hue, Delta H*ab."""
        return self._measured("dh")

    @property
    def rms(self) -> _T | None:
        """The root mean square difference of the spectra; None without common spectra."""
        return self._spectral("rms")

    @property
    def de00_a(self) -> _T | None:
        """CIEDE2000 of the spectra under illuminant A; None without common spectra."""
        return self._spectral("de00_a")

    @property
    def de00_f11(self) -> _T | None:
        """CIEDE2000 of the spectra under illuminant F11; None without common spectra."""
        return self._spectral("de00_f11")
