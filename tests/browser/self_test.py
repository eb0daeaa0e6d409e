"""Plants faults in a small page and expects each to be told, and none in a page without them."""

import pathlib
from typing import Any, Callable

HEAD = """<!DOCTYPE html><html lang="en"><head><meta charset="utf-8"><title>t</title><style>
body { font: 16px/1.5 sans-serif; background: #fff; color: #222 }
@keyframes turn { to { rotate: 360deg } }
@media screen { #wide { width: 2000px } }
.cells { display: grid; grid-template-columns: repeat(4, 1fr) } .cells i { height: 150px; background: #abc }
.thin { width: 50px; white-space: nowrap }</style></head><body><main><h1>Title</h1>"""
CLEAN = """<p>Text</p><details open><summary>More</summary><p>Inside</p></details><button>Press</button>
<svg role="img" aria-label="two" viewBox="0 0 300 60" width="300"><rect width="300" height="60"/>
<text x="9" y="30" fill="#fff">one</text><text x="99" y="30" fill="#fff">two</text></svg>"""
PICTURE = '<svg id="%s" role="img" aria-label="p" viewBox="0 0 200 60" width="200">%s</svg>'
PAGE = '<div style="break-before: page"></div>'
# What is planted, the check that tells it, and what it says.
FAULTS = [
    ('<script>console.log("chatter")</script>', "console", "chatter"),
    ('<script>setTimeout(() => { throw Error("thrown") })</script>', "console", "thrown"),
    ('<button onclick="throw Error(\'clicked\')">b</button>', "console", "clicked"),
    ('<img src="http://127.0.0.1:9/asked.png" alt="">', "network", "asked.png"),
    (PICTURE % ("o", '<text y="30">first</text><text x="9" y="33">second</text>'), "overlap", "first"),
    ('<p id="under">under</p><p style="margin-top: -2.4em">above</p>', "overlap", "under"),
    ('<div id="cut" class="thin" style="overflow: hidden">much too long</div>', "cut", "cut"),
    (PICTURE % ("beyond", '<text x="180" y="30">beyond</text>'), "cut", "beyond"),
    ('<div id="wide">wide</div>', "sideways", "wide"),
    ('<p id="pale" style="color: #999">pale</p>', "contrast", "pale"),
    ('<p id="faint" style="opacity: 0.4">faint</p>', "contrast", "faint"),
    (PICTURE % ("d", '<rect width="99" height="60"/><text y="30" fill="#444">dim</text>'), "contrast", "dim"),
    ('<p style="font-size: 6px">tiny</p>', "small", "tiny"),
    ('<p id="twice">a</p><p id="twice">b</p>', "ids", "twice"),
    ('<a href="#nowhere">link</a>', "targets", "nowhere"),
    ('<p aria-labelledby="nobody">x</p>', "targets", "nobody"),
    ('<h3>Level three</h3>', "headings", "Level three"),
    ('<table id="bare"><tbody><tr><th>h</th><td>c</td></tr></tbody></table>', "tables", "bare"),
    ('<svg id="mute" viewBox="0 0 9 9" style="width: 9px"></svg>', "names", "mute"),
    ('<input id="blank">', "names", "blank"),
    ('<b></i></b>', "html", "line"),
    ('<p id="turning" style="animation: turn 9s infinite">x</p>', "motion", "turning"),
    ('<div inert><button>unreached</button></div>', "keyboard", "unreached"),
    ('<button tabindex="3" id="third">x</button>', "keyboard", "third"),
    ('<div id="scrolls" class="thin" style="overflow: auto">much too long</div>', "keyboard", "scrolls"),
    ('<button style="outline: none">unseen</button>', "keyboard", "unseen"),
    ('<p id="pointed" style="cursor: pointer">x</p>', "keyboard", "pointed"),
    ('<script>document.write("<p>made by script</p>")</script>', "scripts", "made by script"),
    ('<p id="gone">gone</p><script>gone.remove()</script>', "scripts", "1 times: 'gone'"),
    ('<details id="closed"><summary>s</summary>unseen</details>', "print", "details does not show"),
    (PAGE + "<h2>Last</h2>" + PAGE, "print", "ends page"),
    (f'{PAGE}<p style="height: 900px">x</p><div class="cells">{"<i></i>" * 12}</div>', "print", "grid of"),
    (PAGE + '<div style="height: 9px"></div>' + PAGE + "x", "print", "is empty"),
]


def run(browser: Any, folder: pathlib.Path, check: Callable[..., Any], strict: bool) -> int:
    """Counts the planted faults that are not told, and what is told of the clean page."""
    failures = 0
    for name, body in (("clean", CLEAN), ("faulty", "\n".join(fault[0] for fault in FAULTS))):
        (folder / f"{name}.html").write_text(f"{HEAD}\n{body}\n</main></body></html>", encoding="utf-8")
        told = [(kind, f"{where}: {what}") for kind, where, what in check(browser, folder / f"{name}.html")]
        for fault in told if name == "clean" else ():
            print("self-test: told of the clean page:", *fault)
            failures += 1
        for plant, kind, words in FAULTS if name == "faulty" else ():
            if kind == "html" and not strict:
                continue
            if not any(kind == one and words in text for one, text in told):
                print(f"self-test: {kind} did not notice {plant}")
                failures += 1
    print(f"self-test: {len(FAULTS)} planted faults, {failures} failures")
    return failures
