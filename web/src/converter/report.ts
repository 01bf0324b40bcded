// The report over the programs of a project: as the viewer shows it, and as files.

import type { ProgramDetail, Summary } from "../data/format.ts";
import type { Converter } from "./instance.ts";
import { Request } from "./request.ts";

/** A run as the report has it: began, ended, programs, converted, lines, converted lines, open findings. */
export type RunNumbers = readonly number[];

export interface ReportInput {
  readonly projectName: string;
  /** Of the same page, the oldest first. */
  readonly earlierRuns: readonly RunNumbers[];
  /** In the order of the programs. */
  readonly records: readonly Uint8Array[];
  /** Seconds since 1970. */
  readonly began: number;
  readonly ended: number;
}

/** Makes the report over what an open project's programs came to; returns its run. */
export function makeReport(converter: Converter, input: ReportInput): RunNumbers {
  const request = new Request().text(input.projectName).number(input.earlierRuns.length);
  for (const run of input.earlierRuns) {
    run.forEach((number) => request.number(number));
  }
  converter.call("BeginReport", request);
  for (const record of input.records) {
    converter.call("AddRecord", record);
  }
  return converter.json<RunNumbers>(
    "FinishReport",
    new Request().number(input.began).number(input.ended),
  );
}

export function summaryOf(converter: Converter, made: number): Summary {
  return converter.json<Summary>("Summary", new Request().number(made));
}

/** What the viewer shows of a program, by its number in the summary. */
export function detailOf(converter: Converter, number: number): ProgramDetail {
  return converter.json<ProgramDetail>("Detail", new Request().number(number));
}

export const reportFormats = ["json", "csv", "programs-csv", "sarif", "junit"] as const;
export type ReportFormat = (typeof reportFormats)[number];

export function reportText(converter: Converter, format: ReportFormat): Uint8Array {
  return converter.call("ReportText", new Request().text(format));
}

/** The report as a page: one file, or with many programs a small one and a folder beside it. By their names. */
export function reportPage(
  converter: Converter,
  emptyPage: Uint8Array,
  made: number,
): Map<string, Uint8Array> {
  const template = "/page/empty.html";
  const folder = "/report";
  converter.writeFile(template, emptyPage);
  converter.writeFile(`${folder}/report.html`, new Uint8Array());
  converter.call(
    "WritePage",
    new Request().number(made).text(template).text(`${folder}/report.html`),
  );
  return converter.takeWritten(folder);
}
