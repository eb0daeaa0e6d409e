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
.spectra path { stroke: var(--casing, currentColor); vector-effect: non-scaling-stroke; }
.spectra { color: var(--bar); }
.casing { --casing: var(--bar); pointer-events: none; }
.few .casing { stroke-width: 4; }
.some .casing { stroke-width: 2.6; }
.many .casing { stroke-width: 1.6; }
@media (max-width: 640px) {
  .placed.large span { display: none; }
  .placed.large { gap: 2px; padding: 8px; }
}
@media print {
  .swatches, .scroll, .legend, .wide, .badges, .key-figures { break-inside: avoid; }
  .patch-table, .scroll:has(.sortable) { max-height: none; overflow: visible; break-inside: auto; }
  .sortable { font-size: 7pt; }
  .sortable th, .sortable td { padding: 1px 4px; white-space: normal; }
  .patch-table thead th { position: static; }
  .filter, .selection { display: none; }
}
)";

}  // namespace

// A pick hides all groups but its own. The properties are inherited by copies of the lines, too.
std::string report_style(std::size_t groups) {
  std::string style(kStyle);
  for (std::size_t i = 1; i <= groups; ++i) {
    const std::string number = std::to_string(i);
    style += ".pickable:has(.pick-" + number + ":checked) { --rest: none; --group-" + number +
             ": inline; }\n.group-" + number + " { display: var(--group-" + number +
             ", var(--rest, inline)); }\n";
  }
  return style;
}

const std::string_view kReportScript =
    R"js(for (const table of document.querySelectorAll(".sortable")) {
  const body = table.tBodies[0], rows = [...body.rows], heads = [...table.tHead.rows[0].cells];
  const names = heads.map(head => head.textContent);
  const text = (row, i) => row.cells[i].textContent.trim();
  const collator = new Intl.Collator("en", { numeric: true });
  const compare = (a, b) => a !== "" && b !== "" && !isNaN(a) && !isNaN(b)
    ? a - b : (a === "") - (b === "") || collator.compare(a, b);
  heads.forEach((head, i) => {
    const button = document.createElement("button");
    button.type = "button";
    button.append(...head.childNodes);
    button.onclick = () => {
      const next = { null: "ascending", ascending: "descending" }[head.getAttribute("aria-sort")];
      heads.forEach(other => other.removeAttribute("aria-sort"));
      if (next) head.setAttribute("aria-sort", next);
      const sign = next === "descending" ? -1 : 1;
      body.append(...(next ? rows.slice().sort((a, b) => sign * compare(text(a, i), text(b, i))) : rows));
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
  input.placeholder = "A12   K=0   L*<30";
  count.setAttribute("role", "status");
  label.append("Filter ", input);
  bar.append(label, count);
  table.parentElement.before(bar);
  const matches = (row, word) => {
    const [, name, sign, value] = word.match(/^(.+?)(<|>|=)(-?[\d.]+)$/) || [];
    const i = names.findIndex(one => one.toLowerCase() === (name || "").toLowerCase());
    if (i < 0) return [...row.cells].some(cell => cell.textContent.toLowerCase().includes(word.toLowerCase()));
    const cell = text(row, i);
    return cell !== "" && (sign === "<" ? +cell < +value : sign === ">" ? +cell > +value : +cell === +value);
  };
  input.oninput = () => {
    const words = input.value.trim().split(/\s+/).filter(word => word !== "");
    let shown = 0;
    for (const row of rows) shown += !(row.hidden = !words.every(word => matches(row, word)));
    count.textContent = words.length ? shown + " of " + rows.length : "";
  };
}
)js";

}  // namespace measkit::html
