import assert from "node:assert/strict";
import { test } from "node:test";
import { keptLines } from "../../src/data/line-changes.ts";

test("kept lines are equal and in order", () => {
  // A simple generator of numbers, so that a failure can be seen again.
  let state = 1;
  const random = (below: number) => (state = (state * 48271) % 2147483647) % below;
  for (let round = 0; round < 500; ++round) {
    const lines = (most: number) => Array.from({ length: random(most) }, () => `line ${random(9)}`);
    const before = lines(30);
    const after = lines(30);
    let last = -1;
    keptLines(before, after).forEach((now, line) => {
      if (now !== -1) {
        assert.equal(after[now], before[line]);
        assert.ok(now > last);
        last = now;
      }
    });
  }
});

test("small changes leave the rest as it was", () => {
  const before = ["a", "b", "b", "c", "d"];
  assert.deepEqual([...keptLines(before, before)], [0, 1, 2, 3, 4]);
  assert.deepEqual([...keptLines(before, ["a", "b", "x", "b", "c", "d"])], [0, 1, 3, 4, 5]);
  assert.deepEqual([...keptLines(before, ["b", "b", "d", "e"])], [-1, 0, 1, -1, 2]);
  assert.deepEqual([...keptLines(before, [])], [-1, -1, -1, -1, -1]);
  assert.deepEqual([...keptLines(["b", "x", "b"], ["y", "b", "x", "z"])], [1, 2, -1]);
});

test("long texts take no time", () => {
  const before = Array.from({ length: 200_000 }, (_, i) => `line ${i % 1000} ${i >> 4}`);
  const after = before.flatMap((line, i) => (i % 5000 === 7 ? [line, "new"] : [line]));
  const begin = performance.now();
  const kept = keptLines(before, after);
  assert.ok(performance.now() - begin < 3000);
  assert.equal(kept.filter((line) => line === -1).length, 0);
});
