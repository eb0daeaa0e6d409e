/** An instance of the module: its memory, and the texts and numbers in it. */

const encoder = new TextEncoder();
const decoder = new TextDecoder();

/** Thrown when a file needs more memory than the browser or Node gives. */
export class OutOfMemoryError extends Error {
  constructor() {
    super("Out of memory");
    this.name = "OutOfMemoryError";
  }
}

// What C libraries for WebAssembly ask of the system. There are no files and no arguments.
function systemCalls(memory) {
  const noSuchThing = 52;
  const calls = {
    clock_time_get(_clock, _precision, address) {
      const now = BigInt(Math.round(performance.now() * 1e6));
      new DataView(memory().buffer).setBigUint64(address, now, true);
      return 0;
    },
    random_get(address, size) {
      for (let start = 0; start < size; start += 65536) {
        const length = Math.min(65536, size - start);
        crypto.getRandomValues(new Uint8Array(memory().buffer, address + start, length));
      }
      return 0;
    },
    proc_exit() {
      throw new OutOfMemoryError(); // the one reason for which the libraries end
    },
  };
  return new Proxy(calls, { get: (known, name) => known[name] ?? (() => noSuchThing) });
}

/**
 * Each document has an instance of its own: what one file does to the memory, no other feels, and
 * all of it goes back when the instance is no longer referenced.
 */
export class Instance {
  #exports;
  #isBroken = false;

  constructor(module) {
    const imports = {
      wasi_snapshot_preview1: systemCalls(() => this.#exports.memory),
      measdata: {
        out_of_memory() {
          throw new OutOfMemoryError();
        },
      },
    };
    this.#exports = new WebAssembly.Instance(module, imports).exports;
    this.#exports._initialize();
  }

  /** Calls a function. After a failure the memory may be in any state, so there is no other call. */
  call(name, ...values) {
    if (this.#isBroken) throw new OutOfMemoryError();
    try {
      return this.#exports[name](...values);
    } catch (error) {
      this.#isBroken = true;
      throw error;
    }
  }

  /** The address of a copy of some bytes, with a zero byte behind them. */
  copyIn(bytes) {
    const address = this.call("allocate", bytes.length + 1);
    const copy = new Uint8Array(this.#exports.memory.buffer, address >>> 0, bytes.length + 1);
    copy.set(bytes);
    copy[bytes.length] = 0;
    return address;
  }

  release(address) {
    this.call("release", address);
  }

  /** Calls `use` with the addresses of texts, which are released behind it. Null stays null. */
  withTexts(texts, use) {
    const addresses = texts.map((text) => (text == null ? 0 : this.copyIn(encoder.encode(text))));
    const result = use(...addresses);
    for (const address of addresses) if (address !== 0) this.release(address);
    return result;
  }

  /** Calls `use` with the address of room for some bytes. */
  withRoom(size, use) {
    const address = this.call("allocate", size);
    const result = use(address);
    this.release(address);
    return result;
  }

  /** A copy of bytes. */
  bytesAt(address, length) {
    return this.#exports.memory.buffer.slice(address >>> 0, (address >>> 0) + length);
  }

  /** The text up to the next zero byte; null for a null address. */
  textAt(address) {
    if (address === 0) return null;
    const bytes = new Uint8Array(this.#exports.memory.buffer);
    const start = address >>> 0;
    return decoder.decode(bytes.subarray(start, bytes.indexOf(0, start)));
  }

  /** A text that a function returns; what is not UTF-8 is taken for Latin-1. */
  text(name, ...values) {
    return this.textAt(this.call(name, ...values));
  }

  numbersAt(address, count) {
    return new Float64Array(this.bytesAt(address, 8 * count));
  }

  integersAt(address, count) {
    return new Int32Array(this.bytesAt(address, 4 * count));
  }
}
