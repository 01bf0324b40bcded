// Lines taken apart for colouring. A line that no program could hold is taken apart too: what is not understood is
// plain.

import { marker, type Kind, type Language } from "./words.ts";

export interface Piece {
  readonly text: string;
  readonly kind: Kind;
}

/** Whether a block comment is open where a line begins, for each line of a text. */
export function commentStates(lines: readonly string[], language: Language): Uint8Array {
  const states = new Uint8Array(lines.length);
  let isOpen = false;
  lines.forEach((line, index) => {
    states[index] = isOpen ? 1 : 0;
    if (isOpen ? line.includes("*/") : line.includes("/*")) {
      isOpen = piecesOf(line, language, isOpen).isOpen;
    }
  });
  return states;
}

const space = /\s+/y;
const word = /[A-Za-z_][A-Za-z0-9_]*/y;
const gcode = /[Gg][0-9]+(?:\.[0-9]+)?/y;
const addressLetter = /[EFGIJKLMNOPQRSTefgijklmnopqrst](?![A-Za-z_])/y;
/** An axis, or what takes its place, in front of its value: the X of "X62.5". */
const axis = /[A-Za-z]{1,2}(?=[0-9]+(?:\.[0-9]*)?(?![A-Za-z0-9_]))/y;
/** What may be a keyword that begins with a digit: 2D. */
const digitWord = /[0-9]+[A-Za-z]/y;
const number = /0[xXhH][0-9A-Fa-f]+|&[xXhH][0-9A-Fa-f]+|[0-9]+(?:\.[0-9]*)?|\.[0-9]+/y;
const variable = /\$[A-Za-z_][A-Za-z0-9_]*/y;
const directive = /#[A-Za-z_][A-Za-z0-9_]*/y;
const string = /"[^"]*(?:"|$)/y;

function endOf(pattern: RegExp, line: string, from: number): number {
  pattern.lastIndex = from;
  return pattern.test(line) ? pattern.lastIndex : 0;
}

/** The pieces of a line, which together are the line, and whether a block comment is open behind it. */
export function piecesOf(
  line: string,
  language: Language,
  isInComment: boolean,
): { pieces: Piece[]; isOpen: boolean } {
  const pieces: Piece[] = [];
  let plainFrom = 0;
  let at = 0;
  const take = (end: number, kind: Kind) => {
    if (kind !== "") {
      if (plainFrom < at) {
        pieces.push({ text: line.slice(plainFrom, at), kind: "" });
      }
      pieces.push({ text: line.slice(at, end), kind });
      plainFrom = end;
    }
    at = end;
  };
  let isOpen = isInComment;
  while (at < line.length) {
    if (isOpen || line.startsWith("/*", at)) {
      const end = line.indexOf("*/", isOpen ? at : at + 2);
      isOpen = end === -1;
      take(isOpen ? line.length : end + 2, "comment");
    } else if (language.comments.some((sign) => line.startsWith(sign, at))) {
      take(line.length, "comment");
    } else {
      const [end, kind] = tokenAt(line, at, language);
      take(end, kind);
      if (kind === "marker") {
        // Behind the marker stands a line of the other language, with comments that this one does not have.
        take(line.length, "marker");
      }
    }
  }
  if (plainFrom < line.length) {
    pieces.push({ text: line.slice(plainFrom), kind: "" });
  }
  return { pieces, isOpen };
}

function tokenAt(line: string, at: number, language: Language): [end: number, kind: Kind] {
  const end = (pattern: RegExp) => endOf(pattern, line, at);
  let last: number;
  if ((last = end(space)) > 0) return [last, ""];
  if ((last = end(gcode)) > 0) return [last, "gcode"];
  if ((last = end(addressLetter)) > 0) return [last, "gcode"];
  if ((last = end(axis)) > 0) return [last, ""];
  if ((last = end(word)) > 0) return [last, language.kindOfWord(line.slice(at, last))];
  if ((last = end(digitWord)) > 0) {
    const kind = language.kindOfWord(line.slice(at, last));
    if (kind !== "") return [last, kind];
  }
  if ((last = end(number)) > 0) return [last, "number"];
  if ((last = end(variable)) > 0) return [last, language.kindOfVariable(line.slice(at + 1, last))];
  if ((last = end(directive)) > 0) {
    return [last, line.slice(at, last) === marker ? "marker" : "directive"];
  }
  if ((last = end(string)) > 0) return [last, "string"];
  return [at + 1, ""];
}
