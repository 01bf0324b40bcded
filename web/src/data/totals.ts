// What is left, counted as `torvel-migrate` counts it: places are lines of sources, outputs hold them.

import { todos } from "./format.ts";
import { at, type Report } from "./report.ts";

export interface Count {
  readonly places: number;
  readonly inOutputs: number;
}

/** Open findings by what is to be done, and finished ones; the order is that of `todos`. */
export interface Work {
  readonly open: readonly Count[];
  readonly finished: readonly Count[];
}

export function workOf(report: Report): Work {
  const { findings, findingCount, placeOpen, placeFinding } = report;
  const make = () => todos.map(() => ({ places: 0, inOutputs: 0 }));
  const open = make();
  const finished = make();
  for (let i = 0; i < findingCount; ++i) {
    ++(at(findings.open, i) === 1 ? open : finished)[at(findings.todo, i)]!.inOutputs;
  }
  placeFinding.forEach((finding, place) => {
    if (finding !== -1) {
      ++(at(placeOpen, place) === 1 ? open : finished)[at(findings.todo, finding)]!.places;
    }
  });
  return { open, finished };
}

export interface FolderWork {
  readonly folder: string;
  readonly programs: number;
  readonly lines: number;
  readonly convertedLines: number;
  /** Open findings in the outputs, by `todos`. */
  readonly open: readonly number[];
  readonly left: number;
}

/** The folders of the programs, those with most left first. */
export function folderWork(report: Report): FolderWork[] {
  const { summary, findings } = report;
  const rows = report.folders.map((folder) => ({
    folder,
    programs: 0,
    lines: 0,
    convertedLines: 0,
    open: todos.map(() => 0),
    left: 0,
  }));
  for (let program = 0; program < report.programCount; ++program) {
    const row = rows[at(report.folder, program)]!;
    ++row.programs;
    row.lines += at(summary.programs.lines, program);
    row.convertedLines += at(summary.programs.convertedLines, program);
    for (let i = at(report.firstFinding, program); i < at(report.firstFinding, program + 1); ++i) {
      if (at(findings.open, i) === 1) {
        ++row.open[at(findings.todo, i)]!;
        ++row.left;
      }
    }
  }
  return rows.sort((a, b) => b.left - a.left || (a.folder < b.folder ? -1 : 1));
}
