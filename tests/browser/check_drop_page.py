"""Drops files on measdata.html in a headless Chromium, and looks at what it shows and saves.

Call: check_drop_page.py PAGE DATA. DATA is the folder of the example charts.
"""

import json
import os
import pathlib
import sys
import tempfile
import time
from typing import Any

import check_pages
import chromium

PATIENCE = 240.0  # seconds

page_file, data = (pathlib.Path(path).resolve() for path in sys.argv[1:])
work = pathlib.Path(tempfile.mkdtemp())
SMALL = ("CGATS.17\nBEGIN_DATA_FORMAT\nSAMPLE_ID LAB_L LAB_A LAB_B\nEND_DATA_FORMAT\n"
         "BEGIN_DATA\na 50 1 2\nb {} 0 0\nEND_DATA\n")


def drop(page: chromium.Page, *paths: pathlib.Path) -> None:
    dragged = {"items": [], "files": [str(path) for path in paths], "dragOperationsMask": 1}
    for kind in ("dragEnter", "dragOver", "drop"):
        page.call("Input.dispatchDragEvent", type=kind, x=200, y=250, data=dragged)


def await_value(page: chromium.Page, expression: str, what: str) -> Any:
    deadline = time.monotonic() + PATIENCE
    while not (value := page.evaluate(expression)):
        assert time.monotonic() < deadline, (what, page.evaluate("document.body.innerText"))
        time.sleep(0.05)
    return value


def status(page: chromium.Page, text: str) -> None:
    await_value(page, f"document.getElementById('status').textContent.includes({json.dumps(text)})", text)


def press(page: chromium.Page, label: str) -> None:
    found = page.evaluate("[...document.querySelectorAll('button')].filter((button) => "
                          f"(button.ariaLabel ?? button.textContent) === {json.dumps(label)})"
                          ".map((button) => button.click()).length")
    assert found == 1, (label, found)


def saved(name: str) -> str:
    deadline = time.monotonic() + PATIENCE
    path = work / "saved" / name
    # It is there before it is filled.
    while not path.exists() or not path.stat().st_size or list(path.parent.glob("*.crdownload")):
        assert time.monotonic() < deadline, (name, os.listdir(work / "saved"))
        time.sleep(0.05)
    return path.read_text(encoding="utf-8")


def report(page: chromium.Page) -> str:
    source: str = await_value(page, "document.querySelector('iframe').srcdoc", "report")
    return source


def opened(browser: chromium.Browser) -> chromium.Page:
    page = check_pages.open_page(browser, page_file)
    page.call("Browser.setDownloadBehavior", behavior="allow", downloadPath=str(work / "saved"))
    return page


def check_one_chart(browser: chromium.Browser) -> chromium.Page:
    page = opened(browser)
    drop(page, data / "cmyk-spectral-310.txt")
    status(page, "1 of 1 file read.")
    assert "310 patches, CMYK, 36 spectral bands, Lab" in page.evaluate("document.body.innerText")
    assert "Tone values" in report(page)
    name = "cmyk-spectral-310"
    press(page, f"Save CSV: {name}.txt")
    assert saved(f"{name}.csv").count("\n") > 310
    press(page, f"Save JSON: {name}.txt")
    assert len(json.loads(saved(f"{name}.json"))["charts"][0]["patches"]) == 310
    press(page, f"Save plain text: {name}.txt")
    assert saved(f"{name}-plain.txt") == (data / f"{name}.txt").read_text(encoding="utf-8")
    press(page, f"Save CxF: {name}.txt")
    assert saved(f"{name}.cxf").startswith("<?xml")
    press(page, f"Save report: {name}.txt")
    assert saved(f"{name}.html").endswith("</html>\n")
    return page


