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

Comparison: Chart.compare compares two charts colour by colour. Differences are the sample minus
the reference.

Conversion: Chart.save and Chart.converted write a chart in other forms: text, CSV, JSON, CxF3.

Memory: a chart keeps the native data until it is closed or no longer referenced. Its patches keep
the chart alive. The charts of a file share its data, but each is closed on its own. A comparison
also keeps the native data of its charts, even if they are closed. All results are copies. Using a
closed chart or comparison raises ValueError.

Threads: a load releases the interpreter lock, so files load in parallel. Queries keep the lock, so
threads may share a chart, and may close it while others use it. On an interpreter without the
lock, use a chart in one thread at a time.

The native library measdata is the first that exists: the file named by the environment variable
MEASDATA_LIBRARY, a library in the folder of this package, or one that the system finds. The library
measkit is found in the same way, by MEASKIT_LIBRARY, but next to the measdata library first.
"""

from __future__ import annotations

from ._channels import Channel
from ._charts import Chart, Mode as Mode
from ._comparisons import ComparedColour, Comparison, Formula as Formula, Group, Match as Match
from ._conversions import ConversionError, Converted, Form as Form, LabSource as LabSource
from ._documents import Finding, Severity
from ._libraries import version
from ._loading import MeasurementError, load, load_bytes
from ._measures import Figures
from ._native_comparison import ComparisonError
from ._patches import MergedPatch, MergedPatches, Patch, Patches
from ._tables import Numbers as Numbers, Positions as Positions, Table as Table
from ._tone_values import ToneStep, ToneValue, ToneWedge
from ._values import (
    RGB,
    XYZ,
    Densities,
    Instrument,
    Keywords,
    Lab,
    RepeatStats,
    Sample,
    lab_to_srgb,
)

__all__ = [
    "RGB",
    "XYZ",
    "Channel",
    "Chart",
    "ComparedColour",
    "Comparison",
    "ComparisonError",
    "ConversionError",
    "Converted",
    "Densities",
    "Figures",
    "Finding",
    "Group",
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
    "ToneStep",
    "ToneValue",
    "ToneWedge",
    "lab_to_srgb",
    "load",
    "load_bytes",
    "version",
]
__version__ = "1.9.7"

for _name in __all__:
    # Names in pickles, messages and signatures do not tell how the package is divided.
    if hasattr(globals()[_name], "__module__"):
        globals()[_name].__module__ = __name__
