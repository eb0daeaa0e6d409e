"""Reads colour-measurement files: CGATS.17 / ISO 28178 text files, semicolon tables, spreadsheets.

    import measdata

    with measdata.load("chart.txt") as chart:
        for patch in chart.patches:
            print(patch.id, patch.device, patch.lab, patch.hex)

Repair: a load repairs what deviates from the format: wrong counts, spectra in percent, missing Lab.
The chart's findings tell what was met and done. A file that needs no repair is read as it stands.
With repair=False every file is read as it stands.

Units: Lab is CIELAB with L* from 0 to 100, computed from the spectra (D50, 2 degrees) if the file
has them. Wavelengths are in nanometres. Device values and XYZ have the scale of the file. Data
that the file does not have is None.

Encoding: texts of a file are read as UTF-8 or, if that fails, as Latin-1.

Memory: a chart keeps the native data until it is closed or no longer referenced. Its patches keep
the chart alive. The charts of a file share its data, but each is closed on its own. All results
are copies. Using a closed chart raises ValueError.

Threads: a load releases the interpreter lock, so files load in parallel. Queries keep the lock, so
threads may share a chart, and may close it while others use it. On an interpreter without the
lock, use a chart in one thread at a time.

The native library measdata is the first that exists: the file named by the environment variable
MEASDATA_LIBRARY, a library next to this module, or one that the system finds. The library measkit
is found in the same way, by MEASKIT_LIBRARY, but next to the measdata library first.
"""

from __future__ import annotations

import ctypes
import ctypes.util
import json
import math
import os
import sys
from array import array
from collections.abc import Callable, Iterable, Iterator, Mapping, Sequence
from dataclasses import dataclass
from enum import Enum
from typing import (
    TYPE_CHECKING,
    Any,
    List,
    Literal,
    NamedTuple,
    Tuple,
    TypeVar,
    Union,
    overload,
)

if TYPE_CHECKING:
    import numpy
    from numpy.typing import NDArray

__all__ = [
    "RGB",
    "XYZ",
    "Channel",
    "Chart",
    "Densities",
    "Finding",
    "Instrument",
    "Keywords",
    "Lab",
    "MeasurementError",
    "MergedPatch",
    "MergedPatches",
    "Patch",
    "Patches",
    "RepeatStats",
    "Sample",
    "Severity",
    "lab_to_srgb",
    "load",
    "load_bytes",
    "version",
]
__version__ = "1.9.7"

Mode = Literal["auto", "measurement", "table"]
Table = Union["NDArray[numpy.float64]", List[Tuple[float, ...]]]
"""Rows of numbers: an array when numpy is installed, else a list of tuples."""

# ---- The native libraries ----------------------------------------------------------------------


class _DeStats(ctypes.Structure):
    _fields_ = (
        ("repeat_count", ctypes.c_int32),
        ("de_mean", ctypes.c_double),
        ("de_max", ctypes.c_double),
    )
    repeat_count: int
    de_mean: float
    de_max: float


_INT, _DOUBLE, _TEXT = ctypes.c_int, ctypes.c_double, ctypes.c_char_p
_POINTER = ctypes.c_void_p  # handles and, as plain addresses, arrays of numbers

