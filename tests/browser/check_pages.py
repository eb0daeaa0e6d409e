"""Checks the pages of measreport and meascompare in a headless Chromium.

Call: check_pages.py [--self-test] [--tools FOLDER] [--keep FOLDER] [PAGE]...

Each fault is one line: chart, modes, check, what. The exit status is 1 if there is any. Unless pages
are named, faults planted in a page of its own must be told first.
checks.js holds what must hold on a screen; this file drives it and looks at prints.
"""

import argparse
import base64
import collections
import dataclasses
import pathlib
import re
import shutil
import subprocess
import sys
import tempfile
from typing import Any, Iterable, Optional
from xml.etree import ElementTree

import charts
import chromium
import self_test

try:
    import html5lib  # type: ignore[import]
except ImportError:
    html5lib = None

HERE = pathlib.Path(__file__).resolve().parent
SOURCE = HERE.parent.parent
MODES = [(colours, width) for width in (1280, 400) for colours in ("light", "dark")]
LARGEST_PAGE = 900_000  # bytes, of 1,617 patches with 36 bands
SHOWN = 4  # faults of one check on one page
A4_INNER = (720, 1000)  # CSS pixels inside of the margins, roughly
INK = 10  # grey levels between the ground of a page and what is printed on it

Fault = tuple[str, str, str]  # check, where, what
Found = dict[Fault, list[str]]  # the modes in which a fault shows


@dataclasses.dataclass
class Sheet:
    """A printed page: where its words end, and its rows from top to bottom that hold ink."""
    height: float
    words: dict[str, float]
    inked: list[bool]

    def has_ink_below(self, y: float) -> bool:
        return any(self.inked[int(y / self.height * len(self.inked)):])


def colour_scheme(page: chromium.Page, colours: str) -> None:
    page.call("Emulation.setEmulatedMedia", media="", features=[
        {"name": "prefers-color-scheme", "value": colours},
        {"name": "prefers-reduced-motion", "value": "reduce"}])


def width(page: chromium.Page, pixels: int, height: int = 900) -> None:
    page.call("Emulation.setDeviceMetricsOverride", width=pixels, height=height, mobile=False,
              deviceScaleFactor=1)


def run(page: chromium.Page, function: str) -> Any:
    return page.evaluate(f"pageChecks.{function}()")


def open_page(browser: chromium.Browser, path: pathlib.Path, scripts: bool = True) -> chromium.Page:
    page = browser.new_page()
    colour_scheme(page, "light")
    width(page, 1280)
    if not scripts:
        page.call("Emulation.setScriptExecutionDisabled", value=True)
    page.navigate(path)
    checks = (HERE / "checks.js").read_text(encoding="utf-8")
    page.evaluate(f"{checks}\nglobalThis.pageChecks = pageChecks; 0")
    return page


def told_events(page: chromium.Page, path: pathlib.Path) -> Iterable[Fault]:
    """What a quiet page does not do: write to the console, fail, or ask for anything."""
    for event in page.events:
        told = event["params"]
        if event["method"] == "Runtime.consoleAPICalled":
            yield "console", told["type"], str([part.get("value") for part in told["args"]])
        elif event["method"] == "Runtime.exceptionThrown":
            details = told["exceptionDetails"]
            thrown = details.get("exception", {})
            yield "console", "exception", str(thrown.get("description", details["text"]))
        elif event["method"] == "Log.entryAdded":
            yield "console", told["entry"]["source"], told["entry"]["text"]
        elif event["method"] == "Network.requestWillBeSent":
            url = told["request"]["url"]
            if url.split("#")[0] != path.resolve().as_uri() and not url.startswith(("data:", "blob:")):
                yield "network", "request", url


def strict_parse(path: pathlib.Path) -> Iterable[Fault]:
    if html5lib is None:
        return
    parser = html5lib.HTMLParser()
    parser.parse(path.read_bytes(), transport_encoding="utf-8")
    for (line, column), code, values in parser.errors:
        yield "html", f"line {line}, column {column}", f"{code} {values or ''}".strip()


def check_keyboard(page: chromium.Page) -> list[Any]:
    start = run(page, "keyboard")
    for _ in range(start["count"] + 3):  # scrollable regions and the page itself may come along
        page.press("Tab", 9)
        start["faults"] += run(page, "focused")
    return [*start["faults"], *run(page, "unreached")]


