// What VS Code knows of a language without its server: comments, brackets, indentation, folding.

import { blockPattern } from "./word-pattern.mjs";

/** A label, an N-code or a block delete in front of a statement. */
const inFront =
  "^\\s*(?:/[0-9]*\\s*)?(?:(?:[Nn][0-9]+|:[A-Za-z_]\\w*|[A-Za-z_]\\w*:)\\s*)*";

export function languageConfiguration({ lineComments, anyCase, blocks }) {
  const begins = (words) => inFront + blockPattern(words, anyCase);
  // An IF that jumps has no block. What stands in a comment or behind a string does not count.
  const notBeforeJump =
    blocks.jumps.length === 0
      ? ""
      : `(?!(?:(?!//)[^;'"])*[^A-Za-z0-9_$]${blockPattern(blocks.jumps, anyCase)})`;
  const opens = begins(blocks.begin) + notBeforeJump;
  return {
    comments: { lineComment: lineComments[0], blockComment: ["/*", "*/"] },
    brackets: [
      ["(", ")"],
      ["[", "]"],
    ],
    autoClosingPairs: [
      { open: "(", close: ")", notIn: ["string", "comment"] },
      { open: "[", close: "]", notIn: ["string", "comment"] },
      { open: '"', close: '"', notIn: ["string", "comment"] },
      { open: "/*", close: " */", notIn: ["string", "comment"] },
    ],
    surroundingPairs: [
      ["(", ")"],
      ["[", "]"],
      ['"', '"'],
    ],
    wordPattern: "[#$]?[A-Za-z_][A-Za-z0-9_]*",
    indentationRules: {
      increaseIndentPattern: `${opens}|${begins(blocks.middle)}`,
      decreaseIndentPattern: begins([...blocks.middle, ...blocks.end]),
    },
    folding: {
      markers: { start: opens, end: begins(blocks.end) },
    },
  };
}
