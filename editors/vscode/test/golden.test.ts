import assert from "node:assert/strict";
import { test } from "node:test";
import { scopes } from "../../grammar/textmate.mjs";
import { caseTexts, linesOf } from "./cases.ts";
import { grammarOf, tokensOf } from "./grammar.ts";
import { difference, kindsByPage } from "./kinds.ts";

const grammars = { brannic: await grammarOf("brannic"), torvel: await grammarOf("torvel") };
const texts = caseTexts();

/** "keyword.other.word.brannic" is the kind "word". */
function kindOf(scope: string): string {
  const own = scope.replace(/\.(?:brannic|torvel)$/, "");
  const found = Object.entries(scopes).find(
    ([, name]) => own === name || own.startsWith(`${name}.`),
  );
  return found?.[0] ?? own;
}

test("the cases are there", () => {
  assert.ok(texts.filter(({ language }) => language === "brannic").length > 750);
  assert.ok(texts.filter(({ language }) => language === "torvel").length > 500);
});

test("the grammars colour every golden case as the report page does", () => {
  for (const { name, language, text } of texts) {
    const lines = linesOf(text);
    const expected = kindsByPage(lines, language);
    tokensOf(grammars[language], lines).lines.forEach((tokens, index) => {
      const kinds = tokens.flatMap((token) =>
        Array.from({ length: token.text.length }, () => kindOf(token.scope)),
      );
      assert.equal(difference(lines[index] ?? "", expected[index] ?? [], kinds), "", name);
    });
  }
});

test("no golden case leaves a string or comment open that the converter takes for closed", () => {
  const open = texts
    .filter(({ language, text }) => tokensOf(grammars[language], linesOf(text)).open > 0)
    .map(({ name, isRefused }) => [name, isRefused]);
  assert.deepEqual(
    open.filter(([, isRefused]) => !isRefused),
    [],
  );
  assert.ok(open.length > 0, "a comment that is never closed is open at the end of its case");
});
