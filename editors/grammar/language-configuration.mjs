// What VS Code knows of a language without its server: comments, brackets, indentation, folding.

import { blockPattern } from "./word-pattern.mjs";

/** A label, an N-code or a block delete in front of a statement. */
const inFront =
  "^\\s*(?:/[0-9]*\\s*)?(?:(?:[Nn][0-9]+|:[A-Za-z_]\\w*|[A-Za-z_]\\w*:)\\s*)*";

export function languageConfiguration({ lineComments, anyCase, blocks }) {
  const begins = (words) => inFront + blockPattern(words, anyCase);
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
      increaseIndentPattern: begins([...blocks.begin, ...blocks.middle]),
      decreaseIndentPattern: begins([...blocks.middle, ...blocks.end]),
    },
    folding: {
      markers: { start: begins(blocks.begin), end: begins(blocks.end) },
    },
  };
}
