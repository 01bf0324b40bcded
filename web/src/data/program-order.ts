// Programs as a list: which of them, in which order.

import { programStatuses } from "./format.ts";
import { isInside, wordsOf } from "./filter.ts";
import { at, programPath, type Report } from "./report.ts";

export const programOrders = ["path", "left", "lines", "share"] as const;
export type ProgramOrder = (typeof programOrders)[number];

export interface ProgramFilter {
  readonly folder: string;
  /** A name of `programStatuses` or `outputStates`, "failed" or "left". */
  readonly status: string;
  readonly text: string;
}

/** By program: the open findings of its output. */
export function leftByProgram(report: Report): Int32Array {
  const left = new Int32Array(report.programCount);
  report.findings.open.forEach((open, i) => {
    left[at(report.findings.program, i)]! += open;
  });
  return left;
}

export function chosenPrograms(
  report: Report,
  left: Int32Array,
  { folder, status, text }: ProgramFilter,
  outputStates: readonly string[],
): number[] {
  const { programs } = report.summary;
  const converted = programStatuses.indexOf("converted");
  const words = wordsOf(text);
  const passes = (program: number): boolean => {
    if (status === "failed") {
      return at(programs.status, program) !== converted;
    }
    if (status === "left") {
      return at(left, program) > 0;
    }
    return (
      status === "" ||
      programStatuses[at(programs.status, program)] === status ||
      outputStates[at(programs.outputState, program)] === status
    );
  };
  const chosen: number[] = [];
  for (let program = 0; program < report.programCount; ++program) {
    const path = programPath(report, program).toLowerCase();
    const isHere = folder === "" || isInside(report.folders[at(report.folder, program)]!, folder);
    if (isHere && passes(program) && words.every((word) => path.includes(word))) {
      chosen.push(program);
    }
  }
  return chosen;
}

export function orderedPrograms(
  report: Report,
  left: Int32Array,
  chosen: readonly number[],
  order: ProgramOrder,
): number[] {
  // The programs of the report are in the order of their paths.
  if (order === "path") {
    return [...chosen];
  }
  const { lines, convertedLines } = report.summary.programs;
  const share = (program: number) =>
    at(lines, program) === 0 ? 1 : at(convertedLines, program) / at(lines, program);
  const keys: Record<Exclude<ProgramOrder, "path">, (program: number) => number> = {
    left: (program) => -at(left, program),
    lines: (program) => -at(lines, program),
    share,
  };
  const key = keys[order];
  return [...chosen].sort((a, b) => key(a) - key(b) || a - b);
}