def check_comparison_and_failures(browser: chromium.Browser) -> chromium.Page:
    page = opened(browser)
    for name, lightness in (("first.txt", "60"), ("second.txt", "63")):
        (work / name).write_text(SMALL.format(lightness), encoding="utf-8")
    (work / "image.png").write_bytes(b"\x89PNG\r\n\x1a\n" + bytes(100))
    drop(page, work / "first.txt", work / "image.png", work / "second.txt")
    status(page, "2 of 3 files read.")
    assert "image.png cannot be read: The file is a PNG image" in page.evaluate(
        "document.querySelector('.failed').textContent")
    await_value(page, "!document.getElementById('save-compare').disabled", "comparison")
    assert "first.txt" in report(page)
    press(page, "Save the comparison")
    assert "second.txt" in saved("comparison.html")
    page.evaluate("document.getElementById('show-paste').click();"
                  "document.getElementById('text').value = 'SAMPLE_ID;LAB_L;LAB_A;LAB_B\\n1;50;2;3';"
                  "document.getElementById('paste').requestSubmit()")
    status(page, "1 of 1 file read.")
    assert "pasted text" in page.evaluate("document.getElementById('list').innerText")
    return page


def check_large_files(browser: chromium.Browser) -> chromium.Page:
    """Ten files of 40 MB, during which the page answers."""
    page = opened(browser)
    row = " ".join(f"{i / 40:.4f}" for i in range(36))
    fields = " ".join(f"SPECTRAL_NM{380 + 10 * i}" for i in range(36))
    text = (f"CGATS.17\nBEGIN_DATA_FORMAT\nSAMPLE_ID {fields}\nEND_DATA_FORMAT\nBEGIN_DATA\n"
            + "".join(f"{i} {row}\n" for i in range(155000)) + "END_DATA\n")
    assert len(text) > 38_000_000, len(text)
    paths = [work / f"large{i}.txt" for i in range(10)]
    for path in paths:
        path.write_text(text, encoding="ascii")
    page.evaluate("globalThis.longest = 0; let last = performance.now(); setInterval(() => {"
                  "const now = performance.now(); longest = Math.max(longest, now - last); last = now; }, 20); 0")
    drop(page, *paths)
    status(page, "10 of 10 files read.")
    longest = page.evaluate("longest")
    print(f"ten files of {len(text) / 1e6:.0f} MB: the page waits {longest:.0f} ms at most")
    assert longest < 2000, longest  # far above what a busy machine adds, far below reading a file
    return page


def faults_of(page: chromium.Page) -> list[Any]:
    faults = list(check_pages.told_events(page, page_file))
    for colours, pixels in check_pages.MODES:
        check_pages.colour_scheme(page, colours)
        check_pages.width(page, pixels)
        faults += [(colours, pixels, fault) for fault in check_pages.run(page, "layout")]
    check_pages.width(page, 1280)
    faults += check_pages.run(page, "markup")
    # The report has keys of its own.
    page.evaluate("document.getElementById('view').hidden = true; document.activeElement.blur(); 0")
    faults += check_pages.check_keyboard(page)
    return faults


program = chromium.find_program()
if program is None:
    sys.exit("Chromium is missing")
with chromium.Browser(program) as browser:
    faults: list[Any] = []
    for check in (check_one_chart, check_comparison_and_failures, check_large_files):
        faults += faults_of(check(browser))
    # Nothing leaves the machine, even where a script asks for it.
    page = opened(browser)
    for request in ("fetch('http://127.0.0.1:9/')", "fetch('data:,x')",
                    "new Promise((yes, no) => { const i = new Image(); i.onload = yes;"
                    " i.onerror = no; i.src = 'http://127.0.0.1:9/x.png'; })"):
        refused = page.evaluate(f"{request}.then(() => false, () => true)")
        assert refused, request
    blocked = [event for event in page.events if event["method"] == "Log.entryAdded"]
    assert any("Content Security Policy" in event["params"]["entry"]["text"] for event in blocked)
for fault in faults:
    print(fault)
print(f"{len(faults)} faults")
sys.exit(1 if faults else 0)
