import assert from "node:assert/strict";
import { test } from "node:test";
import { addressOf, parsedAddress } from "../../src/app/address.ts";
import { estimateOf, parsedRange } from "../../src/data/estimate.ts";
import { inlinesOf, markdownBlocks } from "../../src/data/markdown.ts";
import { mergedTicks, readTicks, savedTicks, tickKey, TickStore } from "../../src/data/ticks.ts";
import { outputStates } from "../../src/data/format.ts";
import { visiblePieces } from "../../src/data/visible.ts";
import {
  counted,
  dateText,
  durationText,
  grouped,
  outputNames,
  share,
} from "../../src/data/wording.ts";
import { markedPieces } from "../../src/parts/code.tsx";
import { halfOfPair, hostileTexts } from "../sample/hostile-report.ts";
import { smallReport } from "../sample/small-report.ts";

test("numbers with what they count", () => {
  assert.equal(grouped(1234567), "1,234,567");
  assert.equal(counted(1, "program"), "1 program");
  assert.equal(counted(2000, "program"), "2,000 programs");
  assert.equal(counted(0, "line to rewrite", "lines to rewrite"), "0 lines to rewrite");
});

test("a share is never more or less than it is", () => {
  assert.equal(share(0, 0), "100 %");
  assert.equal(share(0, 7), "0 %");
  assert.equal(share(1, 1000), "less than 1 %");
  assert.equal(share(999, 1000), "more than 99 %");
  assert.equal(share(99, 100), "99 %");
  assert.equal(share(1698, 1806), "94 %");
});

test("durations are rounded away from each other, as torvel-migrate does it", () => {
  assert.equal(durationText([20, 110]), "20 to 110 minutes");
  assert.equal(durationText([1, 1]), "1 minute");
  assert.equal(durationText([0, 0]), "0 minutes");
  assert.equal(durationText([0, 30]), "up to 30 minutes");
  assert.equal(durationText([326, 1100]), "5 to 19 hours (0.5 to 2.5 person-days of 8 hours)");
  assert.equal(durationText([1000, 125000]), "16 to 2,100 hours (2 to 270 person-days of 8 hours)");
});

test("the day of a number of seconds", () => {
  assert.equal(dateText(1795294230), "2026-11-21 20:50 UTC");
});

test("the estimate is counts times minutes", () => {
  const open = [
    { places: 2, inOutputs: 8 },
    { places: 0, inOutputs: 0 },
    { places: 3, inOutputs: 3 },
    { places: 1, inOutputs: 1 },
  ];
  const effort = {
    rewrite: [10, 40],
    complete: [5, 15],
    look: [2, 10],
    "fix-source": [10, 60],
  } as const;
  assert.deepEqual(estimateOf(open, effort, "places").sum, [36, 170]);
  assert.deepEqual(estimateOf(open, effort, "outputs").rows[0], {
    todo: "rewrite",
    count: 8,
    minutes: [10, 40],
    product: [80, 320],
  });
});

test("minutes that are typed", () => {
  assert.deepEqual(parsedRange("10-40"), [10, 40]);
  assert.deepEqual(parsedRange(" 2.5 "), [2.5, 2.5]);
  for (const wrong of ["", "-", "40-10", "x", "1e9", "-5", "10-", "1000000"]) {
    assert.equal(parsedRange(wrong), null, wrong);
  }
});

test("addresses lead back to what they were made of", () => {
  for (const text of ["", ...hostileTexts]) {
    const address = parsedAddress(addressOf("work", { text, folder: "a b/ü#?&=%" }));
    assert.equal(address.view, "work");
    // Half of a pair cannot stand in an address.
    assert.equal(address.parameters["text"] ?? "", text.replace(halfOfPair, "\ufffd"));
    assert.equal(address.parameters["folder"], "a b/ü#?&=%");
  }
  assert.deepEqual(parsedAddress(""), { view: "overview", parameters: {} });
  assert.equal(parsedAddress("#/nowhere?x=1").view, "overview");
});

