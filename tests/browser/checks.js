// What must hold for any page: functions that return faults as [check, where, what].
// They know nothing of the markup of the reports.
"use strict";
const pageChecks = (() => {
  const kInteractive = "a[href], button, input:not([type=hidden]), select, textarea, summary, [tabindex]";
  const kControls = "button, input, select, textarea, label, output, [aria-live], [role=status]";
  const kLongLabel = 16;  // characters; longer names may end in an ellipsis if a title tells all
  const kSmallest = 8;  // CSS pixels of a text as shown
  const all = (selector) => [...document.querySelectorAll(selector)];
  const short = (text) => text.trim().replace(/\s+/g, " ").slice(0, 60);

  // A path that a reader finds: from the nearest id, at most four steps.
  function path(element) {
    const steps = [];
    for (let at = element; at && at !== document.body && steps.length < 4; at = at.parentElement) {
      const classes = [...at.classList].map((name) => "." + name).join("");
      steps.unshift(at.localName + (at.id ? "#" + at.id : classes));
      if (at.id) break;
    }
    return steps.join(" > ") || "body";
  }

  function isVisible(element) {
    const box = element.getBoundingClientRect();
    return box.width > 1.5 && box.height > 1.5 &&
      element.checkVisibility({ opacityProperty: true, visibilityProperty: true });
  }

  // The box that the elements around an element let show; kept until the layout changes.
  const frames = new Map();
  const kWholePage = { left: -1e9, top: -1e9, right: 1e9, bottom: 1e9 };
  function frameOf(element) {
    if (!element || element === document.body) return kWholePage;
    if (!frames.has(element)) {
      let { left, top, right, bottom } = frameOf(element.parentElement);
      const style = getComputedStyle(element);
      const inPicture = element instanceof SVGElement && element.localName !== "svg";
      if (!inPicture && (style.overflowX !== "visible" || style.overflowY !== "visible")) {
        const around = element.getBoundingClientRect();
        [left, right] = [Math.max(left, around.left), Math.min(right, around.right)];
        [top, bottom] = [Math.max(top, around.top), Math.min(bottom, around.bottom)];
      }
      frames.set(element, { left, top, right, bottom });
    }
    return frames.get(element);
  }

  // The part of a box that shows, or null.
  function shown(box, element) {
    const frame = frameOf(element);
    const [left, right] = [Math.max(box.left, frame.left), Math.min(box.right, frame.right)];
    const [top, bottom] = [Math.max(box.top, frame.top), Math.min(box.bottom, frame.bottom)];
    return right - left > 1 && bottom - top > 1 ? { left, top, right, bottom } : null;
  }

  // Every text node that shows: its element, its text and the boxes of its lines.
  function textLeaves(root = document.body, evenScrolledAway = false) {
    frames.clear();
    const walker = document.createTreeWalker(root, NodeFilter.SHOW_TEXT);
    const leaves = [];
    const range = document.createRange();
    for (let node = walker.nextNode(); node; node = walker.nextNode()) {
      const element = node.parentElement;
      if (!node.data.trim() || element.closest("script, style, noscript, title, option")) continue;
      if (!isVisible(element)) continue;
      range.selectNodeContents(node);
      const boxes = [...range.getClientRects()].filter((box) => box.width > 1)
        .map((box) => evenScrolledAway ? box : shown(box, element)).filter(Boolean);
      if (boxes.length) leaves.push({ element, text: short(node.data), whole: node.data, boxes });
    }
    return leaves;
  }

  // Boxes of text reach above and below the letters: a fifth of the height may be shared.
  function overlaps(leaves) {
    const boxes = leaves.flatMap((leaf) => leaf.boxes.map((box) => {
      const spare = (box.bottom - box.top) / 5;
      const [top, bottom] = [box.top + spare, box.bottom - spare];
      return { leaf, left: box.left + 1, right: box.right - 1, top, bottom };
    })).sort((a, b) => a.top - b.top);
    const faults = [];
    boxes.forEach((one, index) => {
      for (let next = index + 1; next < boxes.length && boxes[next].top < one.bottom; ++next) {
        const other = boxes[next];
        if (other.leaf === one.leaf || other.left >= one.right || one.left >= other.right) continue;
        faults.push(["overlap", path(one.leaf.element), `"${one.leaf.text}" and "${other.leaf.text}"`]);
      }
    });
    return faults;
  }

  function cutTexts(leaves) {
    const faults = [];
    const hides = (value) => value === "hidden" || value === "clip";
    for (const element of all("body *")) {
      if (element instanceof SVGElement || !element.clientWidth || !isVisible(element)) continue;
      const style = getComputedStyle(element);
      const wide = hides(style.overflowX) && element.scrollWidth > element.clientWidth + 1;
      const high = hides(style.overflowY) && element.scrollHeight > element.clientHeight + 1;
      const text = element.textContent.trim();
      const toldInFull = style.textOverflow === "ellipsis" && !high && text.length > kLongLabel &&
        element.closest("[title]")?.title.includes(text);
      if ((wide || high) && text && !toldInFull) {
        faults.push(["cut", path(element), `"${short(text)}" needs ${element.scrollWidth} x ` +
          `${element.scrollHeight}, has ${element.clientWidth} x ${element.clientHeight}`]);
      }
    }
    for (const { element, text } of leaves) {
      const picture = element.closest("svg");
      if (!picture) continue;
      const box = element.getBoundingClientRect();
      const frame = picture.getBoundingClientRect();
      const beyond = Math.max(frame.left - box.left, box.right - frame.right, frame.top - box.top,
        box.bottom - frame.bottom);
      const what = `"${text}" is ${beyond.toFixed(0)} px outside of its picture`;
      if (beyond > 1) faults.push(["cut", path(element), what]);
    }
    return faults;
  }

  function sideways() {
    const width = document.documentElement.clientWidth;
    if (document.scrollingElement.scrollWidth <= width) return [];
    const wide = all("body *").filter((element) => {
      const box = shown(element.getBoundingClientRect(), element.parentElement);
      return box && box.right > width + 0.5;
    });
    const holds = (element, other) => other !== element && element.contains(other);
    const innermost = wide.find((element) => !wide.some((other) => holds(element, other)));
    const what = `the page is ${document.scrollingElement.scrollWidth} px wide`;
    return [["sideways", innermost ? path(innermost) : "body", what]];
  }

  // Colours as [red, green, blue, alpha], each from 0 to 1, whatever CSS calls them.
  const pen = document.createElement("canvas").getContext("2d", { willReadFrequently: true });
  const known = new Map();
  function colour(css) {
    if (!known.has(css)) {
      pen.clearRect(0, 0, 1, 1);
      pen.fillStyle = css;
      pen.fillRect(0, 0, 1, 1);
      known.set(css, [...pen.getImageData(0, 0, 1, 1).data].map((part) => part / 255));
    }
    return known.get(css);
  }
  const over = (top, under) =>
    [0, 1, 2].map((i) => top[i] * top[3] + under[i] * (1 - top[3])).concat(1);
  function luminance(rgb) {
    const [r, g, b] = rgb.map((v) => v <= 0.04045 ? v / 12.92 : ((v + 0.055) / 1.055) ** 2.4);
    return 0.2126 * r + 0.7152 * g + 0.0722 * b;
  }
  function ratio(one, other) {
    const [low, high] = [luminance(one), luminance(other)].sort((a, b) => a - b);
    return (high + 0.05) / (low + 0.05);
  }

  // The colours under an element: one, or those of a gradient.
  const grounds = new Map();
  function groundsOf(element) {
    if (!element) return [colour("canvas")];
    if (!grounds.has(element)) {
      const style = getComputedStyle(element);
      let found = groundsOf(element.parentElement);
      if (!(element instanceof SVGElement) || element.localName === "svg") {
        const own = colour(style.backgroundColor);
        if (own[3] > 0) found = found.map((under) => over(own, under));
        const stops = style.backgroundImage.match(/(rgba?|color|oklch|oklab|hsla?)\([^()]*\)/g);
        if (stops) found = stops.flatMap((stop) => found.map((under) => over(colour(stop), under)));
      }
      grounds.set(element, found);
    }
    return grounds.get(element);
  }

  const shapes = new Map();
  function filledShapes(picture) {
    if (!shapes.has(picture)) {
      shapes.set(picture, [...picture.querySelectorAll("rect, path, circle, ellipse, polygon")]
        .filter((shape) => !shape.closest("defs, clipPath, mask, pattern, symbol") && isVisible(shape))
        .map((shape) => ({ shape, box: shape.getBoundingClientRect(), style: getComputedStyle(shape) }))
        .filter(({ style }) => style.fill !== "none" && !style.fill.startsWith("url")));
    }
    return shapes.get(picture);
  }

  // The colours of the shapes that a picture draws under the box of a text.
  function groundsInPicture(element, box) {
    const picture = element.closest("svg");
    const points = [0.05, 0.5, 0.95].flatMap((x) => [0.3, 0.7].map((y) =>
      [box.left + x * (box.right - box.left), box.top + y * (box.bottom - box.top)]));
    return points.flatMap(([x, y]) => {
      let found = groundsOf(picture);
      for (const { shape, box: around, style } of filledShapes(picture)) {
        if (x < around.left || x > around.right || y < around.top || y > around.bottom) continue;
        if (!(shape.compareDocumentPosition(element) & Node.DOCUMENT_POSITION_FOLLOWING)) continue;
        const local = new DOMPoint(x, y).matrixTransform(shape.getScreenCTM().inverse());
        if (!shape.isPointInFill(local)) continue;
        const fill = colour(style.fill).slice();
        fill[3] *= style.fillOpacity * style.opacity;
        found = found.map((under) => over(fill, under));
      }
      return found;
    });
  }

  function opacity(element) {
    let product = 1;
    for (let at = element; at; at = at.parentElement) product *= getComputedStyle(at).opacity;
    return product;
  }

  function contrasts(leaves) {
    const faults = [];
    for (const { element, text, boxes } of leaves) {
      const style = getComputedStyle(element);
      const inPicture = element instanceof SVGElement;
      const ink = colour(inPicture ? style.fill : style.color).slice();
      ink[3] *= opacity(element);
      const halo = inPicture && style.stroke !== "none" && style.paintOrder.startsWith("stroke");
      const behind = inPicture ? groundsInPicture(element, boxes[0]) : groundsOf(element);
      const under = halo ? [colour(style.stroke)] : behind;
      const turned = inPicture && element.getScreenCTM();
      const scale = turned ? Math.hypot(turned.a, turned.b) : 1;
      const size = parseFloat(style.fontSize) * scale;
      const needed = size >= 24 || (size >= 18.66 && style.fontWeight >= 700) ? 3 : 4.5;
      const lowest = Math.min(...under.map((ground) => ratio(over(ink, ground), ground)));
      const low = lowest < needed - 0.005;
      if (low) faults.push(["contrast", path(element), `${lowest.toFixed(2)}:1 "${text}"`]);
      if (size < kSmallest) faults.push(["small", path(element), `${size.toFixed(1)} px "${text}"`]);
    }
    return faults;
  }

  // What depends on the width and the colours of the screen.
  function layout() {
    grounds.clear();
    shapes.clear();
    const leaves = textLeaves();
    return [...overlaps(leaves), ...cutTexts(leaves), ...sideways(), ...contrasts(leaves)];
  }

  function isNamed(element) {
    const texts = (element.getAttribute("aria-labelledby") || "").split(" ").filter(Boolean)
      .map((id) => document.getElementById(id)?.textContent);
    texts.push(element.getAttribute("aria-label"), element.title, element.alt);
    for (const label of element.labels || []) texts.push(label.textContent);
    if (element instanceof SVGElement) texts.push(element.querySelector(":scope > title")?.textContent);
    else texts.push(element.textContent);
    return texts.some((text) => typeof text === "string" && text.trim());
  }

  function markup() {
    const faults = [];
    const report = (check, element, what) => faults.push([check, path(element), what]);
    const ids = new Set();
    for (const element of all("[id]")) {
      if (ids.has(element.id)) report("ids", element, "the id stands twice");
      ids.add(element.id);
    }
    const names = ["aria-labelledby", "aria-describedby", "aria-controls", "for", "headers"];
    for (const name of names) {
      for (const element of all(`[${name}]`)) {
        element.getAttribute(name).split(/\s+/).filter((id) => !ids.has(id))
          .forEach((id) => report("targets", element, `${name} ${id} is not there`));
      }
    }
    for (const element of all("a[href^='#'], use[href^='#']")) {
      const id = decodeURIComponent(element.getAttribute("href").slice(1));
      if (!ids.has(id)) report("targets", element, `#${id} is not there`);
    }
    let level = 0;
    for (const heading of all("h1, h2, h3, h4, h5, h6")) {
      const own = Number(heading.localName[1]);
      const what = `h${own} after h${level} "${short(heading.textContent)}"`;
      if (own > level + 1) report("headings", heading, what);
      level = own;
    }
    for (const table of all("table")) {
      const heads = [...table.querySelectorAll("th")];
      if (!table.caption && !(heads.length && heads.every((head) => head.scope))) {
        report("tables", table, "has no caption and not a scope in each th");
      }
    }
    const named = kInteractive.replace(", [tabindex]", ", svg, img, [role=img]");
    for (const element of all(named)) {
      const matters = !element.closest("[aria-hidden=true], svg svg, img[alt='']");
      if (matters && !isNamed(element)) report("names", element, "has no name");
    }
    const told = document.documentElement.lang && document.title.trim();
    if (!told) report("names", document.body, "no language or no title");
    return faults;
  }

  function motion() {
    return document.getAnimations().filter((animation) => animation.playState === "running")
      .map((animation) => ["motion", path(animation.effect.target), "moves although less motion is wanted"]);
  }

  // Numbers what Tab must reach and returns the count; faults that need no key come along.
  function keyboard() {
    const faults = [];
    for (const element of all("[tabindex]")) {
      if (element.tabIndex > 0) faults.push(["keyboard", path(element), `tabindex ${element.tabIndex}`]);
    }
    for (const element of all("body *").filter(isVisible)) {
      const style = getComputedStyle(element);
      const scrolls = ([overflow, need, has]) => /auto|scroll/.test(overflow) && need > has + 1;
      if ([[style.overflowX, element.scrollWidth, element.clientWidth],
        [style.overflowY, element.scrollHeight, element.clientHeight]].some(scrolls) &&
        element.tabIndex < 0 && !element.querySelector(kInteractive)) {
        faults.push(["keyboard", path(element), "scrolls but takes no focus"]);
      }
      if (style.cursor === "pointer" && !element.closest(kInteractive + ", label")) {
        const what = `looks like a control but is none "${short(element.textContent)}"`;
        faults.push(["keyboard", path(element), what]);
      }
    }
    const radios = new Set();
    const reachable = all(kInteractive).filter((element) => {
      const left = element.disabled || element.getAttribute("tabindex") === "-1";
      if (left || !isVisible(element)) return false;
      const group = element.type === "radio" && element.name;
      return !group || (!radios.has(group) && radios.add(group));
    });
    reachable.forEach((element) => { element.pageChecksWaits = true; });
    document.activeElement?.blur();
    return { faults, count: reachable.length };
  }
  // Notes what the last Tab reached; its focus must show by an outline or a shadow.
  function focused() {
    const at = document.activeElement;
    if (!at || at === document.body) return [];
    at.pageChecksWaits = false;
    const style = getComputedStyle(at);
    const shows = style.outlineStyle !== "none" || style.boxShadow !== "none";
    return shows ? [] : [["keyboard", path(at), `focus does not show "${short(at.textContent)}"`]];
  }
  const unreached = () => all("*").filter((element) => element.pageChecksWaits)
    .map((element) => ["keyboard", path(element), `Tab does not reach "${short(element.textContent)}"`]);

  // Uses each control, so that a script that fails tells it.
  function exercise() {
    const type = (element, text) => {
      element.value = text;
      for (const name of ["input", "change"]) element.dispatchEvent(new Event(name, { bubbles: true }));
    };
    for (const element of all("button, summary, input[type=checkbox], input[type=radio]")) element.click();
    for (const element of all("input[type=search], input[type=text], input:not([type])")) {
      ["zz\\(<", "1", ""].forEach((text) => type(element, text));
    }
    for (const element of all("select")) {
      [...element.options].forEach((option) => type(element, option.value));
    }
  }

  // The texts of main, and which of them are not in controls.
  function texts() {
    const leaves = textLeaves(document.querySelector("main") || document.body, true);
    return leaves.map((leaf) => [leaf.text, Boolean(leaf.element.closest(kControls))]);
  }

  // Tiny words in a print: where headings end, grids of colours begin and end, and details hold.
  function markForPrint() {
    const marks = [];
    const add = (element, kind, what) => {
      const mark = document.createElement("span");
      mark.textContent = `qz${marks.length}zq`;
      mark.style.cssText = "font: 2px sans-serif; color: #777; white-space: nowrap; position: " +
        (kind === "heading" ? "static" : "absolute");  // on the baseline, or out of the way
      element.append(mark);
      marks.push({ word: mark.textContent, kind, where: path(element), what });
    };
    const addAll = (selector, kind) =>
      all(selector).filter(isVisible).forEach((element) => add(element, kind, short(element.textContent)));
    addAll("h1, h2, h3", "heading");
    addAll("details:not([open])", "details");
    for (const grid of all("body *").filter((element) => getComputedStyle(element).display === "grid")) {
      const cells = [...grid.children].filter(isVisible);
      const painted = (cell) => colour(getComputedStyle(cell).backgroundColor)[3] > 0;
      if (cells.length < 8 || !cells.every(painted)) continue;
      const height = grid.getBoundingClientRect().height;
      add(cells[0], "grid", height);
      add(cells[cells.length - 1], "grid-end", height);
    }
    return marks;
  }

  const openDetails = () => all("details").forEach((details) => { details.open = true; });
  return { layout, markup, motion, keyboard, focused, unreached, exercise, texts, markForPrint, openDetails };
})();
