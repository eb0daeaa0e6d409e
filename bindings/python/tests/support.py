"""What the tests share. MEASDATA_LIBRARY names a library that has the kit next to it.

With MEASDATA_TEST_WITHOUT_NUMPY set, the tests run as if numpy were not installed.
"""

import importlib.util
import os
import sys
from pathlib import Path

BINDING = Path(__file__).resolve().parents[1]
PROJECT = BINDING.parents[1]
DATA = PROJECT / "examples" / "data"
sys.path.insert(0, str(BINDING))
if os.environ.get("MEASDATA_TEST_WITHOUT_NUMPY"):
    sys.modules["numpy"] = None
HAS_NUMPY = "numpy" not in sys.modules and importlib.util.find_spec("numpy") is not None

import measdata  # noqa: E402


def text_of(fields, rows, header=""):
    columns = f"BEGIN_DATA_FORMAT\n{fields}\nEND_DATA_FORMAT\n"
    text = f"CGATS.17\n{header}\n{columns}BEGIN_DATA\n{rows}\nEND_DATA\n"
    return text.encode("latin-1")


def chart_of(*parts, repair=False):
    return measdata.load_bytes(text_of(*parts), repair=repair)


def rows_of(table):
    return [tuple(row) for row in table]


RGB = text_of("RGB_R RGB_G RGB_B LAB_L LAB_A LAB_B", "0 0 0 5 0 0\n1 1 1 95 0 0")
