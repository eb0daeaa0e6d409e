/** The library around a compiled module. */

import { Chart } from "./chart.js";
import { Document } from "./document.js";
import { Instance } from "./instance.js";

export { Chart } from "./chart.js";
export { Comparison, ComparisonError } from "./comparison.js";
export { ConversionError, MeasurementError } from "./document.js";
export { OutOfMemoryError } from "./instance.js";

const encoder = new TextEncoder();

function bytesOf(data) {
  if (typeof data === "string") return encoder.encode(data);
  if (data instanceof Uint8Array) return data;
  if (data instanceof ArrayBuffer) return new Uint8Array(data);
  if (ArrayBuffer.isView(data)) {
    return new Uint8Array(data.buffer, data.byteOffset, data.byteLength);
  }
  throw new TypeError("the data must be bytes or text");
}

/** The functions of the package for a module that was compiled elsewhere. */
export function createLibrary(module) {
  const common = new Instance(module);
  return {
    load(data, { name = "", repair = true } = {}) {
      return new Chart(new Document(module, bytesOf(data), name, repair), 0);
    },
    labToSrgb(lab) {
      const room = 8 * 3;
      return common.withRoom(2 * room, (address) => {
        const input = common.copyIn(new Uint8Array(Float64Array.from(lab).buffer));
        common.call("lab_to_srgb", input, address);
        common.release(input);
        return [...common.numbersAt(address, 3)];
      });
    },
    version: common.text("parser_version"),
  };
}