# Functions by result and arguments.
_Signatures = Tuple[Tuple[Any, Tuple[Any, ...], str], ...]
_SIGNATURES: _Signatures = (
    (_POINTER, (), "init_parser"),
    (None, (ctypes.POINTER(_POINTER),), "cleanup_parser"),
    (_INT, (_POINTER, _TEXT), "parse_file has_keyword num_keyword_values"),
    (_INT, (_POINTER, ctypes.c_size_t, _TEXT, _TEXT), "parse_mem"),
    (None, (_POINTER, _INT), "set_parse_mode"),
    (_POINTER, (_POINTER,), "pass_unique_data"),
    (_TEXT, (), "parser_version"),
    (_INT, (), "parser_version_major parser_version_minor parser_version_bugfix"),
    (
        _INT,
        (_POINTER,),
        "get_parse_mode num_patches num_device_channels num_indices num_keywords"
        " get_paperwhite_index dev_is_cmyk dev_is_cmy dev_is_rgb spectral_size"
        " has_device_data has_xyz_data has_lab_data has_lch_data has_spectral_data has_color_data"
        " has_sample_id_data has_sample_loc_data has_sample_name_data",
    ),
    (_DOUBLE, (_POINTER,), "spectral_start spectral_end spectral_step"),
    (
        _TEXT,
        (_POINTER,),
        "parse_messages copyright density_status illuminant observer"
        " device_manufacturer device_model device_serial_number device_geometry device_filter"
        " device_polarization device_measurement_source"
        " sample_backing sample_colorant sample_manufacturer sample_material"
        " sample_print_conditions sample_production_date sample_serial_number sample_target_type",
    ),
    (
        _TEXT,
        (_POINTER, _INT),
        "get_id_from_patch get_loc_from_patch get_name_from_patch get_name_from_index"
        " get_device_channel_name get_keyword get_value",
    ),
    (
        None,
        (_POINTER, _INT, _POINTER),
        "get_dev_from_patch get_xyz_from_patch get_lab_from_patch"
        " get_dev_from_index get_lab_from_index",
    ),
    (_POINTER, (_POINTER, _INT), "get_spectrum_from_patch get_spectrum_from_index"),
    (None, (_POINTER, _INT, ctypes.POINTER(_DeStats)), "get_de_stats_from_index"),
    (_INT, (_POINTER, _INT), "num_distinct_dev_values num_wedge_steps get_solid_index"),
    (_DOUBLE, (_POINTER, _INT, _INT), "get_distinct_dev_value"),
    (_INT, (_POINTER, _INT, _INT), "get_distinct_dev_value_count get_wedge_index"),
    (_TEXT, (_POINTER, _TEXT), "get_value_of_keyword"),
    (_TEXT, (_POINTER, _INT, _TEXT), "get_ith_value_of_keyword"),
    (None, (_POINTER, _POINTER), "lab_to_srgb"),
)


_AT_CHART, _AT_FINDING = (_POINTER, _INT), (_POINTER, _INT, _INT)
_KIT_SIGNATURES: _Signatures = (
    (_POINTER, (_TEXT, _INT), "mk_open_file"),
    (_POINTER, (ctypes.c_size_t, _TEXT, _TEXT, _INT), "mk_open_block"),
    (None, (ctypes.POINTER(_POINTER),), "mk_close"),
    (_TEXT, (), "mk_version"),
    (_INT, (_POINTER,), "mk_num_charts"),
    (_TEXT, _AT_CHART, "mk_chart_name"),
    (_POINTER, _AT_CHART, "mk_chart_handle"),
    # An address, because the text may hold zero bytes.
    (_POINTER, (_POINTER, _INT, ctypes.POINTER(ctypes.c_size_t)), "mk_plain_text"),
    (_INT, _AT_CHART, "mk_num_findings mk_num_more_findings"),
    (_TEXT, _AT_FINDING, "mk_finding_code mk_finding_sentence"),
    (_INT, _AT_FINDING, "mk_finding_severity mk_finding_line"),
    (_TEXT, (_POINTER,), "mk_json mk_html"),
    (_TEXT, (ctypes.POINTER(_POINTER), _INT), "mk_html_of"),
)
_MK_REPAIR, _MK_AS_IS = 0, 1


def _library_paths(name: str, folders: Iterable[str]) -> Iterator[str]:
    chosen = os.environ.get(_variable(name))
    if chosen:
        yield chosen
        return
    files = {"win32": [f"{name}.dll"], "darwin": [f"lib{name}.1.dylib", f"lib{name}.dylib"]}.get(
        sys.platform, [f"lib{name}.so.1", f"lib{name}.so"]
    )
    beside = [os.path.join(folder, file) for folder in folders for file in files if folder]
    yield from filter(os.path.exists, beside)
    found = ctypes.util.find_library(name)
    if found:
        yield found
    yield from files


def _variable(name: str) -> str:
    return f"{name.upper()}_LIBRARY"


def _declare(library: ctypes.CDLL, signatures: _Signatures) -> None:
    for result, arguments, names in signatures:
        for name in names.split():
            function = getattr(library, name)
            function.restype = result
            function.argtypes = arguments


