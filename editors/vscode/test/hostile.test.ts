import assert from "node:assert/strict";
import { test } from "node:test";
import { grammarOf, tokensOf } from "./grammar.ts";

const size = 200_000;
const lines = {
  quotes: '"'.repeat(size),
  openString: `"${"a".repeat(size)}`,
  slashes: "/".repeat(size),
  stars: "/*".repeat(size / 2),
  closings: "*/".repeat(size / 2),
  letters: "a".repeat(size),
  axes: "X1".repeat(size / 2),
  digits: "1".repeat(size),
  hexadecimal: `0x${"f".repeat(size)}`,
  points: "1.".repeat(size / 2),
  dollars: "$".repeat(size),
  prefixes: "DATAITEM_".repeat(size / 9),
  keywords: "IF THEN ELSE ".repeat(size / 13),
  marker: `#error_unconvertible ${"#error_unconvertible ".repeat(size / 21)}`,
  blanks: " ".repeat(size),
  otherBytes: "\u00b0\u00ff\u0001".repeat(size / 3),
};

for (const language of ["brannic", "torvel"] as const) {
  test(`lines of 200,000 characters in ${language} take seconds at most`, async () => {
    const grammar = await grammarOf(language);
    for (const [name, line] of Object.entries(lines)) {
      const start = performance.now();
      const { lines: tokens } = tokensOf(grammar, [line]);
      assert.equal(tokens[0]?.map(({ text }) => text).join("").length, line.length, name);
      assert.ok(performance.now() - start < 10_000, `${name} took too long`);
    }
  });
}
