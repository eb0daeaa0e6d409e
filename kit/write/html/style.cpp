#include "kit/write/html/page_frame.h"

namespace measkit::html {

// All greys are neutral: a tinted surround changes how the colours of patches look.
const std::string_view kStyle = R"(:root {
  --page: #f4f4f4; --text: #1b1b1b; --soft: #5c5c5c; --line: #d2d2d2;
  --ground: #b5b5b5; --grid: #a6a6a6; --zero: #878787; --surround: #8a8a8a; --bar: #2e2e2e;
  --panel: #b5b5b5; --alert: #9c4a00;
}
@media screen and (prefers-color-scheme: dark) {
  :root {
    --page: #1c1c1c; --text: #ebebeb; --soft: #a8a8a8; --line: #3c3c3c;
    --ground: #8e8e8e; --grid: #838383; --zero: #6b6b6b; --surround: #4a4a4a; --bar: #2e2e2e;
    --panel: #4a4a4a; --alert: #f0a860;
  }
}
* { box-sizing: border-box; }
body {
  margin: 0 auto; padding: 40px 32px; max-width: calc(760px + 460px * var(--charts));
  background: var(--page); color: var(--text);
  font: 15px/1.5 Inter, "Segoe UI", "Helvetica Neue", Arial, "Liberation Sans", sans-serif;
  font-variant-numeric: tabular-nums; overflow-wrap: anywhere;
}
h1 { margin: 4px 0 0; font-size: 34px; line-height: 1.2; font-weight: 650; letter-spacing: -0.02em; }
h2 { margin: 0; font-size: 22px; line-height: 1.3; font-weight: 650; letter-spacing: -0.01em; }
h3 { margin: 0 0 12px; font-size: 15px; font-weight: 600; }
p { margin: 0 0 12px; }
ul, ol, dl, dd { margin: 0; padding: 0; list-style: none; }
sub { font-size: 0.72em; line-height: 0; }
.label, figcaption, caption {
  margin: 0 0 6px; color: var(--soft); font-size: 13px; font-weight: 600; text-align: left;
}
.chart-title { margin: 4px 0 0; color: var(--soft); font-size: 17px; }
.cell .chart-title { margin: -10px 0 12px; font-size: 14px; }
.note, .missing { color: var(--soft); font-size: 14px; }
h2 + .note { margin: 2px 0 16px; }
h2 + .row { margin-top: 12px; }

nav { display: flex; flex-wrap: wrap; gap: 4px 20px; margin-top: 20px; font-size: 14px; }
nav a { color: var(--soft); text-decoration: none; border-bottom: 1px solid var(--line); }
nav a:hover, nav a:focus { color: var(--text); border-color: var(--text); }
a:focus-visible, summary:focus-visible, button:focus-visible, input:focus-visible {
  outline: 2px solid var(--text); outline-offset: 2px;
}
section { margin-top: 28px; padding-top: 24px; border-top: 1px solid var(--line); }
footer { margin-top: 48px; color: var(--soft); font-size: 13px; }
.row {
  display: grid; gap: 32px;
  grid-template-columns: repeat(auto-fit, minmax(min(100%, var(--least)), 1fr));
}
.cell { min-width: 0; container-type: inline-size; }
.letter {
  display: inline-block; min-width: 22px; margin-right: 4px; border-radius: 4px;
  background: var(--text); color: var(--page); text-align: center;
}
.figures {
  display: grid; gap: 24px 32px;
  grid-template-columns: repeat(auto-fill, minmax(min(100%, 400px), 1fr));
}
figure { margin: 0; }

.key-figures { display: flex; flex-wrap: wrap; gap: 8px 32px; margin-bottom: 20px; }
.key-figures li { color: var(--soft); font-size: 14px; }
.key-figures strong {
  display: block; color: var(--text); font-size: 28px; line-height: 1.2; font-weight: 600;
  letter-spacing: -0.02em;
}
.messages, .failure { margin-bottom: 20px; padding-left: 14px; border-left: 3px solid var(--alert); }
.messages .label, .failure strong { color: var(--alert); }
.failure strong { display: block; }
.findings { margin-bottom: 20px; }
.findings li {
  display: grid; grid-template-columns: 104px 1fr; gap: 2px 14px; padding: 5px 0; font-size: 14px;
}
.findings ul { border-top: 1px solid var(--line); }
.findings li { border-bottom: 1px solid var(--line); }
.findings details { margin-top: 8px; }
.findings summary { color: var(--soft); font-size: 14px; }
.findings strong { font-weight: 600; white-space: nowrap; }
.findings i {
  display: inline-block; width: 20px; height: 20px; margin-right: 8px; border: 1.5px solid;
  border-radius: 50%; font-size: 12px; line-height: 17px; font-style: normal; text-align: center;
}
.findings small { color: var(--soft); font-size: 13px; white-space: nowrap; }
.findings .note { color: var(--text); }
.findings .note strong { color: var(--soft); }
.findings .doubtful strong, .findings .lost strong { color: var(--alert); }
.findings .doubtful i { border-style: dashed; }
.findings .repaired i { border-radius: 4px; }
.findings .lost i {
  border-color: var(--alert); border-radius: 4px; background: var(--alert); color: var(--page);
}
.entries small { color: var(--soft); font-size: 12px; }
.landmarks {
  display: grid; gap: 16px 12px; margin-bottom: 24px; padding: 16px; border-radius: 6px;
  grid-template-columns: repeat(auto-fit, minmax(160px, 1fr)); background: var(--panel);
}
.landmarks li { max-width: 280px; font-size: 13px; line-height: 1.45; }
.landmarks .colour { display: block; width: auto; height: 64px; margin: 0 0 6px; border-radius: 3px; }
.landmarks strong { display: block; font-weight: 600; }
.landmarks span { margin-right: 4px; white-space: nowrap; }
.entry-lists {
  display: grid; gap: 16px 40px;
  grid-template-columns: repeat(auto-fit, minmax(min(100%, 260px), 1fr));
}
.entries { display: grid; grid-template-columns: auto 1fr; gap: 2px 14px; font-size: 14px; }
.entries dt { color: var(--soft); }

