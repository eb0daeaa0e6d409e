// Writes all that is known of some files as JSON, to be compared with the answers of other builds.
// Call: node answers.mjs FILE...
import { readFileSync, writeSync } from "node:fs";
import { basename } from "node:path";

import { MeasurementError, load } from "../index.js";

for (const path of process.argv.slice(2)) {
  try {
    const chart = load(readFileSync(path), { name: path });
    writeSync(1, `${JSON.stringify({ name: basename(path), answers: chart.toJSON() })}\n`);
    chart.free();
  } catch (error) {
    if (!(error instanceof MeasurementError)) throw error;
    writeSync(1, `${JSON.stringify({ name: basename(path), messages: error.messages })}\n`);
  }
}