def check_without_scripts(browser: chromium.Browser, path: pathlib.Path,
                          texts: list[list[Any]]) -> Iterable[Fault]:
    """Without scripts, a page shows the same texts; only those of controls may be missing."""
    page = open_page(browser, path, scripts=False)
    plain = collections.Counter(text for text, _ in run(page, "texts"))
    page.close()
    scripted = collections.Counter(text for text, _ in texts)
    outside_controls = collections.Counter(text for text, in_control in texts if not in_control)
    for text, count in (outside_controls - plain).items():
        yield "scripts", "main", f"not there without scripts, {count} times: {text!r}"
    for text, count in (plain - scripted).items():
        yield "scripts", "main", f"only there without scripts, {count} times: {text!r}"


def rows_with_ink(gray: bytes) -> Iterable[list[bool]]:
    """Reads the pictures that pdftoppm writes: a row has ink where it is not as the corner is."""
    while gray:
        head = re.match(rb"P5\s+(\d+)\s+(\d+)\s+255\s", gray)
        assert head, "not a grey picture"
        columns, rows = int(head[1]), int(head[2])
        pixels, gray = gray[head.end():head.end() + columns * rows], gray[head.end() + columns * rows:]
        yield [any(abs(level - pixels[0]) > INK for level in pixels[start:start + columns])
               for start in range(0, columns * rows, columns)]


def output(command: list[Any]) -> bytes:
    return subprocess.run(command, check=True, capture_output=True).stdout


def sheets_of(pdf: pathlib.Path) -> list[Sheet]:
    layout = output(["pdftotext", "-bbox-layout", pdf, "-"])
    gray = output(["pdftoppm", "-r", "48", "-gray", pdf])
    # Characters that XML does not allow come from names in the charts.
    root = ElementTree.fromstring(re.sub(rb"[\0-\x08\x0b\x0c\x0e-\x1f]", b"", layout))
    xhtml = "{http://www.w3.org/1999/xhtml}"
    return [Sheet(float(sheet.attrib["height"]),
                  {word.text or "": float(word.attrib["yMax"]) for word in sheet.iter(xhtml + "word")},
                  inked)
            for sheet, inked in zip(root.iter(xhtml + "page"), rows_with_ink(gray))]


def check_print(page: chromium.Page, pdf: pathlib.Path) -> Iterable[Fault]:
    page.call("Emulation.setEmulatedMedia", media="print")
    width(page, *A4_INNER)
    marks = run(page, "markForPrint")
    page.call("Emulation.setEmulatedMedia", media="")
    answer = page.call("Page.printToPDF", printBackground=True, paperWidth=8.27, paperHeight=11.69,
                       preferCSSPageSize=True, transferMode="ReturnAsStream")
    write_stream(page, answer["stream"], pdf)
    sheets = sheets_of(pdf)
    for number, sheet in enumerate(sheets, 1):
        if not any(sheet.inked):
            yield "print", f"page {number}", "is empty"
    places: dict[str, tuple[int, float]] = {}
    for number, sheet in enumerate(sheets, 1):
        for word, y in sheet.words.items():
            places.update((mark, (number, y)) for mark in re.findall("qz[0-9]+zq", word))
    for index, mark in enumerate(marks):
        place = places.get(mark["word"])
        if place is None:
            yield "print", mark["where"], f"{mark['kind']} does not show: {mark['what']}"
        elif mark["kind"] == "heading" and not sheets[place[0] - 1].has_ink_below(place[1] + 10):
            yield "print", mark["where"], f"heading ends page {place[0]}: {mark['what']}"
        elif mark["kind"] == "grid" and mark["what"] < A4_INNER[1] * 0.95:
            end = places.get(marks[index + 1]["word"], place)
            if end[0] != place[0]:
                yield ("print", mark["where"],
                       f"grid of {mark['what']:.0f} px on the pages {place[0]} to {end[0]}")


def write_stream(page: chromium.Page, stream: str, path: pathlib.Path) -> None:
    with path.open("wb") as file:
        while True:
            part = page.call("IO.read", handle=stream)
            file.write(base64.b64decode(part["data"]))
            if part["eof"]:
                break
    page.call("IO.close", handle=stream)


