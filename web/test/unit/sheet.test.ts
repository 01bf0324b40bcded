import assert from "node:assert/strict";
import { test } from "node:test";
import { editedSheet } from "../../src/data/edited-sheet.ts";
import { inclusionHeads, openInclusions, visibleRows } from "../../src/data/folding.ts";
import { findingRows, outputText, programTexts, sourceText } from "../../src/data/program-texts.ts";
import { reportOf } from "../../src/data/report.ts";
import { rowOfParameters, rowParameters } from "../../src/data/row-address.ts";
import { generatedSheet } from "../../src/data/generated-sheet.ts";
import type { Sheet } from "../../src/data/sheet.ts";
import { smallReport } from "../sample/small-report.ts";

const { summary, details } = smallReport();
const main = details[1]!;

/** "file:line>output" of each row; "-" where the row has none. */
function rowsOf(sheet: Sheet): string[] {
  return Array.from({ length: sheet.rowCount }, (_, row) => {
    const source = sheet.line[row] === 0 ? "-" : `${sheet.file[row]}:${sheet.line[row]}`;
    const output = sheet.current[row] === 0 ? "-" : sheet.current[row];
    return `${source}>${output}${["", "+", "-"][sheet.change[row]!]}`;
  });
}

test("each line of the source knows its lines of the output", () => {
  assert.deepEqual(rowsOf(generatedSheet(main)), [
    "0:1>1",
    "0:2>2",
    "1:1>3",
    "1:2>4",
    "1:3>5",
    "1:4>6",
    "->7",
    "0:3>8",
    "0:4>9",
    "0:5>10",
    "->11",
    "0:6>12",
    "0:7>13",
  ]);
});

test("an included file is one inclusion, headed by its #include", () => {
  const sheet = generatedSheet(main);
  assert.deepEqual(sheet.inclusions, [
    { file: 0, depth: 0, parent: -1, head: -1, first: 0, end: 13 },
    { file: 1, depth: 1, parent: 0, head: 1, first: 2, end: 7 },
  ]);
  assert.deepEqual([...inclusionHeads(sheet)], [[1, 1]]);
  const folded = visibleRows(sheet, openInclusions(sheet, "", -1));
  assert.deepEqual([...folded], [0, 1, 7, 8, 9, 10, 11, 12]);
  assert.equal(visibleRows(sheet, openInclusions(sheet, "all", -1)).length, 13);
  // A row inside opens what it is in.
  assert.equal(visibleRows(sheet, openInclusions(sheet, "", 4)).length, 13);
});

test("lines that the map leaves out stand where they are in the source", () => {
  const sheet = generatedSheet({
    files: [
      { path: "a.pgm", text: "one\n/* two\nthree */\nfour\nfive" },
      { path: "b.pgm", text: "x\n/* y */\n" },
    ],
    lineMap: [
      [1, 0, 0, 1, 1, 1],
      [1, 1, 1, 1, 1, 1],
      [1, 0, 0, 4, 0, 1],
    ],
    generated: "one\nx\n",
    current: null,
    furtherLines: {},
  });
  assert.deepEqual(rowsOf(sheet), ["0:1>1", "1:1>2", "1:2>-", "0:2>-", "0:3>-", "0:4>-", "0:5>-"]);
});

test("a program that was not converted is shown with nothing beside it", () => {
  assert.deepEqual(rowsOf(generatedSheet(details[0]!)), ["0:1>-", "0:2>-"]);
});

test("an edited output: what was taken out, then what was put in", () => {
  const sheet = editedSheet(generatedSheet(main), main.generated, main.current as string);
  assert.deepEqual(rowsOf(sheet).slice(7), [
    "0:3>8",
    "0:4>--",
    "->9+",
    "->10+",
    "0:5>11",
    "->12",
    "0:6>13",
    "0:7>14",
  ]);
  assert.deepEqual(
    sheet.inclusions.map(({ first, end }) => [first, end]),
    [
      [0, 15],
      [2, 7],
    ],
  );
  const texts = programTexts(main, false);
  assert.equal(outputText(texts, 8), "#error_unconvertible (mill/main.pgm:4): PROBE X");
  assert.equal(outputText(texts, 9), "MoveToLimit(X)");
  assert.equal(sourceText(texts, 8), "PROBE X");
});

test("edits at both ends and of everything", () => {
  const detail = {
    files: [{ path: "a.pgm", text: "a\nb\n" }],
    lineMap: [[2, 0, 0, 1, 1, 1] as const],
    generated: "A\nB\n",
    current: null,
    furtherLines: {},
  };
  const edited = (current: string) =>
    rowsOf(editedSheet(generatedSheet(detail), detail.generated, current));
  assert.deepEqual(edited("new\nA\nB\nlast\n"), ["->1+", "0:1>2", "0:2>3", "->4+"]);
  assert.deepEqual(edited(""), ["0:1>--", "0:2>--"]);
  assert.deepEqual(edited("C\nD"), ["0:1>--", "0:2>--", "->1+", "->2+"]);
  assert.deepEqual(edited("A\r\nB\r\n"), ["0:1>1", "0:2>2"]);
});

test("findings stand in the rows of their lines", () => {
  const report = reportOf(summary);
  const found = findingRows(report, 1, programTexts(main, false));
  assert.deepEqual(
    [...found.byRow],
    [
      [3, [1]],
      [8, [2]],
      [13, [3]],
    ],
  );
  // The program that could not be read has no output: its finding stands in the line of its source.
  const broken = findingRows(report, 0, programTexts(details[0]!, false));
  assert.deepEqual([...broken.byRow], [[1, [0]]]);
});

test("every row has an address that leads back to it", () => {
  for (const isGenerated of [false, true]) {
    const { sheet } = programTexts(main, isGenerated);
    for (let row = 0; row < sheet.rowCount; ++row) {
      const parameters = rowParameters(sheet, row);
      assert.equal(rowOfParameters(sheet, parameters), row, JSON.stringify(parameters));
    }
  }
  assert.equal(rowOfParameters(generatedSheet(main), { line: "99" }), -1);
  assert.equal(rowOfParameters(generatedSheet(main), { line: "x" }), -1);
});
