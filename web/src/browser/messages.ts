// What the page asks its worker, and what it answers.

import type { Outcome } from "../converter/conversion.ts";
import type { FoundFiles, Settings } from "../converter/project.ts";
import type { RunNumbers } from "../converter/report.ts";
import type { ProgramDetail, Summary } from "../data/format.ts";
import type { Refusal } from "./dropped-files.ts";

export interface ConvertedProgram {
  readonly outcome: Outcome;
  readonly output: Blob;
  readonly log: Blob;
  /** What a report needs of it. */
  readonly record: Uint8Array<ArrayBuffer>;
}

export interface ReportQuestion {
  readonly projectName: string;
  readonly earlierRuns: readonly RunNumbers[];
  readonly records: readonly Uint8Array[];
  readonly began: number;
  readonly ended: number;
}

export interface SavedFile {
  readonly path: string;
  readonly bytes: Blob;
}

export interface Questions {
  /** Files for a new instance; says which cannot be read. */
  start: [{ wasm: Uint8Array; files: readonly (readonly [string, File])[] }, Refusal[]];
  open: [Settings, FoundFiles];
  convert: [number, ConvertedProgram];
  fault: [{ number: number; reason: string }, ConvertedProgram];
  report: [ReportQuestion, { run: RunNumbers; summary: Summary }];
  detail: [number, ProgramDetail];
  /** A ZIP of these files and of the report that was made last. */
  save: [
    { files: readonly SavedFile[]; emptyPage: Uint8Array; made: number; windowsLines: boolean },
    Blob,
  ];
}

export type Question = keyof Questions;

export interface Asked {
  readonly id: number;
  readonly question: Question;
  readonly argument: unknown;
}

export interface Answered {
  readonly id: number;
  readonly answer?: unknown;
  /** Why there is none. */
  readonly failure?: string;
}
