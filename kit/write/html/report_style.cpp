#include "kit/write/html/report_style.h"

namespace measkit::html {
namespace {

constexpr std::string_view kStyle = R"(.verdict { margin-bottom: 14px; font-size: 19px; }
.verdict.alert { color: var(--alert); }
.instrument { margin-bottom: 20px; font-size: 14px; }
.badges { display: flex; flex-wrap: wrap; gap: 6px 8px; margin-bottom: 10px; font-size: 14px; }
.badges li { padding: 2px 10px; border: 1px solid var(--soft); border-radius: 12px; }
.badges .absent { border-style: dashed; color: var(--soft); }
.badges strong { font-weight: 600; }
.landmarks.few { grid-template-columns: none; grid-auto-flow: column; grid-auto-columns: minmax(0, 1fr); }
.landmarks.few strong { overflow-wrap: anywhere; }
.landmarks.few span { white-space: normal; }
.scroll { overflow: auto; }
.scroll:focus-visible { outline: 2px solid var(--text); outline-offset: 2px; }
.patch-table { max-height: 560px; border: 1px solid var(--line); }
.patch-table thead th { position: sticky; top: 0; background: var(--page); }
.compact { font-size: 13px; }
.compact caption { padding: 4px 10px 0; }
.compact th, .compact td { padding: 3px 10px; white-space: nowrap; overflow-wrap: normal; }
.compact td { text-align: right; }
.compact th.number, .compact td.number { padding: 3px 10px; }
.compact button {
  padding: 0; border: 0; background: none; color: inherit; font: inherit; cursor: pointer;
}
.compact [aria-sort] { color: var(--text); }
.compact [aria-sort=ascending] button::after { content: " \2191"; }
.compact [aria-sort=descending] button::after { content: " \2193"; }
.filter { display: flex; flex-wrap: wrap; gap: 6px 12px; margin-bottom: 8px; font-size: 14px; }
.filter input {
  width: 260px; padding: 2px 8px; border: 1px solid var(--soft); border-radius: 4px;
  background: var(--page); color: var(--text); font: inherit;
}
.legend { display: flex; flex-wrap: wrap; gap: 4px 18px; margin: 8px 0 16px; font-size: 14px; }
.selection {
  display: flex; flex-wrap: wrap; gap: 4px 16px; margin: 0 0 10px; padding: 0; border: 0;
  font-size: 14px;
}
.selection legend { float: left; padding: 0; color: var(--soft); }
.selection input { margin: 0 3px 0 0; accent-color: var(--soft); }
.placed { grid-template-columns: repeat(var(--columns), minmax(0, 1fr)); }
.placed.medium { max-width: calc(36px * var(--columns) + 32px); }
.placed.small, .placed.tiny { max-width: calc(24px * var(--columns) + 32px); }
.placed.large { max-width: calc(120px * var(--columns) + 32px); }
.outline { fill: none; stroke: var(--bar); stroke-width: 1.2; stroke-dasharray: 5 3; }
.halo { fill: none; stroke: var(--bar); stroke-width: 3.5; stroke-opacity: 0.45; }
.fit { fill: none; stroke: var(--bar); stroke-width: 1.4; stroke-dasharray: 5 3; }
.pooled { fill: none; stroke: var(--bar); stroke-width: 2; }
.bands { fill: var(--bar); fill-opacity: 0.28; }
.spectra path { stroke: currentColor; vector-effect: non-scaling-stroke; }
.spectra { color: var(--bar); }
.spectra .casing { stroke: var(--bar); pointer-events: none; }
.few .casing { stroke-width: 4; }
.some .casing { stroke-width: 2.6; }
.many .casing { stroke-width: 1.6; }
@media (max-width: 640px) {
  .placed.large span { display: none; }
  .placed.large { gap: 2px; padding: 8px; }
}
@media print {
  .swatches, .pickable, .legend, .wide, .badges, .key-figures { break-inside: avoid; }
  .swatches + .note { break-before: avoid; }
  .scroll { max-height: none; overflow: visible; }
  .compact, .sortable { font-size: 7pt; }
  .compact th, .compact td, .compact th.number, .compact td.number {
    padding: 1px 4px; white-space: normal;
  }
  .sortable tbody tr:nth-child(n+41), .row:not(:has(> .cell:only-child)) .patch-table { display: none; }
  .patch-table::after { content: "Print shows the first 40 patches at most."; font-size: 8pt; }
  .patch-table thead th { position: static; }
  .filter, .selection { display: none; }
}
)";

}  // namespace

