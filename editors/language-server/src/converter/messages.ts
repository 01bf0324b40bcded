// What the server and its worker send each other.

export interface ProjectQuestion {
  readonly file: string;
  readonly folder: string;
  /** TOML. */
  readonly settings: string;
  readonly referenceFile: string;
}

export type Job =
  | { readonly kind: "project"; readonly id: number; readonly question: ProjectQuestion }
  | {
      readonly kind: "convert";
      readonly id: number;
      readonly project: number;
      readonly program: string;
    }
  | { readonly kind: "names"; readonly id: number }
  | { readonly kind: "tables"; readonly id: number; readonly project: number }
  | { readonly kind: "close"; readonly id: number; readonly project: number };

export type ToWorker =
  | Job
  | { readonly kind: "document"; readonly path: string; readonly text: Uint8Array }
  | { readonly kind: "forget"; readonly path: string };

export interface FromWorker {
  readonly id: number;
  readonly answer?: unknown;
  /** The job ended in a trap; the instance was made anew. */
  readonly trap?: string;
}

/** What is told of a project. */
export interface ProjectAnswer {
  readonly project: number;
  readonly folder: string;
  readonly file: string;
  readonly notices: readonly { readonly path: string; readonly text: string }[];
  readonly programs: readonly string[];
  readonly parts: readonly { readonly path: string; readonly programs: readonly number[] }[];
}

export interface Fault {
  readonly fault: string;
}

export interface Finding {
  readonly file: number;
  /** From 1; 0: the file as a whole. */
  readonly line: number;
  readonly column: number;
  readonly lastColumn: number;
  /** The range to be shown, from 0, the end not included. */
  readonly begin: number;
  readonly end: number;
  readonly code: string;
  readonly origin: "message" | "check" | "define";
  readonly todo: "fix-source" | "rewrite" | "complete" | "look";
  readonly severity: "moves" | "stops" | "reads" | "";
  readonly text: string;
  readonly furtherLines: readonly number[];
  readonly includedFrom: readonly { readonly file: number; readonly line: number }[];
}

/** What is told of a program. */
export interface ProgramAnswer {
  readonly program: string;
  readonly status: "converted" | "unreadable" | "collides";
  readonly files: readonly { readonly path: string; readonly shown: string }[];
  readonly findings: readonly Finding[];
  readonly findingCounts: readonly number[];
  readonly axes: readonly string[];
  readonly inputs: readonly string[];
}

/** What is told of the program that was converted last, once. Numbers stand in rows, which program.ts names. */
export interface NamesAnswer {
  readonly names: Int32Array;
  readonly texts: readonly string[];
  readonly lines: Int32Array;
  readonly output: string;
}

export interface Explanation {
  readonly page: string;
  readonly title: string;
  readonly body: string;
  readonly section: string;
}

export interface Predefined {
  readonly value: string;
  readonly torvel: string;
  readonly isComposed: boolean;
}

export interface TablesAnswer {
  readonly codes: Readonly<Record<string, Explanation>>;
  readonly predefined: Readonly<Record<string, Predefined>>;
}

export function isFault(answer: unknown): answer is Fault {
  return typeof (answer as Partial<Fault> | undefined)?.fault === "string";
}
