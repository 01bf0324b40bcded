import assert from "node:assert/strict";
import { test } from "node:test";
import { commentStates, piecesOf } from "../../src/language/tokens.ts";
import { brannicLanguage, torvelLanguage, type Language } from "../../src/language/words.ts";

/** "kind:text" of every piece that is coloured. */
function coloured(line: string, language: Language, isInComment = false): string[] {
  return piecesOf(line, language, isInComment)
    .pieces.filter(({ kind }) => kind !== "")
    .map(({ text, kind }) => `${kind}:${text}`);
}

test("a statement of Brannic", () => {
  assert.deepEqual(coloured('  moveabs X 10.5, $pos ; "to" the stop', brannicLanguage), [
    "statement:moveabs",
    "number:10.5",
    "variable:$pos",
    'comment:; "to" the stop',
  ]);
  assert.deepEqual(coloured("FOR $n = 0x1F TO STRLEN($STRGLOB[1])", brannicLanguage), [
    "control:FOR",
    "variable:$n",
    "number:0x1F",
    "word:TO",
    "function:STRLEN",
    "word:$STRGLOB",
    "number:1",
  ]);
});

test("G-code: letters with their values", () => {
  assert.deepEqual(coloured("N10 G1 X62.5 F140 M3", brannicLanguage), [
    "gcode:N",
    "number:10",
    "gcode:G1",
    "number:62.5",
    "gcode:F",
    "number:140",
    "gcode:M",
    "number:3",
  ]);
});

test("variables of the controller, some of which may have an index behind them", () => {
  assert.deepEqual(coloured("$GLOBAL12 $PGLOB $PGLOB1 $return2 $Own3", brannicLanguage), [
    "word:$GLOBAL12",
    "word:$PGLOB",
    "variable:$PGLOB1",
    "variable:$return2",
    "variable:$Own3",
  ]);
});

test("keywords that begin with a digit are no numbers", () => {
  assert.deepEqual(coloured("CALENABLE 2D 12D 0x2D", brannicLanguage), [
    "statement:CALENABLE",
    "word:2D",
    "number:12",
    "number:0x2D",
  ]);
});

test("words that are spelled otherwise, operators and constants", () => {
  assert.deepEqual(coloured("WHL DATAITEM_PositionFeedback BAND 3", brannicLanguage), [
    "control:WHL",
    "constant:DATAITEM_PositionFeedback",
    "operator:BAND",
    "number:3",
  ]);
  assert.deepEqual(coloured("dataitem_positionfeedback", brannicLanguage), []);
});

test("comments: three of Brannic, one of Torvel, and those over lines", () => {
  assert.deepEqual(coloured("$a = 1 ' old", brannicLanguage).at(-1), "comment:' old");
  assert.deepEqual(coloured("$a = 1 // old", brannicLanguage).at(-1), "comment:// old");
  assert.deepEqual(coloured("$a = 1 ; $b", torvelLanguage), [
    "variable:$a",
    "number:1",
    "variable:$b",
  ]);
  const lines = ["$a = 1 /* one", "two ; three", "end */ $b = 2", '"/*" $c'];
  assert.deepEqual([...commentStates(lines, brannicLanguage)], [0, 1, 1, 0]);
  assert.deepEqual(coloured("end */ $b = 2", brannicLanguage, true), [
    "comment:end */",
    "variable:$b",
    "number:2",
  ]);
});

test("Torvel: functions by their case, the marker with what stands behind it", () => {
  assert.deepEqual(coloured("if DigitalInputGet(X, 2) == 1", torvelLanguage), [
    "control:if",
    "statement:DigitalInputGet",
    "number:2",
    "number:1",
  ]);
  assert.deepEqual(coloured("IF digitalinputget", torvelLanguage), []);
  assert.deepEqual(coloured('#error_unconvertible (a.pgm:8): PROBE "X', torvelLanguage), [
    "marker:#error_unconvertible",
    'marker: (a.pgm:8): PROBE "X',
  ]);
  assert.deepEqual(coloured("Move(/* $rate */, 1)", torvelLanguage), [
    "comment:/* $rate */",
    "number:1",
  ]);
});

test("the pieces of any line are the line", () => {
  const lines = ["", "\t", "$", '"', "/*/", "*/ /*", "\u0000\ud800 #", "0x", "G", "1.e5..2", "//"];
  for (const line of lines) {
    for (const language of [brannicLanguage, torvelLanguage]) {
      for (const isInComment of [false, true]) {
        const { pieces } = piecesOf(line, language, isInComment);
        assert.equal(pieces.map(({ text }) => text).join(""), line);
      }
    }
  }
});
