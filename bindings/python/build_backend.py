"""Packs the package measdata for pip (PEP 517 and 660); needs the standard library alone."""

from __future__ import annotations

import base64
import hashlib
import io
import re
import tarfile
import zipfile
from pathlib import Path

_HERE = Path(__file__).resolve().parent
_FILES = {
    f"measdata/{path.name}": path.read_text(encoding="utf-8")
    for path in sorted((_HERE / "measdata").iterdir())
    if path.suffix == ".py" or path.name == "py.typed"
}
_VERSION = re.findall(r'^__version__ = "(.+)"$', _FILES["measdata/__init__.py"], re.MULTILINE)[0]
_NAME = f"measdata-{_VERSION}"
_METADATA = f"""\
Metadata-Version: 2.1
Name: measdata
Version: {_VERSION}
Summary: Reads colour-measurement files
License: MIT
Requires-Python: >=3.9
Provides-Extra: arrays
Requires-Dist: numpy; extra == "arrays"
Description-Content-Type: text/markdown

{(_HERE / "README.md").read_text(encoding="utf-8")}"""
_WHEEL = """\
Wheel-Version: 1.0
Generator: measdata
Root-Is-Purelib: true
Tag: py3-none-any
"""


def _write_wheel(directory: str, files: dict[str, str]) -> str:
    info = f"{_NAME}.dist-info"
    files = {**files, f"{info}/METADATA": _METADATA, f"{info}/WHEEL": _WHEEL}
    record = ""
    for path, text in files.items():
        data = text.encode("utf-8")
        digest = base64.urlsafe_b64encode(hashlib.sha256(data).digest()).rstrip(b"=").decode()
        record += f"{path},sha256={digest},{len(data)}\n"
    files[f"{info}/RECORD"] = record + f"{info}/RECORD,,\n"
    wheel = f"{_NAME}-py3-none-any.whl"
    with zipfile.ZipFile(Path(directory) / wheel, "w", zipfile.ZIP_DEFLATED) as archive:
        for path, text in files.items():
            archive.writestr(path, text.encode("utf-8"))
    return wheel


def build_wheel(
    wheel_directory: str, config_settings: object = None, metadata_directory: object = None
) -> str:
    return _write_wheel(wheel_directory, _FILES)


def build_editable(
    wheel_directory: str, config_settings: object = None, metadata_directory: object = None
) -> str:
    return _write_wheel(wheel_directory, {"measdata.pth": f"{_HERE}\n"})


def build_sdist(sdist_directory: str, config_settings: object = None) -> str:
    sdist = f"{_NAME}.tar.gz"
    with tarfile.open(Path(sdist_directory) / sdist, "w:gz", format=tarfile.PAX_FORMAT) as archive:
        for name in ("README.md", "build_backend.py", "pyproject.toml", *_FILES):
            archive.add(_HERE / name, f"{_NAME}/{name}")
        about = tarfile.TarInfo(f"{_NAME}/PKG-INFO")
        data = _METADATA.encode("utf-8")
        about.size = len(data)
        archive.addfile(about, io.BytesIO(data))
    return sdist