// A pick hides all groups but its own.
std::string report_style(std::size_t groups) {
  std::string style(kStyle);
  for (std::size_t i = 1; i <= groups; ++i) {
    const std::string number = std::to_string(i);
    style.append(".pickable:has(.pick-")
        .append(number)
        .append(":checked) { --rest: none; --group-");
    style.append(number).append(": inline; }\n.group-").append(number);
    style.append(" { display: var(--group-").append(number).append(", var(--rest, inline)); }\n");
  }
  return style;
}

const std::string_view kReportScript =
    R"js(for (const table of document.querySelectorAll(".sortable")) {
  const body = table.tBodies[0], rows = [...body.rows], heads = [...table.tHead.rows[0].cells];
  const names = heads.map(head => head.textContent);
  const text = (row, i) => row.cells[i].textContent.trim();
  const collator = new Intl.Collator("en", { numeric: true });
  const compare = (a, b, sign) => (a === "") - (b === "") ||
    sign * (a !== "" && !isNaN(a) && !isNaN(b) ? a - b : collator.compare(a, b));
  heads.forEach((head, i) => {
    const button = document.createElement("button");
    button.type = "button";
    button.append(...head.childNodes);
    button.onclick = () => {
      const next = { null: "ascending", ascending: "descending" }[head.getAttribute("aria-sort")];
      heads.forEach(other => other.removeAttribute("aria-sort"));
      if (next) head.setAttribute("aria-sort", next);
      const sign = next === "descending" ? -1 : 1;
      body.append(...(next ? rows.slice().sort((a, b) => compare(text(a, i), text(b, i), sign)) : rows));
    };
    head.append(button);
  });
  const colour = names.indexOf("sRGB");
  if (colour >= 0) for (const row of rows) {
    const field = document.createElement("i");
    field.className = "colour";
    field.style.background = text(row, colour);
    row.cells[colour].prepend(field);
  }
  const bar = document.createElement("p"), label = document.createElement("label");
  const input = document.createElement("input"), count = document.createElement("span");
  bar.className = "filter";
  input.type = "search";
  input.placeholder = "a word, or " + names.find((name, i) => i > 0 && !isNaN(text(rows[0], i))) + " < 50";
  count.setAttribute("role", "status");
  label.append("Filter ", input);
  bar.append(label, count);
  table.parentElement.before(bar);
  const lower = value => value.toLowerCase().replace(/\u2212/g, "-");
  const tests = {
    "=": (a, b) => a === b, "<": (a, b) => a < b, ">": (a, b) => a > b,
    "<=": (a, b) => a <= b, ">=": (a, b) => a >= b
  };
  const columns = names.map(lower);
  const word = part => row => [...row.cells].some(cell => lower(cell.textContent).includes(part));
  const condition = (i, sign, right) => {
    const number = +right.replace(",", ".");
    return row => {
      const cell = text(row, i);
      if (isNaN(number) || isNaN(cell)) return sign === "=" && lower(cell) === right;
      return cell !== "" && tests[sign](+cell, number);
    };
  };
  // Words and conditions in turn; names of columns may hold blanks.
  const filtersOf = value => {
    const filters = [];
    for (const [, left, sign, right, rest] of lower(value).matchAll(
        /([^<>=;]*)(<=|>=|<|>|=)\s*([^\s;]+)|([^<>=;]+)$/g)) {
      const words = (left ?? rest).trim().split(/\s+/).filter(part => part !== "");
      const first = sign ? words.findIndex((part, k) => columns.includes(words.slice(k).join(" "))) : words.length;
      if (first < 0) return "No column " + words.join(" ");
      filters.push(...words.slice(0, first).map(word));
      if (sign) filters.push(condition(columns.indexOf(words.slice(first).join(" ")), sign, right));
    }
    return filters;
  };
  input.oninput = () => {
    const filters = filtersOf(input.value);
    if (typeof filters === "string") { count.textContent = filters; return; }
    let shown = 0;
    for (const row of rows) shown += !(row.hidden = !filters.every(filter => filter(row)));
    count.textContent = filters.length ? shown + " of " + rows.length : "";
  };
}
)js";

}  // namespace measkit::html
