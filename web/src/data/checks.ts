// The checks of a machine, as they are gone through before its first motion.

import { origins, severities, type Severity } from "./format.ts";
import { placesOf, type Place } from "./groups.ts";
import { at, machineOf, type Report } from "./report.ts";

export interface CheckGroup {
  readonly severity: Exclude<Severity, "">;
  readonly rule: number;
  readonly places: readonly Place[];
}

export interface Machine {
  readonly folder: string;
  readonly programs: number;
  /** The findings of checks. */
  readonly findings: Int32Array;
}

/** The machines of a project, in the order of their folders. */
export function machinesOf(report: Report): Machine[] {
  const { findings } = report;
  const check = origins.indexOf("check");
  const machines = new Map<string, { programs: number; findings: number[] }>();
  for (let program = 0; program < report.programCount; ++program) {
    const folder = machineOf(report, program);
    const machine = machines.get(folder) ?? { programs: 0, findings: [] };
    machines.set(folder, machine);
    ++machine.programs;
    for (let i = at(report.firstFinding, program); i < at(report.firstFinding, program + 1); ++i) {
      if (at(findings.origin, i) === check) {
        machine.findings.push(i);
      }
    }
  }
  return [...machines]
    .map(([folder, { programs, findings: list }]) => ({
      folder,
      programs,
      findings: Int32Array.from(list),
    }))
    .sort((a, b) => (a.folder < b.folder ? -1 : 1));
}

/** Worst first; within a severity in the order of the codes. */
export function checkGroups(report: Report, machine: Machine): CheckGroup[] {
  const { findings, summary } = report;
  const lists = new Map<number, number[]>();
  for (const finding of machine.findings) {
    const rule = at(findings.rule, finding);
    const list = lists.get(rule);
    if (list === undefined) {
      lists.set(rule, [finding]);
    } else {
      list.push(finding);
    }
  }
  const severityOf = (rule: number) => at(findings.severity, lists.get(rule)![0]!);
  return [...lists.keys()]
    .sort(
      (a, b) =>
        severityOf(a) - severityOf(b) || (summary.rules[a]!.code < summary.rules[b]!.code ? -1 : 1),
    )
    .map((rule) => ({
      severity: severities[severityOf(rule)] as CheckGroup["severity"],
      rule,
      places: placesOf(report, Int32Array.from(lists.get(rule)!)),
    }));
}
