// node --test, in a folder with measdata.wasm beside index.js.
import assert from "node:assert/strict";
import { readFileSync } from "node:fs";
import { test } from "node:test";

import * as measdata from "../index.js";

const { load } = measdata;
const data = process.env.MEASDATA_EXAMPLES;
const read = (name) => readFileSync(`${data}/${name}`);
const small = (fields, rows, header = "") =>
  `CGATS.17\n${header}\nBEGIN_DATA_FORMAT\n${fields}\nEND_DATA_FORMAT\nBEGIN_DATA\n${rows}\nEND_DATA\n`;

test("a chart answers", () => {
  const chart = load(read("cmyk-spectral-310.txt"), { name: "a/chart.txt" });
  assert.deepEqual([chart.name, chart.length, chart.deviceSpace], ["chart.txt", 310, "CMYK"]);
  const [first] = chart;
  assert.deepEqual([first.id, first.name, [...first.device]], ["1", "Paper", [0, 0, 0, 0]]);
  assert.equal(chart.patches.spectra.length, 310 * 36);
  assert.deepEqual(
    [...chart.patches.wavelengths.subarray(0, 2), chart.patches.wavelengths.at(-1)],
    [380, 390, 730],
  );
  assert.ok(Math.abs(first.lab[0] - 96.2) < 0.3, `${first.lab}`);
  assert.deepEqual(chart.findings, Object.assign([], { more: 0 }));
  const repeats = chart.repeats(chart.paperWhite);
  assert.equal(repeats.count, 8);
  assert.ok(repeats.max > repeats.mean && repeats.mean > 0);
  const cyan = chart.channels[0];
  assert.deepEqual([cyan.name, cyan.wedge.length, cyan.distinct.length], ["Cyan", 12, 13]);
  assert.equal(chart.instrument.geometry, "45/0");
  assert.ok(chart.keywords.some(([name, value]) => name === "ORIGINATOR" && value === "measdata"));
  assert.equal(chart.toJSON().patches.length, 310);
  assert.match(chart.toHTML(), /<\/html>\s*$/);
  assert.equal(Buffer.compare(Buffer.from(chart.plainText()), read("cmyk-spectral-310.txt")), 0);
});

test("what a file lacks is null, and what is repaired is told", () => {
  const chart = load(small("SAMPLE_ID LAB_L LAB_A LAB_B", "é 50 1 2", "NUMBER_OF_SETS 4"));
  const [patch] = chart.patches;
  assert.deepEqual([patch.id, patch.device, patch.xyz, patch.spectrum], ["é", null, null, null]);
  assert.deepEqual([...patch.lab], [50, 1, 2]);
  assert.deepEqual(
    [chart.findings[0].code, chart.findings[0].severity, chart.findings[0].line],
    ["wrong-count", "repaired", 2],
  );
  assert.equal(load(small("SAMPLE_ID LAB_L", "1 2"), { repair: false }).findings.length, 0);
  assert.deepEqual(measdata.labToSrgb([0, 0, 0]).map(Math.round), [0, 0, 0]);
  const two = load(small("LAB_L LAB_A LAB_B", "1 2 3") + "BEGIN_DATA\n4 5 6\n7 8 9\nEND_DATA\n");
  assert.equal(two.tables[0].length, 2);
});

test("failures are errors with messages", () => {
  assert.throws(() => load("", { name: "x" }), (error) => {
    assert.ok(error instanceof measdata.MeasurementError);
    assert.deepEqual(error.messages, ["The file is empty."]);
    return true;
  });
  assert.throws(() => load(5), TypeError);
  const chart = load(small("SAMPLE_ID LAB_L LAB_A LAB_B", "1 50 1 2"));
  assert.throws(() => chart.convert("xls"), measdata.ConversionError);
  const rgb = load(read("rgb-older-form.txt"));
  assert.throws(() => chart.compare(rgb, { match: "name" }), measdata.ComparisonError);
  assert.throws(() => chart.compare(rgb, { match: "colour" }), RangeError);
  chart.free();
  assert.throws(() => chart.patches.lab, /freed/);
});

test("charts convert and compare", () => {
  const chart = load(small("SAMPLE_ID LAB_L LAB_A LAB_B OWN", "a 50 1 2 x\nb 60 0 0 y", "X y"));
  assert.deepEqual(chart.convert("csv", { bare: true, select: ["lab"] }), {
    text: "SAMPLE_ID,LAB_L,LAB_A,LAB_B\na,50,1,2\nb,60,0,0\n",
    leftBehind: ["Keywords: X."],
  });
  const back = load(chart.convert("json").text);
  assert.deepEqual(back.patches.lab, chart.patches.lab);
  const other = load(small("SAMPLE_ID LAB_L LAB_A LAB_B", "b 61 0 0\na 50 1 2"));
  const comparison = chart.compare(other, { formula: "de76" });
  assert.deepEqual([...comparison.measure("de76")], [0, 1]);
  assert.deepEqual([...comparison.patches.sample], [1, 0]);
  assert.equal(comparison.figure("all.de76.mean"), 0.5);
  assert.equal(comparison.figure("all.de76.nothing"), null);
  assert.equal(comparison.toJSON().formula, "de76");
  assert.match(comparison.toHTML(), /<\/html>/);
  comparison.free();
  assert.throws(() => comparison.measure("de76"), /freed/);
});

test("a file that is too large for the memory is an error, and the next one loads", () => {
  // Two copies of it are more than the 4 GB that a module can have.
  assert.throws(() => load(new Uint8Array(2.2e9)), measdata.OutOfMemoryError);
  assert.equal(load(small("LAB_L LAB_A LAB_B", "1 2 3")).length, 1);
});

test("every function of the library is used", () => {
  const sources = ["chart", "comparison", "document", "instance", "library"]
    .map((name) => readFileSync(new URL(`../${name}.js`, import.meta.url), "utf8"))
    .join("");
  // What the kit does itself, or what has another way here.
  const others = new Set([
    "cleanup_parser", "init_parser", "parse_file", "parse_mem", "parse_messages", "set_parse_mode",
    "get_parse_mode", "pass_unique_data", "mk_close", "mk_close_comparison", "mk_open_file",
    "mk_version", "mk_html_of", "parser_version_major", "parser_version_minor",
    "parser_version_bugfix", "get_ith_value_of_keyword", "get_value_of_keyword", "has_keyword",
    "num_keyword_values", "has_color_data", "has_lch_data", "has_sample_id_data",
    "has_sample_loc_data", "has_sample_name_data", "spectral_step",
  ]);
  const built = new Set(["patch", "index"].flatMap((kind) =>
    ["dev", "lab", "xyz", "spectrum"].map((what) => `get_${what}_from_${kind}`)));
  for (const space of ["cmyk", "cmy", "rgb"]) built.add(`dev_is_${space}`);
  const functions = process.env.MEASDATA_EXPORTS.split(":")
    .flatMap((path) => readFileSync(path, "utf8").split("\n"))
    .filter((name) => /^[a-z_]+$/.test(name));
  assert.ok(functions.length > 90);
  for (const name of functions) {
    assert.ok(others.has(name) !== (sources.includes(`"${name}"`) || built.has(name)), name);
  }
});
