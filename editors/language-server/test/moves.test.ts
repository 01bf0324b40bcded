import assert from "node:assert/strict";
import { test } from "node:test";
import { TextDocument } from "vscode-languageserver-textdocument";
import { editOf, Moves } from "../src/text/moves.ts";
import { rangeAt } from "./client.ts";

const at = (line: number, character: number) => ({ line, character });

test("places behind an edit move, those in front of it stay", () => {
  const moves = new Moves(1);
  moves.add(2, editOf(rangeAt(1, 4, 4), "a\nbc"));
  assert.deepEqual(moves.forward(1, at(0, 9)), at(0, 9));
  assert.deepEqual(moves.forward(1, at(1, 3)), at(1, 3));
  assert.deepEqual(moves.forward(1, at(1, 6)), at(2, 4));
  assert.deepEqual(moves.forward(1, at(7, 6)), at(8, 6));
  assert.deepEqual(moves.backward(1, at(2, 4)), at(1, 6));
  assert.deepEqual(moves.backward(1, at(8, 6)), at(7, 6));
});

test("versions that a place has seen do not move it", () => {
  const moves = new Moves(1);
  moves.add(2, editOf(rangeAt(0, 0, 0), "\n"));
  moves.add(3, editOf(rangeAt(0, 0, 0), "\n"));
  assert.deepEqual(moves.forward(1, at(5, 0)), at(7, 0));
  assert.deepEqual(moves.forward(2, at(5, 0)), at(6, 0));
  assert.deepEqual(moves.forward(3, at(5, 0)), at(5, 0));
  moves.forgetBefore(2);
  assert.deepEqual(moves.forward(2, at(5, 0)), at(6, 0));
});

test("columns are units of UTF-16: a degree sign is one, a character of two units two", () => {
  const text = "; ° µ 𝄞 $a";
  const moves = new Moves(1);
  moves.add(2, editOf(rangeAt(0, 6, 8), "°"));
  const column = text.indexOf("$a");
  assert.equal(column, 9);
  assert.deepEqual(moves.forward(1, at(0, column)), at(0, 8));
  assert.deepEqual(moves.backward(1, at(0, 8)), at(0, column));
});

test("whatever is typed, a character that was not touched is found again both ways", () => {
  let seed = 7;
  const random = (below: number) => {
    seed = (seed * 1103515245 + 12345) % 2147483648;
    return seed % below;
  };
  const pieces = ["a", "°", "𝄞", "\n", "xyz", "\r\n", ""];
  for (let round = 0; round < 300; ++round) {
    // Every character is one of a kind, so that it can be found in the newer text.
    const old = Array.from({ length: 30 }, (_, i) =>
      i % 7 === 6 ? "\n" : String.fromCharCode(0x100 + i),
    ).join("");
    const before = TextDocument.create("file:///x", "brannic", 1, old);
    // An update changes the document itself.
    let now = TextDocument.create("file:///x", "brannic", 1, old);
    const moves = new Moves(1);
    for (let version = 2; version < 6; ++version) {
      const length = now.getText().length;
      const begin = random(length + 1);
      const end = Math.min(begin + random(5), length);
      const range = { start: now.positionAt(begin), end: now.positionAt(end) };
      const text = pieces[random(pieces.length)] ?? "";
      moves.add(version, editOf(range, text));
      now = TextDocument.update(now, [{ range, text }], version);
    }
    for (const character of old.replaceAll("\n", "")) {
      const place = now.getText().indexOf(character);
      const oldPlace = old.indexOf(character);
      if (place >= 0) {
        const message = `${JSON.stringify(old)} ${JSON.stringify(now.getText())} ${character}`;
        assert.deepEqual(
          moves.forward(1, before.positionAt(oldPlace)),
          now.positionAt(place),
          message,
        );
        assert.deepEqual(
          moves.backward(1, now.positionAt(place)),
          before.positionAt(oldPlace),
          message,
        );
      }
    }
  }
});
