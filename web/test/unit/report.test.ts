import assert from "node:assert/strict";
import { test } from "node:test";
import { checkGroups, machinesOf } from "../../src/data/checks.ts";
import { matchingFindings, noFilter } from "../../src/data/filter.ts";
import { outerFolders } from "../../src/data/folders.ts";
import { groupsOf, placesOf, sortedGroups } from "../../src/data/groups.ts";
import { chosenPrograms, leftByProgram, orderedPrograms } from "../../src/data/program-order.ts";
import { chainOf, folderOf, reportOf } from "../../src/data/report.ts";
import { folderWork, workOf } from "../../src/data/totals.ts";
import { smallReport } from "../sample/small-report.ts";

const report = reportOf(smallReport().summary);

function found(filter: Partial<typeof noFilter>): number[] {
  return [...matchingFindings(report, { ...noFilter, ...filter })];
}

test("each program has its findings", () => {
  assert.deepEqual([...report.firstFinding], [0, 1, 4, 6]);
  assert.deepEqual(report.folders, ["laser", "mill"]);
  assert.deepEqual(chainOf(report, 1), [{ file: "mill/main.pgm", line: 2 }]);
  assert.deepEqual(chainOf(report, 2), []);
});

test("a line of an included file is one place, however many outputs hold it", () => {
  const { open, finished } = workOf(report);
  assert.deepEqual(open, [
    { places: 1, inOutputs: 1 },
    { places: 0, inOutputs: 0 },
    { places: 2, inOutputs: 3 },
    { places: 1, inOutputs: 1 },
  ]);
  assert.deepEqual(finished[0], { places: 1, inOutputs: 1 });
});

test("folders with most left come first", () => {
  assert.deepEqual(
    folderWork(report).map(({ folder, programs, left, open }) => [folder, programs, left, open]),
    [
      ["mill", 2, 4, [1, 0, 3, 0]],
      ["laser", 1, 1, [0, 0, 0, 1]],
    ],
  );
});

test("filters by themselves and together", () => {
  assert.deepEqual(found({}), [0, 1, 2, 3, 4, 5]);
  assert.deepEqual(found({ folder: "laser" }), [0]);
  assert.deepEqual(found({ folder: "las" }), []);
  assert.deepEqual(found({ code: "probe-unsupported" }), [2, 5]);
  assert.deepEqual(found({ code: "unknown" }), []);
  assert.deepEqual(found({ severity: "moves" }), [1, 3, 4]);
  assert.deepEqual(found({ severity: "message" }), [0, 2, 5]);
  assert.deepEqual(found({ severity: "unknown" }), [0, 1, 2, 3, 4, 5]);
  assert.deepEqual(found({ todo: "rewrite", state: "finished" }), [2]);
  assert.deepEqual(found({ origin: "check", folder: "mill", state: "open" }), [1, 3, 4]);
});

test("a search looks into lines, messages, paths, codes and titles", () => {
  assert.deepEqual(found({ text: "probe Y" }), [5]);
  assert.deepEqual(found({ text: "RAMP-UNIT" }), [3]);
  assert.deepEqual(found({ text: "tool.pgm" }), [1, 4]);
  assert.deepEqual(found({ text: "unterminated" }), [0]);
  assert.deepEqual(found({ text: "second" }), [4, 5]);
  assert.deepEqual(found({ text: "nowhere" }), []);
});

test("groups count places, outputs and programs", () => {
  const groups = sortedGroups(
    report,
    groupsOf(report, matchingFindings(report, noFilter)),
    "places",
  );
  const rows = groups.map(({ rule, places, inOutputs, open, programs }) => [
    report.summary.rules[rule]!.code,
    places,
    inOutputs,
    open,
    programs,
  ]);
  assert.deepEqual(rows, [
    ["probe-unsupported", 2, 2, 1, 2],
    ["ramp-unit", 1, 1, 1, 1],
    ["string-not-terminated", 1, 1, 1, 1],
    ["value-cut", 1, 2, 2, 2],
  ]);
  const byOutputs = sortedGroups(report, groups, "outputs").map(({ rule }) => rule);
  assert.deepEqual(byOutputs, [0, 1, 2, 3]);
  assert.deepEqual(placesOf(report, groups[3]!.findings), [
    { place: 1, first: 1, findings: [1, 4] },
  ]);
});

test("the checks of each machine, worst first", () => {
  const machines = machinesOf(report);
  assert.deepEqual(
    machines.map(({ folder, programs, findings }) => [folder, programs, [...findings]]),
    [
      ["laser", 1, []],
      ["mill", 2, [1, 3, 4]],
    ],
  );
  assert.deepEqual(
    checkGroups(report, machines[1]!).map(({ severity, rule, places }) => [
      severity,
      report.summary.rules[rule]!.code,
      places.map(({ findings }) => findings),
    ]),
    [
      ["moves", "ramp-unit", [[3]]],
      ["moves", "value-cut", [[1, 4]]],
    ],
  );
});

test("programs by state and order", () => {
  const left = leftByProgram(report);
  assert.deepEqual([...left], [1, 2, 2]);
  const chosen = (filter: object) =>
    chosenPrograms(report, left, { folder: "", status: "", text: "", ...filter }, [
      "none",
      "as-generated",
      "edited",
    ]);
  assert.deepEqual(chosen({ status: "failed" }), [0]);
  assert.deepEqual(chosen({ status: "edited" }), [1]);
  assert.deepEqual(chosen({ text: "MILL second" }), [2]);
  assert.deepEqual(orderedPrograms(report, left, chosen({}), "left"), [1, 2, 0]);
  assert.deepEqual(orderedPrograms(report, left, chosen({}), "share"), [2, 1, 0]);
});

test("folders and those around them", () => {
  assert.equal(folderOf("a.pgm"), ".");
  assert.equal(folderOf("/a.pgm"), "/");
  assert.equal(folderOf("../x/a.pgm"), "../x");
  assert.deepEqual(outerFolders(["a/b/c", "a", "d/e"]), ["a", "a/b", "a/b/c", "d", "d/e"]);
});

test("a report without programs", () => {
  const { summary } = smallReport();
  const none = { path: [], output: [], machine: [], status: [] };
  const empty = reportOf({
    ...summary,
    programs: { ...none, outputState: [], lines: [], convertedLines: [] },
    findings: Object.fromEntries(
      Object.keys(summary.findings).map((name) => [name, []]),
    ) as unknown as typeof summary.findings,
  });
  assert.deepEqual(groupsOf(empty, matchingFindings(empty, noFilter)), []);
  assert.deepEqual(machinesOf(empty), []);
});