test("Markdown: paragraphs, lists, fences, code and bold", () => {
  assert.deepEqual(inlinesOf("Write `a*b` **now**."), [
    { kind: "text", text: "Write " },
    { kind: "code", text: "a*b" },
    { kind: "text", text: " " },
    { kind: "bold", text: "now" },
    { kind: "text", text: "." },
  ]);
  const text =
    "One\ntwo.\n\n- first\n  goes on\n- second\n\n```torvel\nif 1\n\n\tend\n```\nBehind.";
  assert.deepEqual(markdownBlocks(text), [
    { kind: "paragraph", text: [{ kind: "text", text: "One two." }] },
    {
      kind: "list",
      items: [[{ kind: "text", text: "first goes on" }], [{ kind: "text", text: "second" }]],
    },
    { kind: "fence", language: "torvel", text: "if 1\n\n\tend" },
    { kind: "paragraph", text: [{ kind: "text", text: "Behind." }] },
  ]);
  assert.deepEqual(markdownBlocks("```\nnot closed"), [
    { kind: "fence", language: "", text: "not closed" },
  ]);
  assert.deepEqual(markdownBlocks(""), []);
});

test("what is not seen is shown by its name", () => {
  const shown = (text: string) =>
    visiblePieces(text)
      .map((piece) => (piece.isShownByName ? `[${piece.text}]` : piece.text))
      .join("");
  assert.equal(shown("a\u202eb\u0000"), "a[U+202E]b[U+0000]");
  assert.equal(shown("\ud800 \ud83d\ude00 \udc00"), "[U+D800] \ud83d\ude00 [U+DC00]");
  assert.equal(shown("\ttab ° µ"), "\ttab ° µ");
  assert.equal(shown(""), "");
});

test("a place is marked across pieces", () => {
  const pieces = [
    { text: "RAMP", kind: "statement" as const },
    { text: " ", kind: "" as const },
    { text: "RATE", kind: "word" as const },
  ];
  const marked = (columns: [number, number]) =>
    markedPieces(pieces, columns)
      .map(({ text, isMarked }) => (isMarked ? `[${text}]` : text))
      .join("");
  assert.equal(marked([3, 7]), "RA[MP][ ][RA]TE");
  assert.equal(marked([1, 99]), "[RAMP][ ][RATE]");
  assert.equal(marked([0, 0]), "RAMP RATE");
});

test("ticks go into a file and come back", () => {
  const { summary } = smallReport();
  const ticks = new Map([[tickKey("mill", "ab"), { by: "kb", on: "2026-11-20" }]]);
  const text = savedTicks(summary, ticks);
  assert.deepEqual(readTicks(text, summary), ticks);
  const other = { ...summary, project: { identity: "other", name: "Other" } };
  assert.throws(() => readTicks(text, other), /another project, sample/);
  for (const wrong of ["", "null", "[]", "{}", '{"what":"torvel-ticks","format":2,"ticks":[]}']) {
    assert.throws(() => readTicks(wrong, summary), /no file of ticks/);
  }
  assert.throws(() => readTicks(text.replace("2026-11-20", "<b>"), summary), /damaged/);
});

test("of two ticks the later one counts", () => {
  const tick = (on: string) => ({ by: "kb", on });
  const merged = mergedTicks(
    new Map([
      ["a", tick("2026-11-20")],
      ["b", tick("2026-11-20")],
    ]),
    new Map([
      ["a", tick("2026-11-19")],
      ["b", tick("2026-11-21")],
      ["c", tick("2026-01-01")],
    ]),
  );
  assert.deepEqual(
    [...merged].map(([key, { on }]) => `${key} ${on}`),
    ["a 2026-11-20", "b 2026-11-21", "c 2026-01-01"],
  );
});

test("a browser that keeps nothing loses no tick without a word", () => {
  const { summary } = smallReport();
  const refusing = {
    getItem: () => {
      throw new Error("refused");
    },
    setItem: () => {
      throw new Error("refused");
    },
  } as unknown as Storage;
  assert.equal(new TickStore(summary, refusing).write(new Map()), false);
  assert.deepEqual(new TickStore(summary, refusing).read(), new Map());
  assert.equal(new TickStore(summary, null).write(new Map()), false);
});

test("every state of an output has its place and its words", () => {
  // The numbers are those of the data; a new state comes behind the others.
  assert.deepEqual(outputStates, [
    "none",
    "as-generated",
    "edited",
    "conflict",
    "deleted",
    "foreign",
    "not-written",
  ]);
  assert.equal(outputNames["not-written"], "a new output could not be put in its place");
  assert.equal(new Set(outputStates.map((state) => outputNames[state])).size, outputStates.length);
});
