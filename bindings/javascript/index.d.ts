import type { Library } from "./library.js";

/** Reads a file that is in memory. Throws a MeasurementError for a file without charts. */
export const load: Library["load"];
/** sRGB of a Lab value, three numbers from 0 to 255. */
export const labToSrgb: Library["labToSrgb"];
/** The version of the library. */
export const version: string;
export * from "./library.js";