def _open_library(
    name: str, signatures: _Signatures, *folders: str
) -> tuple[ctypes.PyDLL, ctypes.CDLL]:
    """Opens a library twice: with calls that keep the interpreter lock, and calls that do not."""
    failures = []
    for path in _library_paths(name, folders):
        try:
            holding, releasing = ctypes.PyDLL(path), ctypes.CDLL(path)
            _declare(holding, signatures)
            _declare(releasing, signatures)
            return holding, releasing
        except (OSError, AttributeError) as error:  # not loadable, or another library
            failures.append(f"\n  {path}: {error}")
    raise OSError(
        f"the {name} library cannot be loaded; install it, or set the environment variable"
        f" {_variable(name)} to its file. Tried:" + "".join(failures)
    )


_here = os.path.dirname(os.path.abspath(__file__))
_library, _releasing_library = _open_library("measdata", _SIGNATURES, _here)
_kit, _releasing_kit = _open_library(
    "measkit", _KIT_SIGNATURES, os.path.dirname(_library._name), _here
)


def _decoded(text: bytes) -> str:
    try:
        return text.decode("utf-8")
    except UnicodeDecodeError:
        return text.decode("latin-1")


def _text(text: bytes | None) -> str | None:
    return None if text is None else _decoded(text)


version: str = _decoded(_library.parser_version())
"""The version of the native library."""


class _Owner:
    """Owns a native object. Callers of the libraries keep it referenced until the call returns."""

    __slots__ = ("_release", "pointer")

    def __init__(self, pointer: int | None, release: Callable[..., None]) -> None:
        self._release = release  # still exists while the module is torn down
        # An object instead of a number, because there must be no second owner.
        self.pointer = ctypes.c_void_p(pointer)
        if not self.pointer:
            raise MemoryError

    def __del__(self) -> None:
        if hasattr(self, "pointer"):
            self._release(ctypes.byref(self.pointer))

    def handle(self, chart: int) -> ctypes.c_void_p:
        """The pointer that the measdata library takes for a chart."""
        raise NotImplementedError


class _Parser(_Owner):
    """A handle of the measdata library, without the kit."""

    __slots__ = ()

    def __init__(self, parse_mode: int) -> None:
        super().__init__(_library.init_parser(), _library.cleanup_parser)
        _library.set_parse_mode(self.pointer, parse_mode)

    def handle(self, chart: int) -> ctypes.c_void_p:
        return self.pointer


def _messages(handle: ctypes.c_void_p) -> list[str]:
    # Names from the file are part of the text, so only line feeds separate lines.
    lines = _decoded(_library.parse_messages(handle)).split("\n")
    return lines[:-1] if lines[-1] == "" else lines


class _DataSet:
    """The patches or the merged patches of a chart, behind one pointer of the library."""

    __slots__ = ("count", "owner", "pointer", "widths")

    def __init__(self, owner: _Owner, pointer: ctypes.c_void_p) -> None:
        self.owner = owner
        self.pointer = pointer
        self.count: int = _library.num_patches(pointer)
        has = _library
        # The number of values of each kind per patch; 0 if the file has none.
        self.widths: dict[str, int] = {
            "device": has.has_device_data(pointer) and has.num_device_channels(pointer),
            "xyz": has.has_xyz_data(pointer) and 3,
            "lab": 3 if self._has_lab() else 0,
            "spectrum": has.has_spectral_data(pointer) and has.spectral_size(pointer),
        }

    def _has_lab(self) -> bool:
        """Whether the library writes Lab: if so, two different arrays become equal."""
        answers = []
        for fill in (0.0, 1.0):
            lab = array("d", [fill] * 3)
            _library.get_lab_from_patch(self.pointer, 0, _address(lab))
            answers.append(lab.tobytes())
        return answers[0] == answers[1]

    def fill(self, kind: str, positions: Sequence[int], address: int) -> None:
        """Writes the numbers of the patches one after the other."""
        stride = self.widths[kind] * ctypes.sizeof(_DOUBLE)
        if kind == "spectrum":
            self._fill_spectra(positions, address, stride)
        else:
            write, pointer = _WRITERS[kind], self.pointer
            for position in positions:
                write(pointer, position, address)
                address += stride

    def _fill_spectra(self, positions: Sequence[int], address: int, stride: int) -> None:
        sources = [_library.get_spectrum_from_patch(self.pointer, p) for p in positions]
        if None in sources:
            raise LookupError("a patch has no spectrum")
        if sources and sources == _steps(sources[0], stride, len(sources)):
            ctypes.memmove(address, sources[0], stride * len(sources))  # all are in one block
            return
        for source in sources:
            ctypes.memmove(address, source, stride)
            address += stride

    def row(self, kind: str, position: int) -> tuple[float, ...] | None:
        width = self.widths[kind]
        if width == 0:
            return None
        values = (_DOUBLE * width)()
        self.fill(kind, (position,), ctypes.addressof(values))
        return tuple(values)

    def table(self, kind: str, positions: range) -> Table | None:
        width = self.widths[kind]
        if width == 0:
            return None
        values = _zeros(width * len(positions))
        self.fill(kind, positions, _address(values))
        return _table(values, width)


