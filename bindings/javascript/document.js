/** A file of the kit with its charts and findings. */

import { Instance } from "./instance.js";

/** Thrown for a file without a chart. Its messages tell why. */
export class MeasurementError extends Error {
  constructor(name, messages) {
    super(`${name || "data"}: ${messages.join(" ")}`);
    this.name = "MeasurementError";
    this.messages = messages;
  }
}

/** Thrown for a chart that cannot be converted as asked for. */
export class ConversionError extends Error {
  constructor(message) {
    super(message);
    this.name = "ConversionError";
  }
}

const SEVERITIES = ["note", "repaired", "doubtful", "lost"]; // in the order of mk_severity
const REPAIR = 0; // mk_options
const AS_IS = 1;
const FILE = -1; // the position that stands for the file as a whole

// The members of mk_convert_options: texts, then numbers.
const CONVERT_TEXTS = ["select", "labFrom", "grid"];
const CONVERT_NUMBERS = [
  "merged", "percent", "keepUnknown", "digits", "decimalComma", "bare", "cxfPairs",
];

export class Document {
  #module;
  #instance;
  #pointer;

  constructor(module, bytes, name, repair) {
    this.#module = module;
    this.name = name;
    this.#instance = new Instance(module);
    this.#pointer = openBlock(this.#instance, bytes, name, repair);
    this.count = this.call("mk_num_charts", this.#pointer);
    if (this.count === 0) {
      const messages = this.findings(FILE).map((finding) => finding.sentence);
      this.close();
      throw new MeasurementError(name, messages);
    }
  }

  get module() {
    return this.#module;
  }

  /** The instance; an Error when the document was closed. */
  get instance() {
    if (this.#instance === null) throw new Error("the chart was freed");
    return this.#instance;
  }

  call(name, ...values) {
    return this.instance.call(name, ...values);
  }

  /** Lets go of all memory of the file. */
  close() {
    this.#instance = null;
  }

  handle(chart) {
    return this.call("mk_chart_handle", this.#pointer, chart);
  }

  chartName(chart) {
    return this.instance.text("mk_chart_name", this.#pointer, chart);
  }

  findings(chart) {
    const pointer = this.#pointer;
    const count = this.call("mk_num_findings", pointer, chart);
    const more = this.call("mk_num_more_findings", pointer, chart);
    const list = Array.from({ length: count }, (_, i) => ({
      code: this.instance.text("mk_finding_code", pointer, chart, i),
      severity: SEVERITIES[this.call("mk_finding_severity", pointer, chart, i)],
      sentence: this.instance.text("mk_finding_sentence", pointer, chart, i),
      line: this.call("mk_finding_line", pointer, chart, i) || null,
    }));
    list.more = more;
    return list;
  }

  allFindings(chart) {
    const own = this.findings(chart);
    if (chart !== 0) return own;
    const file = this.findings(FILE);
    const list = [...file, ...own];
    list.more = file.more + own.more;
    return list;
  }

  plainText(chart) {
    const instance = this.instance;
    return instance.withRoom(4, (length) => {
      const address = this.call("mk_plain_text", this.#pointer, chart, length);
      return new Uint8Array(instance.bytesAt(address, instance.integersAt(length, 1)[0]));
    });
  }

  json() {
    return this.instance.text("mk_json", this.#pointer);
  }

  html() {
    return this.instance.text("mk_html", this.#pointer);
  }

  convert(chart, form, options) {
    const instance = this.instance;
    const texts = [form, ...CONVERT_TEXTS.map((name) => listed(options[name]))];
    return instance.withTexts(texts, (formAddress, ...addresses) => {
      const numbers = CONVERT_NUMBERS.map((name) => Number(options[name] ?? 0));
      const given = instance.copyIn(
        new Uint8Array(Int32Array.from([...addresses, ...numbers]).buffer),
      );
      const conversion = this.call("mk_convert", this.#pointer, chart, formAddress, given);
      instance.release(given);
      return takeConversion(instance, conversion);
    });
  }
}

function listed(value) {
  return Array.isArray(value) ? value.join(",") : value;
}

/** Opens bytes in an instance and returns the pointer to the document. */
export function openBlock(instance, bytes, name, repair) {
  const address = instance.copyIn(bytes);
  const pointer = instance.withTexts([name], (text) =>
    instance.call("mk_open_block", bytes.length, address, text, repair ? REPAIR : AS_IS),
  );
  instance.release(address);
  return pointer;
}

function takeConversion(instance, conversion) {
  const refusal = instance.text("mk_conversion_refusal", conversion);
  const count = instance.call("mk_num_left_behind", conversion);
  const leftBehind = Array.from({ length: count }, (_, i) =>
    instance.text("mk_left_behind", conversion, i),
  );
  const text = instance.withRoom(4, (length) => {
    const address = instance.call("mk_converted_text", conversion, length);
    const bytes = instance.bytesAt(address, instance.integersAt(length, 1)[0]);
    return new TextDecoder().decode(bytes);
  });
  const pointer = instance.copyIn(new Uint8Array(Int32Array.of(conversion).buffer));
  instance.call("mk_close_conversion", pointer);
  instance.release(pointer);
  if (refusal !== null) throw new ConversionError(refusal);
  return { text, leftBehind };
}
