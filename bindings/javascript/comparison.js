/** Two charts compared colour by colour. */

import { openBlock } from "./document.js";
import { Instance } from "./instance.js";

/** Thrown for charts that cannot be compared. */
export class ComparisonError extends Error {
  constructor(message) {
    super(message);
    this.name = "ComparisonError";
  }
}

const MATCHES = [undefined, "device", "id", "name", "location", "order"]; // as in mk_match
const FORMULAS = ["de00", "de76", "de94", "cmc"]; // as in mk_formula

function positionIn(list, word, what) {
  const position = list.indexOf(word ?? undefined);
  if (position < 0) throw new RangeError(`${what} is none of ${list.filter(Boolean).join(", ")}`);
  return position;
}

// mk_compare_options: three numbers of 32 bits, padding, two doubles.
function optionBytes({ match, formula = "de00", median = false, cmc = [2, 1] }) {
  const view = new DataView(new ArrayBuffer(32));
  view.setInt32(0, positionIn(MATCHES, match, "match"), true);
  view.setInt32(4, positionIn(FORMULAS, formula, "formula"), true);
  view.setInt32(8, median ? 1 : 0, true);
  view.setFloat64(16, cmc[0], true);
  view.setFloat64(24, cmc[1], true);
  return new Uint8Array(view.buffer);
}

export class Comparison {
  #instance;
  #pointer;

  constructor(instance, pointer) {
    this.#instance = instance;
    this.#pointer = pointer;
    const refusal = instance.text("mk_comparison_refusal", pointer);
    if (refusal !== null) throw new ComparisonError(refusal);
    /** The number of colours that both charts hold. */
    this.length = instance.call("mk_num_compared", pointer);
  }

  free() {
    this.#instance = null;
  }

  /** The first patches of every compared colour. */
  get patches() {
    const instance = this.#open();
    return instance.withRoom(8 * this.length, (room) => {
      instance.call("mk_compared_patches", this.#pointer, room, room + 4 * this.length);
      return {
        reference: instance.integersAt(room, this.length),
        sample: instance.integersAt(room + 4 * this.length, this.length),
      };
    });
  }

  /** A measure of every compared colour, such as "de00" or "dl". */
  measure(name) {
    const instance = this.#open();
    return instance.withRoom(8 * this.length, (room) =>
      instance.withTexts([name], (text) => {
        if (instance.call("mk_compared_measure", this.#pointer, text, room) === 0) {
          throw new RangeError(`there is no measure "${name}"`);
        }
        return instance.numbersAt(room, this.length);
      }),
    );
  }

  /** A figure such as "all.de00.p95"; null for an unknown one and for groups without colours. */
  figure(name) {
    const instance = this.#open();
    return instance.withRoom(8, (room) =>
      instance.withTexts([name], (text) =>
        instance.call("mk_figure", this.#pointer, text, room) === 0
          ? null
          : instance.numbersAt(room, 1)[0],
      ),
    );
  }

  toJSON() { return JSON.parse(this.#open().text("mk_comparison_json", this.#pointer)); }
  toHTML() { return this.#open().text("mk_comparison_html", this.#pointer); }

  #open() {
    if (this.#instance === null) throw new Error("the comparison was freed");
    return this.#instance;
  }
}

/** Compares two charts, given by their names and plain texts, in an instance of their own. */
export function compare(module, sides, options) {
  const bytes = optionBytes(options);
  const instance = new Instance(module);
  const [reference, sample] = sides.map(({ name, text }) => openBlock(instance, text, name, true));
  const given = instance.copyIn(bytes);
  const pointer = instance.call("mk_compare", reference, 0, sample, 0, given);
  instance.release(given);
  return new Comparison(instance, pointer);
}
