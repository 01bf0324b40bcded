import assert from "node:assert/strict";
import { test } from "node:test";
import { sourceLine, torvelLine } from "../src/lines.ts";

// Line 0 became two lines, 1 none, 2 one, an include of two lines at 3, and the end has no line of the source.
const lines = [0, 0, 2, 3, 3, -1];

test("a line of the source leads to the first that it became", () => {
  assert.deepEqual(
    [0, 1, 2, 3, 4, 99].map((line) => torvelLine(lines, line)),
    [0, 0, 2, 3, 3, 3],
  );
  assert.equal(torvelLine(lines, -1), -1);
  assert.equal(torvelLine([], 3), -1);
});

test("a line of the Torvel leads to where it comes from, or to the one above", () => {
  assert.deepEqual(
    [0, 1, 2, 3, 4, 5, 99].map((line) => sourceLine(lines, line)),
    [0, 0, 2, 3, 3, 3, 3],
  );
  assert.equal(sourceLine([-1, 4], 0), -1);
  assert.equal(sourceLine([], 0), -1);
});

test("lines that are not in order lead to the first of the nearest", () => {
  assert.equal(torvelLine([5, 1, 3, 1, 5], 4), 2);
  assert.equal(torvelLine([5, 1, 3, 1, 5], 5), 0);
});
