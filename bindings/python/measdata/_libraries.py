"""Finds, opens and declares the native libraries measdata and measkit."""

from __future__ import annotations

import ctypes
import os
import sys
from collections.abc import Iterable, Iterator

from ._signatures import KIT_SIGNATURES, SIGNATURES, Signatures


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
    from ctypes.util import find_library  # slow to import, and seldom needed

    found = find_library(name)
    if found:
        yield found
    yield from files


def _variable(name: str) -> str:
    return f"{name.upper()}_LIBRARY"


def _declare(library: ctypes.CDLL, signatures: Signatures) -> None:
    for result, arguments, names in signatures:
        for name in names.split():
            function = getattr(library, name)
            function.restype = result
            function.argtypes = arguments


def _open_library(
    name: str, signatures: Signatures, *folders: str
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
library, releasing_library = _open_library("measdata", SIGNATURES, _here)
_beside = os.path.dirname(library._name)
kit, releasing_kit = _open_library("measkit", KIT_SIGNATURES, _beside, _here)


def decoded(text: bytes) -> str:
    try:
        return text.decode("utf-8")
    except UnicodeDecodeError:
        return text.decode("latin-1")


def text_of(text: bytes | None) -> str | None:
    return None if text is None else decoded(text)


version: str = decoded(library.parser_version())
"""The version of the native library."""