.colour {
  display: inline-block; width: 14px; height: 14px; margin-right: 8px; border-radius: 2px;
  box-shadow: 0 0 0 1px #8888; vertical-align: -2px;
}
.unknown {
  background: repeating-linear-gradient(45deg, var(--grid) 0 3px, var(--ground) 3px 6px);
}
.swatches {
  display: grid; gap: 2px; padding: 16px; border-radius: 6px; background: var(--surround);
  grid-template-columns: repeat(auto-fill, minmax(var(--side), 1fr));
}
.swatches li { min-width: 0; aspect-ratio: 1; box-shadow: 0 0 0 0.5px #8888; }
.swatches + .note { margin-top: 8px; }
.swatches li:hover { outline: 2px solid var(--text); }
.large { --side: 84px; gap: 4px; }
.medium { --side: 30px; }
.small { --side: 17px; gap: 1px; }
.tiny { --side: 11px; gap: 1px; }
.large li { display: flex; align-items: flex-end; aspect-ratio: auto; min-height: var(--side); }
.large span {
  max-width: 100%; padding: 1px 5px; background: #4a4a4a; color: #fff; font-size: 11px;
  line-height: 1.3; overflow-wrap: anywhere;
}

.plot { display: block; width: 100%; height: auto; }
.plot text { fill: var(--soft); font-size: 12px; }
.plot .x { text-anchor: middle; }
.plot .y, .plot .x-title { text-anchor: end; }
.plot .title, .plot .x-title { fill: var(--text); font-weight: 600; }
.plot .sub { font-size: 10px; }
.ground { fill: var(--ground); }
.grid { fill: none; stroke: var(--grid); stroke-width: 1; }
.zero { fill: none; stroke: var(--zero); stroke-width: 1; }
.spectra { fill: none; stroke: var(--bar); stroke-linejoin: round; }
.few { stroke-width: 2; }
.some { stroke-width: 1.2; }
.many { stroke-width: 0.7; }
.spectra path:hover { stroke-width: 4; }
.dots { stroke: #000; stroke-opacity: 0.35; stroke-width: 0.6; }
.dots circle { r: var(--radius); }
.dots circle:hover { stroke: var(--text); stroke-opacity: 1; stroke-width: 2; }
.wedge { fill: none; stroke-width: 2.5; stroke-linejoin: round; }
.key { stroke: var(--soft); stroke-width: 1; }
.bars { fill: var(--bar); }

table { align-self: start; width: 100%; border-collapse: collapse; font-size: 14px; }
th, td { padding: 5px 12px 5px 0; border-bottom: 1px solid var(--line); text-align: left; vertical-align: top; }
thead th { color: var(--soft); font-size: 13px; font-weight: 600; }
tbody th { font-weight: 400; }
th.number, td.number { padding: 5px 0 5px 16px; text-align: right; white-space: nowrap; }
.keywords tbody th { width: 1%; color: var(--soft); overflow-wrap: normal; }
.values dt { margin-top: 14px; font-weight: 600; }
.values dt:first-child { margin-top: 0; }
.values dd { font-size: 14px; }
.values span { display: inline-block; min-width: 58px; margin-right: 8px; }
.values small, .values dt small { color: var(--soft); font-size: 12px; font-weight: 400; }
.values span small { margin-left: 2px; }
summary { cursor: pointer; }
details[open] summary { margin-bottom: 8px; }

@container (max-width: 500px) {
  .landmarks { grid-template-columns: repeat(auto-fit, minmax(72px, 1fr)); }
  .landmarks .colour { height: 48px; }
  .landmarks span { display: block; }
  .large { --side: 60px; }
  .key-figures strong { font-size: 24px; }
}
@media (max-width: 640px) {
  body { padding: 20px 16px; }
  h1 { font-size: 26px; }
  .plot text { font-size: 17px; }
  .plot .sub { font-size: 13px; }
  .wide { overflow-x: auto; }
  .wide .plot { min-width: 620px; }
  .wide text { font-size: 21px; }
}
@media print {
  @page { margin: 14mm; }
  body { max-width: none; padding: 0; background: none; font-size: 10pt; }
  nav { display: none; }
  details::details-content { content-visibility: visible; block-size: auto; }
  figure, tr, .landmarks, .messages, .findings li { break-inside: avoid; }
  h2, h2 + .note, h3, .label { break-after: avoid; }
  .note, .entry-lists > div { break-inside: avoid; }
  section { margin-top: 16px; padding-top: 14px; }
  .cell { container-type: normal; }
  .figures { grid-template-columns: repeat(auto-fill, minmax(min(100%, 280px), 1fr)); }
  .plot text { font-size: 17px; }
  .wide text { font-size: 20px; }
  .landmarks { grid-template-columns: repeat(auto-fit, minmax(100px, 1fr)); }
  .landmarks span { display: block; }
  .medium { --side: 22px; }
  .row { display: block; }  /* charts one below the other; grids break after headings */
  .cell + .cell { margin-top: 16px; }
  .colour, .unknown, .swatches, .landmarks, .letter, .plot, .swatches li {
    -webkit-print-color-adjust: exact; print-color-adjust: exact;
  }
}
)";

}  // namespace measkit::html
