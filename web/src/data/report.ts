// The summary with what is looked up again and again: which findings a program has, and what is known of a place.

import type { FindingTable, Rule, Summary } from "./format.ts";

export interface Report {
  readonly summary: Summary;
  readonly findings: FindingTable;
  readonly findingCount: number;
  readonly programCount: number;
  /** By program: its first finding. One element more than programs. */
  readonly firstFinding: Int32Array;
  /** By program: the number of its folder in `folders`. */
  readonly folder: Int32Array;
  /** Folders that hold programs, in the order of the programs. */
  readonly folders: readonly string[];
  /** By place: 1 if an output holds it still. */
  readonly placeOpen: Uint8Array;
  /** By place: its first finding, -1 if it has none. */
  readonly placeFinding: Int32Array;
  readonly programOfPath: ReadonlyMap<string, number>;
}

export function reportOf(summary: Summary): Report {
  const { findings, programs, places } = summary;
  const programCount = programs.path.length;
  const findingCount = findings.program.length;
  const firstFinding = new Int32Array(programCount + 1);
  const placeOpen = new Uint8Array(places.fingerprint.length);
  const placeFinding = new Int32Array(places.fingerprint.length).fill(-1);
  for (let finding = 0; finding < findingCount; ++finding) {
    const next = at(findings.program, finding) + 1;
    firstFinding[next] = finding + 1;
    const place = at(findings.place, finding);
    placeOpen[place]! |= at(findings.open, finding);
    if (placeFinding[place] === -1) {
      placeFinding[place] = finding;
    }
  }
  // A program without findings begins where the one before it ends.
  for (let program = 1; program <= programCount; ++program) {
    firstFinding[program] = Math.max(at(firstFinding, program), at(firstFinding, program - 1));
  }
  const programOfPath = new Map<string, number>();
  const folderNumbers = new Map<string, number>();
  const folder = new Int32Array(programCount);
  for (let program = 0; program < programCount; ++program) {
    const path = textAt(summary, at(programs.path, program));
    programOfPath.set(path, program);
    folder[program] = numberOf(folderNumbers, folderOf(path));
  }
  return {
    summary,
    findings,
    findingCount,
    programCount,
    firstFinding,
    folder,
    folders: [...folderNumbers.keys()],
    placeOpen,
    placeFinding,
    programOfPath,
  };
}

/** An element that is there. */
export function at(column: ArrayLike<number>, row: number): number {
  return column[row] as number;
}

export function textAt(summary: Summary, string: number): string {
  return summary.strings[string] as string;
}

/** The folder of a path; "." for one without. */
export function folderOf(path: string): string {
  const slash = path.lastIndexOf("/");
  return slash === -1 ? "." : path.slice(0, Math.max(slash, 1));
}

export function programPath({ summary }: Report, program: number): string {
  return textAt(summary, at(summary.programs.path, program));
}

export function machineOf({ summary }: Report, program: number): string {
  return textAt(summary, at(summary.programs.machine, program));
}

export function ruleOf({ summary, findings }: Report, finding: number): Rule {
  return summary.rules[at(findings.rule, finding)] as Rule;
}

export function fingerprintOf({ summary, findings }: Report, finding: number): string {
  return summary.places.fingerprint[at(findings.place, finding)] as string;
}

/** The way of inclusion of a finding, from the innermost `#include` to the program's. */
export function chainOf(
  { summary, findings }: Report,
  finding: number,
): { file: string; line: number }[] {
  const chain = summary.chains[at(findings.chain, finding)] ?? [];
  const steps = [];
  for (let i = 0; i + 1 < chain.length; i += 2) {
    steps.push({ file: textAt(summary, at(chain, i)), line: at(chain, i + 1) });
  }
  return steps;
}

function numberOf(numbers: Map<string, number>, name: string): number {
  const known = numbers.get(name);
  if (known !== undefined) {
    return known;
  }
  numbers.set(name, numbers.size);
  return numbers.size - 1;
}
