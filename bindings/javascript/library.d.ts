/** Bytes of a file, or its text. */
export type Data = string | ArrayBuffer | ArrayBufferView;

export interface LoadOptions {
  /** The name of the file, for messages and reports. */
  name?: string;
  /** False reads the file as it stands, without repairs. */
  repair?: boolean;
}

export interface Library {
  load(data: Data, options?: LoadOptions): Chart;
  labToSrgb(lab: ArrayLike<number>): [number, number, number];
  readonly version: string;
}

/** The functions of the package for a module that was compiled elsewhere. */
export function createLibrary(module: WebAssembly.Module): Library;

export interface Finding {
  /** For programs, such as "spectra-in-percent". */
  readonly code: string;
  readonly severity: "note" | "repaired" | "doubtful" | "lost";
  /** For people. */
  readonly sentence: string;
  /** The line of the file, from 1. */
  readonly line: number | null;
}

/** A patch. Its numbers are views of those of all patches; null is what the file does not have. */
export interface Patch {
  readonly index: number;
  readonly id: string;
  readonly name: string;
  readonly location: string;
  /** On the scale of the file. */
  readonly device: Float64Array | null;
  readonly xyz: Float64Array | null;
  /** L* from 0 to 100, computed from the spectra for D50 and 2 degrees where there are some. */
  readonly lab: Float64Array | null;
  readonly spectrum: Float64Array | null;
}

/** The patches of a chart, or its merged patches. Numbers stand row after row. */
export interface Patches extends Iterable<Patch> {
  readonly length: number;
  at(index: number): Patch | undefined;
  /** Of a device value. */
  readonly channelCount: number;
  readonly ids: readonly string[];
  readonly names: readonly string[];
  readonly locations: readonly string[];
  readonly device: Float64Array | null;
  readonly xyz: Float64Array | null;
  readonly lab: Float64Array | null;
  /** wavelengths.length numbers a patch. */
  readonly spectra: Float64Array | null;
  /** In nm; empty without spectra. */
  readonly wavelengths: Float64Array;
}

export interface Channel {
  readonly name: string;
  /** The different values, ascending, and of how many patches each is. */
  readonly distinct: readonly { readonly value: number; readonly count: number }[];
  /** Merged patches in which this channel alone is not 0. */
  readonly wedge: readonly number[];
  /** The merged patch with the largest value of the wedge. */
  readonly solid: number | null;
}

export interface Repeats {
  /** Of measurements; 0 when no patch of the chart repeats. */
  readonly count: number;
  /** Delta E*ab (CIE 1976) of all pairs. */
  readonly mean: number;
  readonly max: number | null;
}

export type Form =
  | "iso28178" | "cgats" | "sevenchar" | "csv" | "tsv" | "json" | "jsonl" | "cxf" | "ti3";

export interface ConvertOptions {
  select?: string | readonly string[];
  labFrom?: "file" | "xyz" | "spectra";
  /** Such as "400:700:10", in nm. */
  grid?: string;
  merged?: boolean;
  percent?: boolean;
  keepUnknown?: boolean;
  digits?: number;
  decimalComma?: boolean;
  bare?: boolean;
  cxfPairs?: boolean;
}

export interface CompareOptions {
  match?: "device" | "id" | "name" | "location" | "order";
  formula?: "de00" | "de76" | "de94" | "cmc";
  median?: boolean;
  cmc?: readonly [number, number];
}

type Answers<Names extends string> = { readonly [Name in Names]: string | null };

/** A table of a measurement file. */
export class Chart implements Iterable<Patch> {
  private constructor();
  [Symbol.iterator](): Iterator<Patch>;
  /** Lets go of the memory of the file, for all of its charts. Without it, the memory goes when
   *  nothing references these charts any longer. */
  free(): void;
  readonly name: string;
  readonly length: number;
  readonly patches: Patches;
  readonly merged: Patches;
  /** The further charts of the file. */
  readonly tables: readonly Chart[];
  readonly findings: readonly Finding[] & { readonly more: number };
  readonly deviceSpace: "CMYK" | "CMY" | "RGB" | null;
  readonly channels: readonly Channel[];
  /** A position of a merged patch. */
  readonly paperWhite: number | null;
  repeats(index: number): Repeats;
  readonly keywords: readonly (readonly [string, string])[];
  readonly instrument: Answers<
    | "manufacturer" | "model" | "serialNumber" | "geometry" | "filter" | "polarization"
    | "measurementSource"
  >;
  readonly sample: Answers<
    | "backing" | "colorant" | "manufacturer" | "material" | "printConditions" | "productionDate"
    | "serialNumber" | "targetType"
  >;
  readonly illuminant: string | null;
  readonly observer: string | null;
  readonly densityStatus: string | null;
  readonly copyright: string | null;
  plainText(): Uint8Array;
  toJSON(): unknown;
  toHTML(): string;
  /** Throws a ConversionError for a chart that cannot be converted as asked for. */
  convert(form: Form, options?: ConvertOptions): { text: string; leftBehind: string[] };
  /** Throws a ComparisonError for charts that cannot be compared. */
  compare(sample: Chart, options?: CompareOptions): Comparison;
}

/** Two charts compared colour by colour. Differences are the sample minus the reference. */
export class Comparison {
  private constructor();
  free(): void;
  /** The number of colours that both charts hold. */
  readonly length: number;
  readonly patches: { readonly reference: Int32Array; readonly sample: Int32Array };
  measure(name: string): Float64Array;
  figure(name: string): number | null;
  toJSON(): unknown;
  toHTML(): string;
}

export class MeasurementError extends Error {
  readonly messages: readonly string[];
}
export class ConversionError extends Error {}
export class ComparisonError extends Error {}
export class OutOfMemoryError extends Error {}