_WRITERS: dict[str, Callable[[ctypes.c_void_p, int, int], None]] = {
    "device": _library.get_dev_from_patch,
    "xyz": _library.get_xyz_from_patch,
    "lab": _library.get_lab_from_patch,
}


def _steps(first: int, step: int, count: int) -> list[int]:
    return list(range(first, first + step * count, step))


def _zeros(count: int) -> array[float]:
    return array("d", [0.0]) * count


def _address(values: array[float]) -> int:
    return values.buffer_info()[0]


def _table(values: array[float], width: int) -> Table:
    try:
        import numpy
    except ImportError:
        return list(zip(*[iter(values)] * width))
    return numpy.asarray(values).reshape(-1, width)


# ---- Colours and statistics --------------------------------------------------------------------


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
    _library.lab_to_srgb(_address(values), _address(values))
    return RGB(*values)


# ---- Findings and documents --------------------------------------------------------------------


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


class Densities(NamedTuple):
    """The densities of a chart."""

    names: tuple[str, ...]
    """The columns, such as "D_RED"."""
    values: Table
    """One row for each patch and one number for each name; nan where nothing was measured."""


class _Facts(NamedTuple):
    """What only the kit's JSON tells of a chart."""

    condition: str | None = None
    paper_white: int | None = None
    density_names: tuple[str, ...] = ()
    densities: array[float] = array("d")
    lch: array[float] = array("d")


def _facts_of(chart: dict[str, Any]) -> _Facts:
    def numbers(key: str) -> array[float]:
        rows = (patch.get(key, ()) for patch in chart.get("patches", ()))
        return array("d", (math.nan if value is None else value for row in rows for value in row))

    m = chart["condition"]["m"]
    return _Facts(
        None if m is None else m["value"],
        chart["paper_white"],
        tuple(chart["density_names"]),
        numbers("densities"),
        numbers("lch"),
    )


def _without_patches(document: str) -> Any:
    """The JSON of the main chart up to its patches, which are most of the text. In a string, the
    quotes of the key would be escaped."""
    return json.loads(document[: document.index('"patches": [')].rstrip(" \n,") + "}")


class _Document(_Owner):
    """A document of the kit. It owns the handles of all its charts."""

    __slots__ = ("_facts", "count")

    def __init__(self, pointer: int | None) -> None:
        super().__init__(pointer, _kit.mk_close)
        self.count: int = _kit.mk_num_charts(self.pointer)
        self._facts: dict[int, _Facts] = {}

    def handle(self, chart: int) -> ctypes.c_void_p:
        return ctypes.c_void_p(_kit.mk_chart_handle(self.pointer, chart))

    def lists(self, chart: int) -> tuple[int, ...]:
        """Where the findings of a chart are: the main one has those of the whole file, too."""
        return (-1, 0) if chart == 0 else (chart,)

    def findings(self, chart: int) -> Iterator[Finding]:
        for place in self.lists(chart):
            for i in range(_kit.mk_num_findings(self.pointer, place)):
                at = (self.pointer, place, i)
                yield Finding(
                    _decoded(_kit.mk_finding_code(*at)),
                    _SEVERITIES[_kit.mk_finding_severity(*at)],
                    _decoded(_kit.mk_finding_sentence(*at)),
                    _kit.mk_finding_line(*at) or None,
                )

    def more_findings(self, chart: int) -> int:
        return sum(_kit.mk_num_more_findings(self.pointer, place) for place in self.lists(chart))

    def plain_text(self, chart: int) -> bytes:
        length = ctypes.c_size_t()
        address = _kit.mk_plain_text(self.pointer, chart, ctypes.byref(length))
        if address is None:
            raise MemoryError
        return ctypes.string_at(address, length.value)

    def made(self, function: Callable[..., bytes | None]) -> str:
        """The JSON or the HTML."""
        text = function(self.pointer)
        if text is None:
            raise MemoryError
        return _decoded(text)

    def facts(self, chart: int) -> _Facts:
        if chart not in self._facts:
            text = self.made(_kit.mk_json)
            main = _without_patches(text)
            if chart > 0 or main["density_names"] or main["holds"]["lch"]:
                main = json.loads(text)
            charts = (main, *main.get("further_charts", ()))
            self._facts.update((i, _facts_of(one)) for i, one in enumerate(charts))
        return self._facts[chart]


