"""Puts the module, the worker and the page into one file.

usage: build_page.py MODULE OUTPUT
"""

import base64
import gzip
import pathlib
import re
import sys

HERE = pathlib.Path(__file__).parent
PACKAGE = HERE.parent / "javascript"
# Each after those that it uses.
MODULES = ("instance", "document", "comparison", "chart", "library")


def joined_modules():
    """The modules of the package as one script: without imports, with plain declarations."""
    script = ""
    for name in MODULES:
        text = (PACKAGE / f"{name}.js").read_text(encoding="utf-8")
        text = re.sub(r"^(import|export) \{[^}]*\}( from \"[^\"]*\")?;\n", "", text, flags=re.M)
        text = re.sub(r"^export (?=(async )?(class|function|const) )", "", text, flags=re.M)
        # Names that a module keeps to itself may stand in several.
        script += f"/* {name} */\n{text}\n"
    return script.replace('const encoder = new TextEncoder();\n', "").join(
        ("const encoder = new TextEncoder();\n", "")
    )


def inside_script(text):
    assert "</script" not in text
    return text


module, output = map(pathlib.Path, sys.argv[1:])
packed = gzip.compress(module.read_bytes(), 9, mtime=0)
parts = {
    "/*STYLE*/": (HERE / "page.css").read_text(encoding="utf-8"),
    "/*MODULE*/": base64.b64encode(packed).decode(),
    "/*WORKER*/": inside_script(joined_modules() + (HERE / "worker.js").read_text(encoding="utf-8")),
    "/*SCRIPT*/": inside_script((HERE / "page.js").read_text(encoding="utf-8")),
}
page = (HERE / "page.html").read_text(encoding="utf-8")
for mark, text in parts.items():
    assert page.count(mark) == 1
    page = page.replace(mark, text)
output.parent.mkdir(parents=True, exist_ok=True)
output.write_text(page, encoding="utf-8")
limit = 1_000_000  # bytes
if len(page.encode()) >= limit:
    sys.exit(f"{output} has {len(page.encode())} bytes, {limit} at most")
