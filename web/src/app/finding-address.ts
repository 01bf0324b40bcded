// Where a finding is shown: its program, at its line.

import { fingerprintOf, programPath, type Report } from "../data/report.ts";
import { at } from "../data/report.ts";
import { addressOf } from "./address.ts";

export function findingAddress(report: Report, finding: number): string {
  return addressOf("program", {
    path: programPath(report, at(report.findings.program, finding)),
    finding: fingerprintOf(report, finding),
  });
}
