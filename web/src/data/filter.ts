// Which findings are asked for.

import { origins, severities, todos } from "./format.ts";
import { at, type Report } from "./report.ts";

export interface Filter {
  /** A folder and those in it. */
  readonly folder: string;
  readonly code: string;
  /** A severity, or "message" for what no check found. */
  readonly severity: string;
  readonly todo: string;
  readonly state: string;
  readonly origin: string;
  /** Words that have to be there, in any order and case. */
  readonly text: string;
}

export const noFilter: Filter = {
  folder: "",
  code: "",
  severity: "",
  todo: "",
  state: "",
  origin: "",
  text: "",
};

/** The findings that pass, in their order. */
export function matchingFindings(report: Report, filter: Filter): Int32Array {
  const { findings, findingCount } = report;
  const programs = programMask(report, filter.folder);
  const rule = filter.code === "" ? -1 : ruleNumber(report, filter.code);
  const todo = filter.todo === "" ? -1 : todos.indexOf(filter.todo as never);
  const origin = filter.origin === "" ? -1 : origins.indexOf(filter.origin as never);
  const severity = severityNumber(filter.severity);
  const open = filter.state === "" ? -1 : filter.state === "open" ? 1 : 0;
  const searches = wordsOf(filter.text).map((word) => search(report, word));
  const found = new Int32Array(findingCount);
  let count = 0;
  for (let i = 0; i < findingCount; ++i) {
    if (
      (open === -1 || at(findings.open, i) === open) &&
      (rule === -1 || at(findings.rule, i) === rule) &&
      (todo === -1 || at(findings.todo, i) === todo) &&
      (origin === -1 || at(findings.origin, i) === origin) &&
      (severity === -1 || at(findings.severity, i) === severity) &&
      at(programs, at(findings.program, i)) === 1 &&
      searches.every((matches) => matches(i))
    ) {
      found[count++] = i;
    }
  }
  return found.subarray(0, count);
}

function severityNumber(name: string): number {
  if (name === "") {
    return -1;
  }
  return name === "message" ? 0 : severities.indexOf(name as never);
}

/** A code that does not occur has a number that no finding has. */
function ruleNumber({ summary }: Report, code: string): number {
  const index = summary.rules.findIndex((rule) => rule.code === code);
  return index === -1 ? summary.rules.length : index;
}

/** By program: 1 if it is in the folder or below it. */
function programMask(report: Report, folder: string): Uint8Array {
  const mask = new Uint8Array(report.programCount).fill(1);
  if (folder === "") {
    return mask;
  }
  const inside = report.folders.map((name) => isInside(name, folder));
  return mask.map((_, program) => (inside[at(report.folder, program)] === true ? 1 : 0));
}

export function isInside(folder: string, outer: string): boolean {
  return folder === outer || folder.startsWith(outer + "/");
}

export function wordsOf(text: string): string[] {
  return text
    .toLowerCase()
    .split(/\s+/)
    .filter((word) => word !== "");
}

/** The strings of a report in small letters, made when first searched. */
const lowered = new WeakMap<Report, string[]>();

function loweredStrings(report: Report): string[] {
  let strings = lowered.get(report);
  if (strings === undefined) {
    strings = report.summary.strings.map((text) => text.toLowerCase());
    lowered.set(report, strings);
  }
  return strings;
}

/** Whether a finding has a word: in its text, its line, a path, its code or its title. Each text is searched once. */
function search(report: Report, word: string): (finding: number) => boolean {
  const strings = Uint8Array.from(loweredStrings(report), (text) => (text.includes(word) ? 1 : 0));
  const { findings, summary } = report;
  const paths = summary.programs.path;
  const rules = summary.rules.map(
    ({ code, title }) => code.includes(word) || title.toLowerCase().includes(word),
  );
  return (i) =>
    strings[at(findings.lineText, i)] === 1 ||
    strings[at(findings.text, i)] === 1 ||
    strings[at(findings.file, i)] === 1 ||
    strings[at(paths, at(findings.program, i))] === 1 ||
    rules[at(findings.rule, i)] === true;
}
