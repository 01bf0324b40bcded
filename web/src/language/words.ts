// What kind of word a word is, from the tables that the converter has.

import grammar from "../../generated/grammar.json";

/** How a piece of text is coloured; the empty one is plain. */
export type Kind =
  | ""
  | "comment"
  | "string"
  | "number"
  | "variable"
  | "directive"
  | "marker"
  | "gcode"
  | "control"
  | "statement"
  | "function"
  | "operator"
  | "word"
  | "constant";

type Words = ReadonlyMap<string, Kind>;

function wordsOf(lists: Partial<Record<Kind, readonly string[]>>): Words {
  return new Map(
    Object.entries(lists).flatMap(([kind, words]) => words.map((word) => [word, kind as Kind])),
  );
}

const { brannic, torvel } = grammar;

const brannicWords = wordsOf({
  word: brannic.words,
  function: brannic.functions,
  statement: brannic.statements,
  control: brannic.control,
  operator: brannic.operators,
});
const brannicConstants = new Set(brannic.constants);
const brannicVariables = new Set(brannic.variables);
/** With digits behind them these are variables of the user. */
const wholeVariables = new Set(brannic.wholeVariables);
const torvelWords = wordsOf({ statement: torvel.functions, control: torvel.control });

export const marker = torvel.marker;

export interface Language {
  /** What begins a comment that the line ends. */
  readonly comments: readonly string[];
  kindOfWord(word: string): Kind;
  kindOfVariable(name: string): Kind;
}

/** Keywords in any case, constants as they are written. */
export const brannicLanguage: Language = {
  comments: ["//", ";", "'"],
  kindOfWord: (word) =>
    brannicWords.get(word.toUpperCase()) ?? (brannicConstants.has(word) ? "constant" : ""),
  kindOfVariable: (name) => {
    const upper = name.toUpperCase();
    const withoutIndex = upper.replace(/\d+$/, "");
    return brannicVariables.has(wholeVariables.has(withoutIndex) ? upper : withoutIndex)
      ? "word"
      : "variable";
  },
};

export const torvelLanguage: Language = {
  comments: ["//"],
  kindOfWord: (word) => torvelWords.get(word) ?? "",
  kindOfVariable: () => "variable",
};