# ---- Patches -----------------------------------------------------------------------------------


class Patch:
    """A row of the file. It stores no values; each access reads them from the chart."""

    __slots__ = ("_chart", "_position")

    def __init__(self, chart: Chart, position: int) -> None:
        self._chart = chart
        self._position = position

    def _data(self) -> _DataSet:
        return self._chart._open().rows

    @property
    def index(self) -> int:
        """The position among the patches of the chart, from 0."""
        return self._position

    @property
    def id(self) -> str:
        """The identifier; empty if there is none."""
        data = self._data()
        return _decoded(_library.get_id_from_patch(data.pointer, self._position))

    @property
    def name(self) -> str:
        """The name; empty if there is none."""
        data = self._data()
        return _decoded(_library.get_name_from_patch(data.pointer, self._position))

    @property
    def location(self) -> str:
        """The location on the chart; empty if there is none."""
        data = self._data()
        return _decoded(_library.get_loc_from_patch(data.pointer, self._position))

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

    def _data(self) -> _DataSet:
        return self._chart._open().merged

    @property
    def stats(self) -> RepeatStats | None:
        """The statistics of its measurements; None without device values or without colour."""
        rows = self._chart._open().rows
        stats = _DeStats(repeat_count=-1)
        _library.get_de_stats_from_index(rows.pointer, self._position, ctypes.byref(stats))
        if stats.repeat_count < 0:
            return None
        if stats.repeat_count < 2:
            return RepeatStats(1, None, None)
        return RepeatStats(stats.repeat_count, stats.de_mean, stats.de_max)


_P = TypeVar("_P", bound=Patch)
_S = TypeVar("_S", bound="_PatchSequence[Any]")


class _PatchSequence(Sequence[_P]):
    """A lazy sequence. Slices are sequences of the same type.

    The methods return the values of all its patches, with one row for each patch: an array if numpy
    is installed, otherwise a list of tuples, or None if the file has no such data.
    """

    __slots__ = ("_chart", "_positions")
    _patch: type[_P]

    def __init__(self, chart: Chart, positions: range) -> None:
        self._chart = chart
        self._positions = positions

    def _data(self) -> _DataSet:
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
        values = _zeros(3 * len(self._positions))
        data.fill("lab", self._positions, _address(values))
        for address in _steps(_address(values), 3 * values.itemsize, len(self._positions)):
            _library.lab_to_srgb(address, address)
        return _table(values, 3)

    def __repr__(self) -> str:
        return f"<{type(self).__name__}: {len(self._positions)} of {self._chart.source!r}>"


class Patches(_PatchSequence[Patch]):
    """The patches of a chart in the order of the file."""

    __slots__ = ()
    _patch = Patch

    def _data(self) -> _DataSet:
        return self._chart._open().rows


class MergedPatches(_PatchSequence[MergedPatch]):
    """The merged patches of a chart. There are none if the file has no colours but densities, or if
    it has densities and was loaded without repair."""

    __slots__ = ()
    _patch = MergedPatch

    def _data(self) -> _DataSet:
        return self._chart._open().merged


# ---- Charts ------------------------------------------------------------------------------------


