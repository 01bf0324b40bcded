// Findings that say the same: those of one code.

import { at, type Report } from "./report.ts";

export interface Group {
  readonly rule: number;
  /** Lines of sources, and how often outputs hold them. */
  readonly places: number;
  readonly inOutputs: number;
  readonly open: number;
  readonly programs: number;
  /** A bit for each of `todos` that occurs. */
  readonly todoBits: number;
  /** In the order of the report. */
  readonly findings: Int32Array;
}

export const groupOrders = ["outputs", "places", "programs", "code"] as const;
export type GroupOrder = (typeof groupOrders)[number];

export function groupsOf(report: Report, chosen: Int32Array): Group[] {
  const { findings, summary } = report;
  const counts = new Int32Array(summary.rules.length);
  for (const finding of chosen) {
    ++counts[at(findings.rule, finding)]!;
  }
  const lists = Array.from(counts, (count) => new Int32Array(count));
  const filled = new Int32Array(summary.rules.length);
  for (const finding of chosen) {
    const rule = at(findings.rule, finding);
    lists[rule]![filled[rule]!++] = finding;
  }
  // A place and a program are counted for a rule when they are met with it for the first time.
  const placeSeen = new Int32Array(summary.places.fingerprint.length).fill(-1);
  const programSeen = new Int32Array(report.programCount).fill(-1);
  return lists.flatMap((list, rule) =>
    list.length === 0 ? [] : [groupOf(report, rule, list, placeSeen, programSeen)],
  );
}

function groupOf(
  { findings }: Report,
  rule: number,
  list: Int32Array,
  placeSeen: Int32Array,
  programSeen: Int32Array,
): Group {
  let places = 0;
  let programs = 0;
  let open = 0;
  let todoBits = 0;
  for (const finding of list) {
    todoBits |= 1 << at(findings.todo, finding);
    places += mark(placeSeen, at(findings.place, finding), rule);
    programs += mark(programSeen, at(findings.program, finding), rule);
    open += at(findings.open, finding);
  }
  return { rule, places, inOutputs: list.length, open, programs, todoBits, findings: list };
}

/** 1 if the row did not have this mark. */
function mark(marks: Int32Array, row: number, value: number): number {
  if (marks[row] === value) {
    return 0;
  }
  marks[row] = value;
  return 1;
}

export function sortedGroups(report: Report, groups: Group[], order: GroupOrder): Group[] {
  const code = (group: Group) => report.summary.rules[group.rule]!.code;
  const byCode = (a: Group, b: Group) => (code(a) < code(b) ? -1 : 1);
  const number: Record<GroupOrder, (group: Group) => number> = {
    outputs: (group) => group.inOutputs,
    places: (group) => group.places,
    programs: (group) => group.programs,
    code: () => 0,
  };
  const key = number[order];
  return [...groups].sort((a, b) => key(b) - key(a) || byCode(a, b));
}

/** A line of a source with the findings that outputs have of it. */
export interface Place {
  readonly place: number;
  readonly first: number;
  readonly findings: readonly number[];
}

/** The places of findings in the order in which they are met. */
export function placesOf({ findings }: Report, chosen: Int32Array): Place[] {
  const lists = new Map<number, number[]>();
  for (const finding of chosen) {
    const place = at(findings.place, finding);
    const list = lists.get(place);
    if (list === undefined) {
      lists.set(place, [finding]);
    } else {
      list.push(finding);
    }
  }
  return [...lists].map(([place, list]) => ({ place, first: list[0] as number, findings: list }));
}
