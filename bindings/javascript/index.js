/** The package: the module beside this file, compiled once. */

import { createLibrary } from "./library.js";

const url = new URL("./measdata.wasm", import.meta.url);

async function compiledModule() {
  if (url.protocol === "file:" && globalThis.process?.versions?.node) {
    const { readFile } = await import("node:fs/promises");
    return WebAssembly.compile(await readFile(url));
  }
  const response = await fetch(url);
  return WebAssembly.compile(await response.arrayBuffer());
}

const library = createLibrary(await compiledModule());

export const { load, labToSrgb, version } = library;
export * from "./library.js";