class Channel:
    """A device channel of a chart."""

    __slots__ = ("_chart", "_position")

    def __init__(self, chart: Chart, position: int) -> None:
        self._chart = chart
        self._position = position

    @property
    def name(self) -> str | None:
        """The name of the ink or colorant; None if the file does not name it."""
        return _text(self._chart._ask(_library.get_device_channel_name, self._position))

    @property
    def distinct(self) -> list[tuple[float, int]]:
        """The distinct values in ascending order, each with the number of its patches."""
        ask, channel = self._chart._ask, self._position
        return [
            (
                ask(_library.get_distinct_dev_value, channel, i),
                ask(_library.get_distinct_dev_value_count, channel, i),
            )
            for i in range(ask(_library.num_distinct_dev_values, channel))
        ]

    @property
    def wedge(self) -> list[MergedPatch]:
        """The merged patches in which only this channel is not 0, in ascending order."""
        ask, channel = self._chart._ask, self._position
        return [
            MergedPatch(self._chart, ask(_library.get_wedge_index, channel, step))
            for step in range(ask(_library.num_wedge_steps, channel))
        ]

    @property
    def solid(self) -> MergedPatch | None:
        """The last step of the wedge if its value is exactly 100, otherwise None."""
        return self._chart._merged_at(self._chart._ask(_library.get_solid_index, self._position))

    def __repr__(self) -> str:
        return f"<Channel {self._position} of {self._chart.source!r}>"


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


class _Native(NamedTuple):
    owner: _Owner
    rows: _DataSet
    merged: _DataSet


