// What `torvel-migrate report --html` puts into the page. Texts are decoded already (UTF-8 where they were valid, else
// Windows-1252). Paths are relative to the project's folder, with "/". Counts of lines and columns are from 1, and 0
// stands for "not known" or "none". Columns are counted in units of UTF-16, as JavaScript's strings are.
//
// The summary stands in the page as the element with the id "summary"; a program's detail as "program-N" in a page of
// one file, or in "programs/N.js", which calls `torvelProgram(N, "…")`. All of them are base64 of gzip of JSON.

/** Changes when an older page could not read the data. */
export const dataFormat = 1;

/** A value for each row of a table. */
export type Column<T> = readonly T[];

export interface Summary {
  readonly format: number;
  /** The version of torvel-migrate. */
  readonly version: string;
  /** Seconds since the beginning of 1970. */
  readonly made: number;
  readonly project: Project;
  /** The oldest first. */
  readonly runs: readonly Run[];
  /** What there is to say about the files as a whole. */
  readonly notices: readonly string[];
  readonly effort: Effort;
  readonly totals: Totals;
  readonly rules: readonly Rule[];
  /** Texts that tables refer to by number. */
  readonly strings: readonly string[];
  readonly programs: ProgramTable;
  readonly places: PlaceTable;
  readonly findings: FindingTable;
  /** Ways of inclusion, from the innermost `#include` to the program's: file (a string) and line by turns. The first is
   * empty. */
  readonly chains: readonly (readonly number[])[];
  /** Whether details stand in the page or in files of their own. */
  readonly details: "inside" | "files";
}

export interface Project {
  /** The same for each report of a project: what the browser keeps begins with it. */
  readonly identity: string;
  /** The name of its folder. */
  readonly name: string;
}

export interface Run {
  readonly version: string;
  readonly began: number;
  /** 0: the run was cut off. */
  readonly ended: number;
  readonly programs: number;
  readonly converted: number;
  readonly lines: number;
  readonly convertedLines: number;
  readonly openFindings: number;
}

/** What is to be done about a finding; the number in a column is the index here. */
export const todos = ["rewrite", "complete", "look", "fix-source"] as const;
export type Todo = (typeof todos)[number];

/** Minutes for one finding, from and to. */
export type Effort = Readonly<Record<Todo, readonly [number, number]>>;

export const severities = ["", "moves", "stops", "reads"] as const;
export type Severity = (typeof severities)[number];

export const origins = ["message", "check", "define"] as const;
export type Origin = (typeof origins)[number];

export const programStatuses = ["converted", "unreadable", "collides"] as const;
export type ProgramStatus = (typeof programStatuses)[number];

/** What stands in the place of the output. */
export const outputStates = [
  "none",
  "as-generated",
  "edited",
  "conflict",
  "deleted",
  "foreign",
  "not-written",
] as const;
export type OutputState = (typeof outputStates)[number];

/** As `report --json` has them: the page compares them with what it counts itself. */
export interface Totals {
  readonly programs: number;
  readonly lines: number;
  readonly convertedLines: number;
  /** By `todos`: places, and how often outputs hold them. */
  readonly open: readonly (readonly [places: number, inOutputs: number])[];
  readonly finished: readonly (readonly [places: number, inOutputs: number])[];
}

/** A message or a check, for each code that occurs. */
export interface Rule {
  readonly code: string;
  readonly title: string;
  /** Cause, remedy and example: Markdown of paragraphs, lists, `code`, **bold** and fenced blocks only. */
  readonly help: string;
  readonly section: string;
}

/** A row is a program, in the order of the paths. */
export interface ProgramTable {
  /** Strings. */
  readonly path: Column<number>;
  readonly output: Column<number>;
  /** The folder of the machine, a string; an empty one is the project's own machine. */
  readonly machine: Column<number>;
  readonly status: Column<number>;
  readonly outputState: Column<number>;
  readonly lines: Column<number>;
  readonly convertedLines: Column<number>;
}

/** A row is a line of a source with something to do: a finding in an included file is one, however many programs
 * include it. */
export interface PlaceTable {
  /** 32 hexadecimal digits; stays the same when lines are inserted or moved. */
  readonly fingerprint: Column<string>;
}

/** A row is a finding in the output of a program, in the order of the programs. */
export interface FindingTable {
  readonly program: Column<number>;
  readonly place: Column<number>;
  readonly rule: Column<number>;
  /** A string: the program's path, or that of a file that it includes. */
  readonly file: Column<number>;
  /** 0: the finding is about the file. */
  readonly line: Column<number>;
  readonly column: Column<number>;
  readonly lastColumn: Column<number>;
  readonly origin: Column<number>;
  readonly todo: Column<number>;
  readonly severity: Column<number>;
  /** 1: still to be done. */
  readonly open: Column<number>;
  /** Strings: what is told, and the line of the source. */
  readonly text: Column<number>;
  readonly lineText: Column<number>;
  /** A number of `chains`. */
  readonly chain: Column<number>;
  /** The first line of the generated output, and how many lines. */
  readonly outputLine: Column<number>;
  readonly outputLineCount: Column<number>;
}

export interface ProgramDetail {
  /** The program first. Files whose conversion was not begun are not there. */
  readonly files: readonly { readonly path: string; readonly text: string }[];
  readonly lineMap: readonly MappedLines[];
  /** What was generated; empty if the program was not converted. */
  readonly generated: string;
  /** The output as it is now, if a person changed it. */
  readonly current: string | null;
  /** Further lines of the source that a finding is about, by the number of the finding in the summary. */
  readonly furtherLines: Readonly<Record<string, readonly number[]>>;
}

/** Lines that follow one another in a file and became equally many lines of the output each, in the order of the
 * output. */
export type MappedLines = readonly [
  count: number,
  file: number,
  depth: number,
  firstLine: number,
  outputLinesOfEach: number,
  isConverted: 0 | 1,
];
