// A program's texts as the page shows them: rows, lines, and which findings are in which row.

import type { ProgramDetail } from "./format.ts";
import { editedSheet } from "./edited-sheet.ts";
import { at, textAt, type Report } from "./report.ts";
import { generatedSheet } from "./generated-sheet.ts";
import { linesOf, type Sheet } from "./sheet.ts";

export interface ProgramTexts {
  readonly detail: ProgramDetail;
  readonly sheet: Sheet;
  /** By file. */
  readonly sources: readonly (readonly string[])[];
  readonly generated: readonly string[];
  /** The output as it is now. */
  readonly current: readonly string[];
}

/** The output is shown as it is now, or as it was generated. */
export function programTexts(detail: ProgramDetail, isGeneratedAsked: boolean): ProgramTexts {
  const sheet = generatedSheet(detail);
  const generated = linesOf(detail.generated);
  const isEdited = detail.current !== null && !isGeneratedAsked;
  return {
    detail,
    sheet: isEdited ? editedSheet(sheet, detail.generated, detail.current as string) : sheet,
    sources: detail.files.map(({ text }) => linesOf(text)),
    generated,
    current: isEdited ? linesOf(detail.current as string) : generated,
  };
}

export function sourceText({ sheet, sources }: ProgramTexts, row: number): string {
  return sources[at(sheet.file, row)]?.[at(sheet.line, row) - 1] ?? "";
}

export function outputText({ sheet, generated, current }: ProgramTexts, row: number): string {
  const now = at(sheet.current, row);
  return (now > 0 ? current[now - 1] : generated[at(sheet.generated, row) - 1]) ?? "";
}

/** Findings by row, in the order of the rows. */
export interface FindingRows {
  readonly rows: readonly number[];
  readonly byRow: ReadonlyMap<number, readonly number[]>;
  /** About the program as a whole: they have no row. */
  readonly withoutRow: readonly number[];
}

export function findingRows(report: Report, program: number, texts: ProgramTexts): FindingRows {
  const { sheet, detail } = texts;
  const ofOutput = rowsOfOutput(sheet);
  const fileNumbers = new Map(detail.files.map(({ path }, index) => [path, index]));
  const byRow = new Map<number, number[]>();
  const withoutRow: number[] = [];
  const end = at(report.firstFinding, program + 1);
  for (let i = at(report.firstFinding, program); i < end; ++i) {
    const file = fileNumbers.get(textAt(report.summary, at(report.findings.file, i))) ?? -1;
    const row = rowOfFinding(report, i, file, sheet, ofOutput);
    if (row === -1) {
      withoutRow.push(i);
    } else {
      byRow.set(row, [...(byRow.get(row) ?? []), i]);
    }
  }
  return { rows: [...byRow.keys()].sort((a, b) => a - b), byRow, withoutRow };
}

/** By line of the generated output: its row. */
function rowsOfOutput(sheet: Sheet): Map<number, number> {
  const rows = new Map<number, number>();
  sheet.generated.forEach((line, row) => {
    if (line > 0) {
      rows.set(line, row);
    }
  });
  return rows;
}

function rowOfFinding(
  { findings }: Report,
  finding: number,
  file: number,
  sheet: Sheet,
  ofOutput: ReadonlyMap<number, number>,
): number {
  const line = at(findings.line, finding);
  const inOutput = ofOutput.get(at(findings.outputLine, finding)) ?? -1;
  if (inOutput !== -1 || line === 0) {
    return inOutput;
  }
  return sheet.line.findIndex((known, row) => known === line && at(sheet.file, row) === file);
}
