// Converting the programs of a project that is open, one by one.

import type { MappedLines, Origin, Severity, Todo } from "../data/format.ts";
import type { Converter } from "./instance.ts";
import { Request } from "./request.ts";

export interface Outcome {
  readonly path: string;
  readonly output: string;
  readonly status: "converted" | "unreadable" | "collides";
  readonly lines: number;
  readonly convertedLines: number;
  readonly findings: number;
  /** Files that ended the conversion because they are not there. */
  readonly missing: readonly string[];
}

export interface FoundFinding {
  readonly file: string;
  readonly line: number;
  /** From 1, in units of UTF-16, the last one included; 0: not known. */
  readonly firstColumn: number;
  readonly lastColumn: number;
  readonly code: string;
  readonly origin: Origin;
  readonly todo: Todo;
  readonly severity: Severity;
  readonly text: string;
  readonly lineText: string;
  readonly outputLine: number;
  readonly outputLineCount: number;
  readonly includedFrom: readonly { readonly file: string; readonly line: number }[];
}

export interface LineMap {
  readonly files: readonly string[];
  readonly lines: readonly MappedLines[];
}

/** Converts a program by its number among those that were found. */
export function convertProgram(converter: Converter, number: number): Outcome {
  return converter.json<Outcome>("Convert", new Request().number(number));
}

/** Converts a file as a program, whether others include it or not. */
export function convertFile(converter: Converter, path: string): Outcome {
  return converter.json<Outcome>("ConvertFile", new Request().text(path));
}

/** A program that an instance could not convert: in the place of its conversion. */
export function noteFault(converter: Converter, number: number, reason: string): Outcome {
  return converter.json<Outcome>("NoteFault", new Request().number(number).text(reason));
}

/** The bytes of the program that was converted last, with line feeds; empty if it was not. */
export const outputOf = (converter: Converter): Uint8Array => converter.call("Output");
export const logOf = (converter: Converter): Uint8Array => converter.call("Log");

/** What a report needs of it (report.ts). */
export const recordOf = (converter: Converter): Uint8Array => converter.call("Record");

export const findingsOf = (converter: Converter): FoundFinding[] =>
  converter.json<FoundFinding[]>("Findings");
export const lineMapOf = (converter: Converter): LineMap => converter.json<LineMap>("LineMap");