class Chart:
    """A loaded chart: a table of a measurement file. load and load_bytes create it."""

    def __init__(self, owner: _Owner, source: str, position: int = 0) -> None:
        handle = owner.handle(position)
        merged = ctypes.c_void_p(_library.pass_unique_data(handle))
        self._native: _Native | None = _Native(
            owner, _DataSet(owner, handle), _DataSet(owner, merged)
        )
        self._position = position
        self._tables: tuple[Chart, ...] | None = None
        self.source = source
        """The path or name given to the load."""
        self.mode: Mode = "table" if _library.get_parse_mode(handle) else "measurement"
        """How the library read the file: "measurement", or "table" for a semicolon table as it
        stands. A repaired table is a measurement file."""

    def close(self) -> None:
        """Closes the chart. Later uses of it raise ValueError. The native data is released when all
        charts of the file are closed or no longer referenced."""
        self._native = None
        self._tables = None

    @property
    def closed(self) -> bool:
        return self._native is None

    def __enter__(self) -> Chart:
        self._open()
        return self

    def __exit__(self, *_: object) -> None:
        self.close()

    def _open(self) -> _Native:
        native = self._native
        if native is None:
            raise ValueError("the chart is closed")
        return native

    def _ask(self, function: Callable[..., Any], *arguments: int) -> Any:
        rows = self._open().rows
        return function(rows.pointer, *arguments)

    def _document(self) -> _Document | None:
        owner = self._open().owner
        return owner if isinstance(owner, _Document) else None

    def _needed_document(self) -> _Document:
        document = self._document()
        if document is None:
            raise ValueError("not available for a chart that was loaded with a mode")
        return document

    def _facts(self) -> _Facts:
        document = self._document()
        return _Facts() if document is None else document.facts(self._position)

    def _merged_at(self, index: int) -> MergedPatch | None:
        return None if index < 0 else MergedPatch(self, index)

    @property
    def messages(self) -> list[str]:
        """The messages of the load, one string for each line."""
        rows = self._open().rows
        return _messages(rows.pointer)

    @property
    def findings(self) -> tuple[Finding, ...]:
        """What was met and repaired in this table, at most 100 findings. The main chart begins with
        the findings about the file as a whole."""
        document = self._document()
        return () if document is None else tuple(document.findings(self._position))

    @property
    def more_findings(self) -> int:
        """The number of further findings, which are not listed."""
        document = self._document()
        return 0 if document is None else document.more_findings(self._position)

    @property
    def tables(self) -> tuple[Chart, ...]:
        """The further charts of the file, made at the first use; empty for one of these charts.
        They stay open when this chart is closed."""
        document = self._document()
        if self._tables is None:
            count = 1 if document is None or self._position > 0 else document.count
            owner = self._open().owner
            self._tables = tuple(Chart(owner, self.source, i) for i in range(1, count))
        return self._tables

    @property
    def patches(self) -> Patches:
        return Patches(self, range(self._open().rows.count))

    @property
    def merged(self) -> MergedPatches:
        """The patches with repeated measurements merged."""
        return MergedPatches(self, range(self._open().merged.count))

    @property
    def paper_white(self) -> MergedPatch | None:
        """The merged patch with no ink or, for RGB, with all channels at full; None if there is
        none. Without repair it is the patch with 0 in every channel, for RGB too."""
        if self.device_space == "RGB" and self._document() is not None:
            index = self._facts().paper_white
            return None if index is None else MergedPatch(self, index)
        return self._merged_at(self._ask(_library.get_paperwhite_index))

    @property
    def channels(self) -> tuple[Channel, ...]:
        return tuple(Channel(self, i) for i in range(self._ask(_library.num_device_channels)))

    @property
    def device_space(self) -> Literal["CMYK", "CMY", "RGB"] | None:
        """The kind of the device channels; None for other channels."""
        if self._ask(_library.dev_is_cmyk):
            return "CMYK"
        if self._ask(_library.dev_is_cmy):
            return "CMY"
        return "RGB" if self._ask(_library.dev_is_rgb) else None

    @property
    def holds(self) -> frozenset[str]:
        """The kinds of data in the file: "device", "xyz", "lab", "lch", "spectrum", "id", "name",
        "location"."""
        questions = {
            "device": _library.has_device_data,
            "xyz": _library.has_xyz_data,
            "lab": _library.has_lab_data,
            "lch": _library.has_lch_data,
            "spectrum": _library.has_spectral_data,
            "id": _library.has_sample_id_data,
            "name": _library.has_sample_name_data,
            "location": _library.has_sample_loc_data,
        }
        return frozenset(kind for kind, question in questions.items() if self._ask(question))

    @property
    def wavelengths(self) -> tuple[float, ...]:
        """The wavelengths of the spectra in nm; empty without spectra. The library returns only the
        first and the last; the others are interpolated."""
        size = self._ask(_library.spectral_size)
        start, end = self._ask(_library.spectral_start), self._ask(_library.spectral_end)
        return tuple(start + i * (end - start) / max(size - 1, 1) for i in range(size))

    @property
    def keywords(self) -> Keywords:
        """A copy of the keywords. It stays valid after the chart is closed."""
        ask = self._ask
        return Keywords(
            (_decoded(ask(_library.get_keyword, i)), _decoded(ask(_library.get_value, i)))
            for i in range(ask(_library.num_keywords))
        )

    @property
    def instrument(self) -> Instrument:
        return Instrument(
            *(_text(self._ask(getattr(_library, "device_" + f))) for f in Instrument._fields)
        )

    @property
    def sample(self) -> Sample:
        return Sample(*(_text(self._ask(getattr(_library, "sample_" + f))) for f in Sample._fields))

    @property
    def illuminant(self) -> str | None:
        """The illuminant of the file's colorimetric values, such as "D50"; or None."""
        return _text(self._ask(_library.illuminant))

    @property
    def observer(self) -> str | None:
        """The observer angle of the file's colorimetric values, such as "2"; or None."""
        return _text(self._ask(_library.observer))

    @property
    def density_status(self) -> str | None:
        """The density status, such as "Status T"; or None."""
        return _text(self._ask(_library.density_status))

    @property
    def condition(self) -> str | None:
        """The measurement condition "M0", "M1", "M2" or "M3" of ISO 13655; None if the file does
        not tell it, or without repair."""
        return self._facts().condition

    @property
    def density(self) -> Densities | None:
        """The densities of all patches; None if the file has none, or without repair."""
        facts = self._facts()
        if not facts.density_names:
            return None
        names = facts.density_names
        return Densities(names, _table(facts.densities[:], len(names)))

    @property
    def lch(self) -> Table | None:
        """L*, C* and h of all patches, as the file has them; None if it has none, or without
        repair."""
        lch = self._facts().lch
        return _table(lch[:], 3) if lch else None

    @property
    def plain_text(self) -> bytes:
        """The chart as a plain measurement file that every program reads. It is bytes, because a
        file that needs no repair is returned byte for byte; a repaired one is UTF-8."""
        return self._needed_document().plain_text(self._position)

    def to_json(self) -> str:
        """The whole file with all its charts as a JSON object."""
        return self._needed_document().made(_kit.mk_json)

    def to_html(self) -> str:
        """The whole file with all its charts as an HTML page without scripts."""
        return self._needed_document().made(_kit.mk_html)

    def __repr__(self) -> str:
        native = self._native
        state = "closed" if native is None else f"{native.rows.count} patches"
        table = f", table {self._position + 1}" if self._position else ""
        return f"<Chart {self.source!r}{table}: {state}>"


