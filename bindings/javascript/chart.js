/** Charts and their patches. */

import { compare } from "./comparison.js";

const DEVICE = "get_dev_from_", XYZ = "get_xyz_from_", LAB = "get_lab_from_";

const INSTRUMENT = {
  manufacturer: "device_manufacturer",
  model: "device_model",
  serialNumber: "device_serial_number",
  geometry: "device_geometry",
  filter: "device_filter",
  polarization: "device_polarization",
  measurementSource: "device_measurement_source",
};
const SAMPLE = {
  backing: "sample_backing",
  colorant: "sample_colorant",
  manufacturer: "sample_manufacturer",
  material: "sample_material",
  printConditions: "sample_print_conditions",
  productionDate: "sample_production_date",
  serialNumber: "sample_serial_number",
  targetType: "sample_target_type",
};

/** One patch, or merged patch: views of the numbers of its chart. */
class Patch {
  #rows;

  constructor(rows, index) {
    this.#rows = rows;
    this.index = index;
  }

  get id() { return this.#rows.ids[this.index]; }
  get name() { return this.#rows.names[this.index]; }
  get location() { return this.#rows.locations[this.index]; }
  get device() { return this.#row(this.#rows.device, this.#rows.channelCount); }
  get xyz() { return this.#row(this.#rows.xyz, 3); }
  get lab() { return this.#row(this.#rows.lab, 3); }
  get spectrum() { return this.#row(this.#rows.spectra, this.#rows.wavelengths.length); }

  #row(values, width) {
    return values?.subarray(this.index * width, (this.index + 1) * width) ?? null;
  }
}

/** The patches of a chart; numbers and texts are read once, all together. */
class Rows {
  #document;
  #handle;
  #isMerged;
  #kept = new Map();

  constructor(document, handle, isMerged) {
    this.#document = document;
    this.#handle = handle;
    this.#isMerged = isMerged;
    this.length = this.#ask(isMerged ? "num_indices" : "num_patches");
    this.channelCount = this.#ask("num_device_channels");
  }

  *[Symbol.iterator]() {
    for (let i = 0; i < this.length; ++i) yield new Patch(this, i);
  }

  at(index) {
    const position = index < 0 ? index + this.length : index;
    const exists = Number.isInteger(position) && position >= 0 && position < this.length;
    return exists ? new Patch(this, position) : undefined;
  }

  get ids() { return this.#texts("get_id_from_patch"); }
  get names() { return this.#texts(this.#isMerged ? "get_name_from_index" : "get_name_from_patch"); }
  get locations() { return this.#texts("get_loc_from_patch"); }

  get device() { return this.#numbers(DEVICE, "has_device_data", this.channelCount); }
  get xyz() { return this.#isMerged ? null : this.#numbers(XYZ, "has_xyz_data", 3); }
  get lab() {
    const has = this.#ask("has_lab_data") || this.#ask("has_spectral_data");
    return has ? this.#numbers(LAB, null, 3) : null;
  }

  get wavelengths() {
    return this.#keep("wavelengths", () => {
      const size = this.#ask("has_spectral_data") ? this.#ask("spectral_size") : 0;
      const start = this.#ask("spectral_start"), end = this.#ask("spectral_end");
      const step = (end - start) / Math.max(size - 1, 1);
      return Float64Array.from({ length: size }, (_, i) => start + i * step);
    });
  }

  get spectra() {
    if (!this.#ask("has_spectral_data")) return null;
    return this.#keep("spectra", () => {
      const size = this.wavelengths.length;
      const values = new Float64Array(this.length * size);
      const getter = this.#getter("get_spectrum_from_");
      const { instance } = this.#document;
      for (let i = 0; i < this.length; ++i) {
        const address = instance.call(getter, this.#handle, i);
        if (address !== 0) values.set(instance.numbersAt(address, size), i * size);
      }
      return values;
    });
  }

  #ask(name) {
    return this.#document.call(name, this.#handle);
  }

  #keep(name, make) {
    this.#document.instance; // throws for a chart that was freed
    if (!this.#kept.has(name)) this.#kept.set(name, make());
    return this.#kept.get(name);
  }

  #getter(start) {
    return start + (this.#isMerged ? "index" : "patch");
  }

  #texts(getter) {
    if (this.#isMerged && getter !== "get_name_from_index") return [];
    return this.#keep(getter, () =>
      Array.from({ length: this.length }, (_, i) =>
        this.#document.instance.text(getter, this.#handle, i) ?? "",
      ),
    );
  }

  #numbers(start, question, width) {
    if (question !== null && !this.#ask(question)) return null;
    return this.#keep(start, () => {
      const { instance } = this.#document;
      const values = new Float64Array(this.length * width);
      const getter = this.#getter(start);
      instance.withRoom(8 * width, (room) => {
        for (let i = 0; i < this.length; ++i) {
          instance.call(getter, this.#handle, i, room);
          values.set(instance.numbersAt(room, width), i * width);
        }
      });
      return values;
    });
  }
}

/** A table of a measurement file. */
export class Chart {
  #document;
  #position;
  #handle;
  #patches;
  #merged;

  constructor(document, position) {
    this.#document = document;
    this.#position = position;
    this.#handle = document.handle(position);
  }

  /** Lets go of the memory of the file, for all of its charts. What was asked before stays. */
  free() {
    this.#document.close();
  }

  [Symbol.iterator]() {
    return this.patches[Symbol.iterator]();
  }

  get name() { return this.#document.chartName(this.#position); }
  get findings() { return this.#document.allFindings(this.#position); }
  get patches() { return (this.#patches ??= new Rows(this.#document, this.#handle, false)); }
  get merged() { return (this.#merged ??= new Rows(this.#document, this.#handle, true)); }
  get length() { return this.patches.length; }

  /** The further charts of the file; none for one of these. */
  get tables() {
    const count = this.#position === 0 ? this.#document.count - 1 : 0;
    return Array.from({ length: count }, (_, i) => new Chart(this.#document, i + 1));
  }

  get deviceSpace() {
    for (const space of ["cmyk", "cmy", "rgb"]) {
      if (this.#ask(`dev_is_${space}`)) return space.toUpperCase();
    }
    return null;
  }

  get channels() {
    return Array.from({ length: this.#ask("num_device_channels") }, (_, i) => ({
      name: this.#text("get_device_channel_name", i),
      distinct: Array.from({ length: this.#ask("num_distinct_dev_values", i) }, (_, j) => ({
        value: this.#ask("get_distinct_dev_value", i, j),
        count: this.#ask("get_distinct_dev_value_count", i, j),
      })),
      wedge: Array.from({ length: this.#ask("num_wedge_steps", i) }, (_, j) =>
        this.#ask("get_wedge_index", i, j),
      ),
      solid: optionalIndex(this.#ask("get_solid_index", i)),
    }));
  }

  /** The merged patch without ink; null without one. */
  get paperWhite() { return optionalIndex(this.#ask("get_paperwhite_index")); }

  /** How far the measurements of a merged patch are apart. */
  repeats(index) {
    const { instance } = this.#document;
    const size = 24; // DeStats: a 32-bit count, padding, two doubles
    return instance.withRoom(size, (room) => {
      this.#ask("get_de_stats_from_index", index, room);
      const [count] = instance.integersAt(room, 1);
      const [mean, max] = instance.numbersAt(room + 8, 2);
      return { count, mean, max: max < 0 || count === 0 ? null : max };
    });
  }

  get keywords() {
    return Array.from({ length: this.#ask("num_keywords") }, (_, i) => [
      this.#text("get_keyword", i),
      this.#text("get_value", i),
    ]);
  }

  get instrument() { return this.#texts(INSTRUMENT); }
  get sample() { return this.#texts(SAMPLE); }
  get illuminant() { return this.#text("illuminant") || null; }
  get observer() { return this.#text("observer") || null; }
  get densityStatus() { return this.#text("density_status") || null; }
  get copyright() { return this.#text("copyright") || null; }

  /** The chart as a plain measurement file. */
  plainText() { return this.#document.plainText(this.#position); }
  /** All that is known of the file, as an object. */
  toJSON() { return JSON.parse(this.#document.json()); }
  /** The report of measreport about the file. */
  toHTML() { return this.#document.html(); }

  /** The chart in another form, with sentences about what the form cannot hold. */
  convert(form, options = {}) {
    return this.#document.convert(this.#position, form, options);
  }

  /** Compares a sample with this chart, the reference. */
  compare(sample, options = {}) {
    const sides = [this, sample].map((chart) => ({ name: chart.name, text: chart.plainText() }));
    return compare(this.#document.module, sides, options);
  }

  #ask(name, ...values) {
    return this.#document.call(name, this.#handle, ...values);
  }

  #text(name, ...values) {
    return this.#document.instance.text(name, this.#handle, ...values);
  }

  #texts(functions) {
    return Object.fromEntries(
      Object.entries(functions).map(([name, getter]) => [name, this.#text(getter) || null]),
    );
  }
}

function optionalIndex(index) {
  return index < 0 ? null : index;
}
