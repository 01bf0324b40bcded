// Grammars in TextMate's form, for VS Code and every editor that takes these.
//
// They take a line apart from left to right as the report page does (web/src/language/tokens.ts), a piece at a time:
// some rule matches at the beginning of every piece, so that none begins to match inside one. That is why names that
// mean nothing have a rule too. No rule goes over a line end but that of block comments.

import { addressLetters, beginsWithDigit, marker } from "./languages.mjs";
import { wordPattern } from "./word-pattern.mjs";

/** The scope of each kind of piece, without the language behind it. */
export const scopes = {
  comment: "comment",
  string: "string.quoted.double",
  number: "constant.numeric",
  variable: "variable.other",
  systemVariable: "variable.language",
  directive: "keyword.control.directive",
  marker: "invalid.illegal.unconvertible",
  gcode: "keyword.other.gcode",
  control: "keyword.control.flow",
  statement: "keyword.other.statement",
  function: "support.function",
  operator: "keyword.operator.word",
  word: "keyword.other.word",
  constant: "support.constant",
};

const behindWord = "(?![A-Za-z0-9_])";
const bothCases = (letters) => letters.toUpperCase() + letters.toLowerCase();

function commentRules({ id, lineComments }) {
  const names = { ";": "semicolon", "'": "apostrophe", "//": "double-slash" };
  return [
    {
      name: `comment.block.${id}`,
      begin: "/\\*",
      end: "\\*/",
      beginCaptures: {
        0: { name: `punctuation.definition.comment.begin.${id}` },
      },
      endCaptures: { 0: { name: `punctuation.definition.comment.end.${id}` } },
    },
    ...lineComments.map((sign) => ({
      name: `comment.line.${names[sign]}.${id}`,
      match: `(${sign}).*`,
      captures: { 1: { name: `punctuation.definition.comment.${id}` } },
    })),
  ];
}

function wordRules({ words, anyCase, constants }, rule) {
  const cased = (pattern) => (anyCase ? `(?i:${pattern})` : pattern);
  const byDigit = Object.entries(words)
    .map(([kind, list]) => [kind, list.filter(beginsWithDigit)])
    .filter(([, list]) => list.length > 0)
    .map(([kind, list]) => rule(kind, cased(wordPattern(list))));
  const byLetter = Object.entries(words).map(([kind, list]) =>
    rule(
      kind,
      cased(wordPattern(list.filter((word) => !beginsWithDigit(word)))) +
        behindWord,
    ),
  );
  if (constants.length > 0) {
    byLetter.push(rule("constant", wordPattern(constants) + behindWord));
  }
  return { byDigit, byLetter };
}

function variableRules({ variables: { indexed, whole } }, rule) {
  const rules = [rule("variable", "\\$[A-Za-z_][A-Za-z0-9_]*")];
  if (indexed.length > 0) {
    const names = `(?:${wordPattern(indexed)}[0-9]*|${wordPattern(whole)})`;
    rules.unshift(rule("systemVariable", `\\$(?i:${names})${behindWord}`));
  }
  return rules;
}

export function textMateGrammar(language) {
  const { id, name, endings } = language;
  const rule = (kind, match) => ({ name: `${scopes[kind]}.${id}`, match });
  const plain = (match) => ({ match });
  const { byDigit, byLetter } = wordRules(language, rule);
  return {
    name,
    scopeName: `source.${id}`,
    fileTypes: endings,
    patterns: [
      ...commentRules(language),
      rule("gcode", "[Gg][0-9]+(?:\\.[0-9]+)?"),
      rule("gcode", `[${bothCases(addressLetters)}](?![A-Za-z_])`),
      // An axis in front of its value: the X of "X62.5".
      plain(`[A-Za-z]{1,2}(?=[0-9]+(?:\\.[0-9]*)?${behindWord})`),
      ...byLetter,
      plain("[A-Za-z_][A-Za-z0-9_]*"),
      ...byDigit,
      rule("number", "0[xXhH][0-9A-Fa-f]+|&[xXhH][0-9A-Fa-f]+"),
      rule("number", "[0-9]+(?:\\.[0-9]*)?|\\.[0-9]+"),
      ...variableRules(language, rule),
      rule("marker", `${marker}${behindWord}.*`),
      rule("directive", "#[A-Za-z_][A-Za-z0-9_]*"),
      rule("string", '"[^"\\n]*(?:"|$)'),
    ],
  };
}