# ---- Loading -----------------------------------------------------------------------------------


class MeasurementError(Exception):
    """Raised for a file that cannot be read as measurements."""

    def __init__(self, source: str, messages: list[str]) -> None:
        super().__init__(source, messages)
        self.source = source
        self.messages = messages
        """The sentences of the findings or, for a given mode, the messages of the load."""

    def __str__(self) -> str:
        return ": ".join([self.source, "; ".join(self.messages) or "no measurements"])


def load(
    path: str | bytes | os.PathLike[str] | os.PathLike[bytes],
    mode: Mode = "auto",
    *,
    repair: bool = True,
) -> Chart:
    """Loads a file and returns its main chart; the further ones are in its `tables`.

    Deviations from the format are repaired and listed in the findings. With repair=False the file
    is read as it stands: as a CGATS.17 / ISO 28178 file or its older form with a seven-character
    identifier and, if that fails, as a semicolon-separated table with known columns.

    The mode "measurement" or "table" reads a file as it stands and in this one way. Such a chart
    has no findings, further tables, plain text, JSON or HTML.

    Raises OSError if the file cannot be opened, and MeasurementError if it has no table.
    """
    encoded = os.fsencode(path)  # UTF-8 on Windows and macOS, the bytes of the name elsewhere
    if b"\0" in encoded:
        raise ValueError("embedded null character")
    parse, open_file = _releasing_library.parse_file, _releasing_kit.mk_open_file
    source = os.fsdecode(path)
    try:
        if mode == "auto":
            return _open_document(open_file(encoded, _options(repair)), source)
        return _load(lambda handle: parse(handle, encoded), source, mode)
    except MeasurementError:
        # Pipes and devices are never read, and opening one could block.
        if os.path.isfile(path) or os.path.isdir(path) or not os.path.exists(path):
            with open(path, "rb"):
                pass
        raise


def load_bytes(
    data: bytes | bytearray | memoryview,
    name: str | None = None,
    mode: Mode = "auto",
    *,
    repair: bool = True,
) -> Chart:
    """Loads the contents of a file. `name` replaces the path; load describes the rest."""
    block = data if isinstance(data, bytes) else bytes(memoryview(data))
    encoded = None if name is None else name.encode("utf-8", "surrogateescape")
    if encoded is not None and b"\0" in encoded:
        raise ValueError("embedded null character")
    parse, open_block = _releasing_library.parse_mem, _releasing_kit.mk_open_block
    source = "<bytes>" if name is None else name
    if mode == "auto":
        return _open_document(open_block(len(block), block, encoded, _options(repair)), source)
    return _load(lambda handle: parse(handle, len(block), block, encoded), source, mode)


def _options(repair: bool) -> int:
    return _MK_REPAIR if repair else _MK_AS_IS


def _open_document(pointer: int | None, source: str) -> Chart:
    document = _Document(pointer)
    if document.count == 0:
        sentences = "\n".join(finding.sentence for finding in document.findings(0))
        raise MeasurementError(source, [line for line in sentences.split("\n") if line])
    return Chart(document, source)


def _load(parse: Callable[[ctypes.c_void_p], Any], source: str, mode: Mode) -> Chart:
    if mode not in ("measurement", "table"):
        raise ValueError("mode must be 'auto', 'measurement' or 'table'")
    parser = _Parser(("measurement", "table").index(mode))
    if parse(parser.pointer):
        return Chart(parser, source)
    raise MeasurementError(source, _messages(parser.pointer))
