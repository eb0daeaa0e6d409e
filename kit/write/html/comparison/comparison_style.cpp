#include "kit/write/html/comparison/comparison_style.h"

namespace measkit::html {

// The colours of the map rise or fall in lightness all along, so that they tell their order also to
// eyes that do not tell their hues. Small differences are close to the page.
const std::string_view kComparisonStyle = R"(:root {
  --h0: #fbf3d4; --h1: #f7e2a8; --h2: #f1cd7c; --h3: #e9b355; --h4: #de9644;
  --h5: #cb763c; --h6: #b05a3f; --h7: #8d4345; --h8: #65304a; --h9: #3a1c40;
}
@media screen and (prefers-color-scheme: dark) {
  :root {
    --h0: #33263f; --h1: #4a2e52; --h2: #66365b; --h3: #843f5a; --h4: #a14b53;
    --h5: #bb5d46; --h6: #d0763b; --h7: #e29540; --h8: #f0bb5c; --h9: #fcf0bd;
  }
}
.h0 { background: var(--h0); }
.h1 { background: var(--h1); }
.h2 { background: var(--h2); }
.h3 { background: var(--h3); }
.h4 { background: var(--h4); }
.h5 { background: var(--h5); }
.h6 { background: var(--h6); }
.h7 { background: var(--h7); }
.h8 { background: var(--h8); }
.h9 { background: var(--h9); }
.heat {
  --side: 84px; display: grid; gap: 2px; grid-template-columns: repeat(var(--columns), minmax(0, 1fr));
  max-width: calc(var(--columns) * var(--side)); margin-bottom: 12px;
}
.heat li { display: flex; align-items: flex-end; min-width: 0; aspect-ratio: 1; }
.heat li[title]:hover { outline: 2px solid var(--text); }
.heat span {
  max-width: 100%; padding: 1px 5px; background: #4a4a4a; color: #fff; font-size: 11px;
  line-height: 1.3; overflow: hidden; white-space: nowrap; text-overflow: ellipsis;
}
.heat.some { --side: 36px; gap: 1px; }
.heat.many { --side: 18px; gap: 0; }
.legend { display: flex; flex-wrap: wrap; gap: 4px 18px; margin-bottom: 12px; font-size: 13px; }
.legend i {
  display: inline-block; width: 22px; height: 14px; margin-right: 6px; vertical-align: -2px;
  box-shadow: inset 0 0 0 1px var(--grid);
}

.verdict { margin-bottom: 16px; font-size: 17px; }
.verdict strong { margin-right: 4px; font-size: 28px; font-weight: 650; letter-spacing: -0.02em; }
.verdict i { width: 28px; height: 28px; margin-right: 10px; font-size: 17px; line-height: 25px; vertical-align: 3px; }
.passed i, .failed i {
  display: inline-block; border: 1.5px solid; border-radius: 50%; font-style: normal; text-align: center;
}
.failed i { border-color: var(--alert); border-radius: 4px; background: var(--alert); color: var(--page); }
.failed, .verdict.failed strong { color: var(--alert); }
td .passed i, td .failed i { width: 18px; height: 18px; margin-right: 6px; font-size: 11px; line-height: 15px; }

.scroll { margin-bottom: 20px; overflow-x: auto; }
.figures-table { width: auto; min-width: min(100%, 480px); }
.figures-table th { white-space: nowrap; }
.leading tbody tr:first-child > * { font-weight: 600; }
.tones { font-size: 13px; }
.tones th, .tones td, .tones th.number, .tones td.number { padding: 3px 0 3px 12px; }
.tones thead th { vertical-align: bottom; }
.tones th:first-child { padding-left: 0; }
.tones td:nth-child(5), .tones td:nth-child(7) { padding-left: 28px; }
.sides tbody th { width: 1%; color: var(--soft); white-space: nowrap; }

.pairs {
  display: grid; gap: 20px 16px; padding: 16px; border-radius: 6px; background: var(--panel);
  grid-template-columns: repeat(auto-fill, minmax(min(100%, 250px), 1fr));
}
.pairs li { font-size: 13px; line-height: 1.45; }
.pairs p { display: flex; justify-content: space-between; gap: 12px; margin: 0 0 4px; font-size: 14px; }
.pairs .entries { gap: 0 10px; font-size: 13px; }
.pairs .entries dt { color: inherit; white-space: nowrap; }
.pairs dd span { margin-right: 4px; white-space: nowrap; }
.pair { display: inline-grid; grid-template-columns: 1fr 1fr; margin-right: 8px; vertical-align: -2px; }
.pair .colour { margin: 0; border-radius: 0; box-shadow: none; vertical-align: 0; }
.pairs .pair { display: grid; margin: 0 0 6px; border-radius: 3px; overflow: hidden; }
.pairs .pair .colour { width: auto; height: 72px; }

.vectors { fill: none; stroke: var(--bar); pointer-events: none; }
.curve, .spectrum { fill: none; stroke: var(--bar); stroke-width: 2; stroke-linejoin: round; }
.dashed { stroke-dasharray: 5 4; }
.plot .mark { fill: #1b1b1b; stroke: none; }
figcaption small { font-weight: 400; font-size: 13px; }
.small-figures { grid-template-columns: repeat(auto-fill, minmax(min(100%, 320px), 1fr)); }
.ink {
  display: grid; gap: 8px 32px; margin-bottom: 24px; align-items: start;
  grid-template-columns: repeat(auto-fit, minmax(min(100%, 400px), 1fr));
}
@media (max-width: 640px) {
  .plot .sub { font-size: 14px; }
}
@media print {
  .heat, .legend, .pairs, .colour, .verdict i { -webkit-print-color-adjust: exact; print-color-adjust: exact; }
  .heat li, .legend i { -webkit-print-color-adjust: exact; print-color-adjust: exact; }
  .pairs li, .ink { break-inside: avoid; }
  .plot .sub { font-size: 14px; }
  .scroll { overflow-x: visible; }
  .row { grid-template-columns: repeat(auto-fit, minmax(min(100%, 300px), 1fr)); }
  .ink { grid-template-columns: repeat(auto-fit, minmax(min(100%, 280px), 1fr)); }
  .pairs { grid-template-columns: repeat(auto-fill, minmax(min(100%, 200px), 1fr)); }
  .figures-table, .sides, .tones { font-size: 7.5pt; }
  .figures-table thead th { font-size: 7pt; white-space: normal; }
  .figures-table th.number, .figures-table td.number { padding-left: 8px; }
  .tones td.number:nth-child(n) { padding: 1px 0 1px 5px; }
}
)";

}  // namespace measkit::html
