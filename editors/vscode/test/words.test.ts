import assert from "node:assert/strict";
import { test } from "node:test";
import { languages } from "../../grammar/languages.mjs";
import { scopes } from "../../grammar/textmate.mjs";
import { grammarOf, tokensOf } from "./grammar.ts";

const grammars = { brannic: await grammarOf("brannic"), torvel: await grammarOf("torvel") };
const scopeOf = (kind: string, language: string) =>
  `${(scopes as Record<string, string>)[kind]}.${language}`;

/** The scope of the word, between a variable and a number. */
function colourOf(language: "brannic" | "torvel", word: string): string | undefined {
  const { lines } = tokensOf(grammars[language], [`$x ${word} 1`]);
  return lines[0]?.find(({ text }) => text === word)?.scope;
}

for (const language of languages) {
  const id = language.id as "brannic" | "torvel";
  test(`every word of ${language.name} has the colour of its kind`, () => {
    let count = 0;
    for (const [kind, words] of Object.entries(language.words)) {
      for (const word of words as string[]) {
        const spellings = language.anyCase ? [word, word.toLowerCase()] : [word];
        for (const spelling of spellings) {
          assert.equal(colourOf(id, spelling), scopeOf(kind, id), spelling);
          count += 1;
        }
      }
    }
    assert.ok(count > (id === "brannic" ? 1000 : 200));
  });
}

test("constants and variables of the controller", () => {
  const [brannic] = languages;
  for (const word of brannic!.constants) {
    assert.equal(colourOf("brannic", word), "support.constant.brannic", word);
  }
  const { indexed, whole } = brannic!.variables;
  for (const word of [...indexed, ...whole]) {
    assert.equal(colourOf("brannic", `$${word}`), "variable.language.brannic", word);
  }
  assert.equal(indexed.length + whole.length, 28);
  for (const word of indexed) {
    assert.equal(colourOf("brannic", `$${word.toLowerCase()}12`), "variable.language.brannic");
  }
  for (const word of whole) {
    assert.equal(colourOf("brannic", `$${word}12`), "variable.other.brannic", word);
  }
  for (const word of [...brannic!.directives, "#IFDEF"]) {
    assert.equal(colourOf("brannic", word), "keyword.control.directive.brannic", word);
  }
});

test("words that only begin or end as a keyword are plain", () => {
  for (const word of ["IFX", "_IF", "XFOR", "DATAITEM_Position_", "dataitem_positionfeedback"]) {
    assert.equal(colourOf("brannic", word), "", word);
  }
  for (const word of ["IF", "home", "Home2", "AbortX"]) {
    assert.equal(colourOf("torvel", word), "", word);
  }
});