def check(browser: chromium.Browser, path: pathlib.Path) -> Found:
    """Makes all checks of one page."""
    found: Found = collections.defaultdict(list)

    def add(faults: Iterable[Any], mode: str) -> None:
        for kind, where, what in dict.fromkeys((fault[0], fault[1], fault[2]) for fault in faults):
            found[kind, where, what].append(mode)

    page = open_page(browser, path)
    texts = run(page, "texts")
    add(run(page, "motion"), "reduced motion")
    add(run(page, "markup"), "any")
    add(strict_parse(path), "any")
    add(check_without_scripts(browser, path, texts), "no scripts")
    run(page, "openDetails")
    for colours, pixels in MODES:
        colour_scheme(page, colours)
        width(page, pixels)
        add(run(page, "layout"), f"{colours} {pixels}")
    width(page, 1280)
    add(check_keyboard(page), "keyboard")
    run(page, "exercise")
    add(told_events(page, path), "any")
    page.close()
    if shutil.which("pdftotext"):
        page = open_page(browser, path)
        add(check_print(page, path.with_suffix(".pdf")), "print")
        page.close()
    return found


def report(name: str, found: Found) -> None:
    """Prints the faults, the first few of each check and place."""
    count: "collections.Counter[tuple[str, str]]" = collections.Counter()
    for (kind, where, what), modes in found.items():
        count[kind, where] += 1
        if count[kind, where] <= SHOWN:
            print(f"{name}, {' + '.join(modes)}, {kind}, {where}: {what}")
    for (kind, where), number in count.items():
        if number > SHOWN:
            print(f"{name}, {kind}, {where}: {number - SHOWN} more")


def make_pages(tools: pathlib.Path, folder: pathlib.Path) -> dict[str, pathlib.Path]:
    """Runs the tools and returns the pages by their names."""
    pages = {}
    for name, files in charts.write(folder, SOURCE / "examples/data").items():
        pages[name] = folder / f"{name}.html"
        subprocess.run([tools / "measreport", "-o", pages[name], *files], check=False,
                       capture_output=True)
    for name, compared in charts.COMPARISONS.items():
        pages[name] = folder / f"{name}.html"
        files = [folder / f"{chart}.txt" for chart in compared]
        subprocess.run([tools / "meascompare", "-o", pages[name], *files], check=False,
                       capture_output=True)
    return pages


def check_pages(browser: chromium.Browser, tools: pathlib.Path, folder: pathlib.Path,
                wanted: list[str]) -> int:
    faults = 0
    for name, path in make_pages(tools, folder).items():
        if wanted and name not in wanted:
            continue
        if not path.exists():
            report(name, {("page", "page", "was not written"): ["any"]})
            faults += 1
            continue
        found = check(browser, path)
        size = path.stat().st_size
        if name == "large":
            print(f"large: {size:,} bytes")
            if size > LARGEST_PAGE:
                found["size", "page", f"{size:,} bytes"] = ["any"]
        report(name, found)
        faults += len(found)
    print(f"browser: {faults} faults")
    return faults


def main() -> int:
    parser = argparse.ArgumentParser(description=(__doc__ or "").split("\n", maxsplit=1)[0])
    parser.add_argument("--self-test", action="store_true", help="only tell whether planted faults are told")
    parser.add_argument("--tools", type=pathlib.Path, default=SOURCE / "build/release/tools")
    parser.add_argument("--keep", type=pathlib.Path, help="keep the pages and prints in this folder")
    parser.add_argument("page", nargs="*", help="check only these pages")
    options = parser.parse_args()
    program: Optional[str] = chromium.find_program()
    if program is None:
        print("browser: skipped, there is no chromium", file=sys.stderr)
        return 0
    helpers = {"python3-html5lib": html5lib, "poppler-utils": shutil.which("pdftotext")}
    for missing in (name for name, there in helpers.items() if not there):
        print(f"browser: checks less, there is no {missing}", file=sys.stderr)
    with tempfile.TemporaryDirectory() as temporary, chromium.Browser(program) as browser:
        folder = options.keep or pathlib.Path(temporary)
        folder.mkdir(parents=True, exist_ok=True)
        if options.self_test or not options.page:
            failures = self_test.run(browser, folder, check, html5lib is not None)
            if failures or options.self_test:
                return 1 if failures else 0
        return 1 if check_pages(browser, options.tools, folder, options.page) else 0


if __name__ == "__main__":
    sys.exit(main())
