// What colour each character of a text has: by the report page, which has a tokenizer of its own.

import { commentStates, piecesOf } from "../../../web/src/language/tokens.ts";
import { brannicLanguage, torvelLanguage } from "../../../web/src/language/words.ts";

export type LanguageName = "brannic" | "torvel";

const pageLanguages = { brannic: brannicLanguage, torvel: torvelLanguage };

/** The kind of each character of each line; "systemVariable" for what the page has as a word. */
export function kindsByPage(lines: readonly string[], name: LanguageName): string[][] {
  const language = pageLanguages[name];
  const states = commentStates(lines, language);
  return lines.map((line, index) =>
    piecesOf(line, language, states[index] === 1).pieces.flatMap(({ text, kind }) => {
      const shown = kind === "word" && text.startsWith("$") ? "systemVariable" : kind;
      return Array.from({ length: text.length }, () => shown);
    }),
  );
}

/** The first place where two colourings of a line differ, to be read by a person; empty if there is none. */
export function difference(
  line: string,
  expected: readonly string[],
  actual: readonly string[],
): string {
  for (let at = 0; at < line.length; at += 1) {
    if (expected[at] !== actual[at]) {
      return `${line}\n${" ".repeat(at)}^ ${actual[at] || "plain"} for ${expected[at] || "plain"}`;
    }
  }
  return "";
}
