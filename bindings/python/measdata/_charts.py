"""Charts: the tables of a measurement file."""

from __future__ import annotations

import ctypes
import os
from collections.abc import Iterable
from typing import Any, Literal

from ._channels import Channel
from ._comparisons import Comparison, Formula, Match, options_of
from ._conversions import (
    Converted,
    Form,
    LabSource,
    converted,
    form_of,
    options_of as options_of_conversion,
    write_new_file,
)
from ._documents import Document, Facts, Finding
from ._libraries import decoded, kit, library, text_of
from ._native import DataSet, Native, NativeChart, Owner, messages_of
from ._native_comparison import NativeComparison
from ._patches import MergedPatch, MergedPatches, Patches, merged_at
from ._tables import Table, table_of
from ._values import Densities, Instrument, Keywords, Sample

Mode = Literal["auto", "measurement", "table"]


class Chart(NativeChart):
    """A loaded chart: a table of a measurement file. load and load_bytes create it."""

    def __init__(self, owner: Owner, source: str, position: int = 0) -> None:
        handle = owner.handle(position)
        merged = ctypes.c_void_p(library.pass_unique_data(handle))
        super().__init__(Native(owner, DataSet(owner, handle), DataSet(owner, merged)), source)
        self._position = position
        self._tables: tuple[Chart, ...] | None = None
        self.mode: Mode = "table" if library.get_parse_mode(handle) else "measurement"
        """How the library read the file: "measurement", or "table" for a semicolon table as it
        stands. A repaired table is a measurement file."""

    def close(self) -> None:
        """Closes the chart. Later uses of it raise ValueError. The native data is released when all
        charts of the file, and comparisons of them, are closed or no longer referenced."""
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

    def _document(self) -> Document | None:
        owner = self._open().owner
        return owner if isinstance(owner, Document) else None

    def _needed_document(self) -> Document:
        document = self._document()
        if document is None:
            raise ValueError("not available for a chart that was loaded with a mode")
        return document

    def _facts(self) -> Facts:
        document = self._document()
        return Facts() if document is None else document.facts(self._position)

    @property
    def messages(self) -> list[str]:
        """The messages of the load, one string for each line."""
        rows = self._open().rows
        return messages_of(rows.pointer)

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
        return merged_at(self, self._ask(library.get_paperwhite_index))

    @property
    def channels(self) -> tuple[Channel, ...]:
        return tuple(Channel(self, i) for i in range(self._ask(library.num_device_channels)))

    @property
    def device_space(self) -> Literal["CMYK", "CMY", "RGB"] | None:
        """The kind of the device channels; None for other channels."""
        if self._ask(library.dev_is_cmyk):
            return "CMYK"
        if self._ask(library.dev_is_cmy):
            return "CMY"
        return "RGB" if self._ask(library.dev_is_rgb) else None

    @property
    def holds(self) -> frozenset[str]:
        """The kinds of data in the file: "device", "xyz", "lab", "lch", "spectrum", "id", "name",
        "location"."""
        questions = {
            "device": library.has_device_data,
            "xyz": library.has_xyz_data,
            "lab": library.has_lab_data,
            "lch": library.has_lch_data,
            "spectrum": library.has_spectral_data,
            "id": library.has_sample_id_data,
            "name": library.has_sample_name_data,
            "location": library.has_sample_loc_data,
        }
        return frozenset(kind for kind, question in questions.items() if self._ask(question))

    @property
    def wavelengths(self) -> tuple[float, ...]:
        """The wavelengths of the spectra in nm; empty without spectra. The library returns only the
        first and the last; the others are interpolated."""
        size = self._ask(library.spectral_size)
        start, end = self._ask(library.spectral_start), self._ask(library.spectral_end)
        return tuple(start + i * (end - start) / max(size - 1, 1) for i in range(size))

    @property
    def keywords(self) -> Keywords:
        """A copy of the keywords. It stays valid after the chart is closed."""
        ask = self._ask
        return Keywords(
            (decoded(ask(library.get_keyword, i)), decoded(ask(library.get_value, i)))
            for i in range(ask(library.num_keywords))
        )

    @property
    def instrument(self) -> Instrument:
        return Instrument(
            *(text_of(self._ask(getattr(library, "device_" + f))) for f in Instrument._fields)
        )

    @property
    def sample(self) -> Sample:
        return Sample(
            *(text_of(self._ask(getattr(library, "sample_" + f))) for f in Sample._fields)
        )

    @property
    def illuminant(self) -> str | None:
        """The illuminant of the file's colorimetric values, such as "D50"; or None."""
        return text_of(self._ask(library.illuminant))

    @property
    def observer(self) -> str | None:
        """The observer angle of the file's colorimetric values, such as "2"; or None."""
        return text_of(self._ask(library.observer))

    @property
    def density_status(self) -> str | None:
        """The density status, such as "Status T"; or None."""
        return text_of(self._ask(library.density_status))

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
        return Densities(names, table_of(facts.densities[:], len(names)))

    @property
    def lch(self) -> Table | None:
        """L*, C* and h of all patches, as the file has them; None if it has none, or without
        repair."""
        lch = self._facts().lch
        return table_of(lch[:], 3) if lch else None

    @property
    def plain_text(self) -> bytes:
        """The chart as a plain measurement file that every program reads. It is bytes, because a
        file that needs no repair is returned byte for byte; a repaired one is UTF-8."""
        return self._needed_document().plain_text(self._position)

    def to_json(self) -> str:
        """The whole file with all its charts as a JSON object."""
        return self._needed_document().made(kit.mk_json)

    def to_html(self) -> str:
        """The whole file with all its charts as an HTML page without scripts."""
        return self._needed_document().made(kit.mk_html)

    def converted(
        self,
        form: Form,
        *,
        select: str | Iterable[str] | None = None,
        lab_from: LabSource | None = None,
        grid: tuple[float, float, float] | None = None,
        merged: bool = False,
        percent: bool = False,
        keep_unknown: bool = False,
        digits: int = 0,
        decimal_comma: bool = False,
        bare: bool = False,
        cxf_pairs: bool = False,
    ) -> Converted:
        """The chart in another form, with sentences about what the form cannot hold.

        `select` names columns: "names", "device", "lab", "lch", "xyz", "xyy", "density", "spectra",
        "unknown". `lab_from` tells where Lab come from, `grid` is the first and the last wavelength
        and the step in nm to which spectra are averaged. `merged` writes one row a colour, the mean
        of its repeats, and `percent` spectra in percent. Text and ti3 leave out columns that no
        answer uses, unless `keep_unknown`. Computed numbers have `digits` significant digits, or as
        few as read back equal. CSV and TSV may have a `decimal_comma`, and may be `bare`: they
        begin with the names of the columns. `cxf_pairs` writes device values and colours of CxF as
        objects of their own.

        Raises ConversionError if the chart cannot be converted as asked for.
        """
        document = self._needed_document()
        options = options_of_conversion(
            select,
            lab_from,
            grid,
            merged,
            percent,
            keep_unknown,
            digits,
            decimal_comma,
            bare,
            cxf_pairs,
        )
        return converted(document, self._position, form, options)

    def to_csv(self, **options: Any) -> str:
        """The chart as CSV, with the options of converted()."""
        return self.converted("csv", **options).text

    def save(
        self,
        path: str | os.PathLike[str],
        form: Form | None = None,
        *,
        overwrite: bool = False,
        **options: Any,
    ) -> tuple[str, ...]:
        """Writes the chart to a file in the form that its ending tells: .txt (ISO 28178), .csv,
        .tsv, .json, .jsonl, .cxf or .ti3; or in `form`. The options are those of converted().
        Returns sentences about what the file does not hold. A file that exists stays, with
        FileExistsError, unless `overwrite`."""
        path = os.fspath(path)
        text, left_behind = self.converted(form or form_of(path), **options)
        write_new_file(path, text, overwrite)
        return left_behind

    def compare(
        self,
        sample: Chart,
        match: Match | None = None,
        formula: Formula = "de00",
        median: bool = False,
        cmc: tuple[float, float] = (2, 1),
    ) -> Comparison:
        """Compares a sample with this chart, the reference, colour by colour.

        `match` tells which patches belong together: those with the same device values ("device"),
        "id", "name" or "location", or in the same "order". None takes the first of these that both
        charts have and that fits. Repeats are averaged by their mean or `median`. All formulas are
        computed; `formula` is that of the worst colours and the page. `cmc` has the weights l and c
        of CMC(l:c).

        Raises ComparisonError if the charts cannot be compared, and ValueError for unknown options
        and for charts that were loaded with a mode.
        """
        if not isinstance(sample, Chart):
            raise TypeError("the sample must be a chart")
        options = options_of(match, formula, median, cmc)
        reference_at = (self._needed_document(), self._position)
        sample_at = (sample._needed_document(), sample._position)
        native = NativeComparison(reference_at, sample_at, options)
        return Comparison((self, sample), native, formula)

    def __repr__(self) -> str:
        native = self._native
        state = "closed" if native is None else f"{native.rows.count} patches"
        table = f", table {self._position + 1}" if self._position else ""
        return f"<Chart {self.source!r}{table}: {state}>"
