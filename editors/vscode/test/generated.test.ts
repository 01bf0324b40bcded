import assert from "node:assert/strict";
import { existsSync, readdirSync, readFileSync } from "node:fs";
import { test } from "node:test";
import { extensionFiles, projectFiles } from "../../grammar/generate.mjs";
import { languages } from "../../grammar/languages.mjs";
import { wordPattern } from "../../grammar/word-pattern.mjs";

const committed: ReadonlyMap<string, string> = projectFiles();

test("the files of Vim and Notepad++ are as the tables make them", () => {
  for (const [path, text] of committed) {
    const file = `editors/${path}`;
    assert.ok(existsSync(file), `${file} is missing: node editors/grammar/generate.mjs`);
    assert.ok(readFileSync(file, "utf8") === text, `${file}: node editors/grammar/generate.mjs`);
  }
});

test("no file is left that the tables do not make any more", () => {
  for (const folder of ["vim/syntax", "vim/ftplugin", "notepad++"]) {
    for (const name of readdirSync(`editors/${folder}`)) {
      assert.ok(committed.has(`${folder}/${name}`), `editors/${folder}/${name}`);
    }
  }
});

test("a pattern of many words matches each of them, whole, and no other", () => {
  const words = ["A", "AB", "ABC", "AXIS", "AXISSTATUS", "B", "PULSE2", "1D"];
  const pattern = new RegExp(`^(?:${wordPattern(words)})$`);
  for (const word of words) {
    assert.match(word, pattern);
  }
  for (const word of ["", "AX", "ABCD", "AXISSTAT", "1", "PULSE", "D"]) {
    assert.doesNotMatch(word, pattern);
  }
});

interface Configuration {
  readonly wordPattern: string;
  readonly indentationRules: Readonly<Record<string, string>>;
  readonly folding: { readonly markers: { readonly start: string; readonly end: string } };
}

function configurationOf(id: string): Configuration {
  const files: ReadonlyMap<string, string> = extensionFiles();
  return JSON.parse(files.get(`language-configuration/${id}.json`) ?? "") as Configuration;
}

for (const { id, anyCase, blocks } of languages) {
  const { wordPattern: word, indentationRules, folding } = configurationOf(id);
  const start = new RegExp(folding.markers.start);
  const end = new RegExp(folding.markers.end);

  test(`blocks of ${id} begin and end with their words`, () => {
    for (const [words, isStart, isEnd] of [
      [blocks.begin, true, false],
      [blocks.middle, false, false],
      [blocks.end, false, true],
    ] as const) {
      for (const spelling of words as string[]) {
        const wide = spelling.replace(" ", "  \t");
        for (const line of [spelling, `\t${wide} $x`, `N10 ${spelling}`, `again: ${spelling} 1`]) {
          assert.equal(start.test(line), isStart, line);
          assert.equal(end.test(line), isEnd, line);
        }
        assert.equal(
          start.test(spelling.toLowerCase()),
          isStart && (anyCase || start.test(spelling)),
        );
        assert.ok(!start.test(`; ${spelling}`) && !end.test(`// ${spelling}`));
        assert.ok(!start.test(`${spelling}X`) && !end.test(`${spelling}_`));
      }
    }
  });

  test(`a jump of ${id} behind a condition begins no block`, () => {
    const isBlock = id === "torvel";
    for (const line of [
      "if $a == 1 goto there",
      "if $a then goto N10 ; end",
      "if $a JUMP x // y",
    ]) {
      assert.equal(start.test(line), isBlock, line);
      assert.equal(new RegExp(indentationRules["increaseIndentPattern"] ?? "").test(line), isBlock);
    }
    for (const line of ["if $a ; goto there", "if $a // goto", "if $goto == 1", "if $a_goto"]) {
      assert.ok(start.test(line), line);
    }
  });

  test(`what ${id} has for words and indentation is a pattern`, () => {
    assert.deepEqual("$a + NAME_2".match(new RegExp(word, "g")), ["$a", "NAME_2"]);
    const { increaseIndentPattern = "", decreaseIndentPattern = "" } = indentationRules;
    const [begin = "", middle = "", last = ""] = [blocks.begin, blocks.middle, blocks.end].map(
      ([first]) => first as string,
    );
    assert.deepEqual(
      [begin, middle, last].map((line) => new RegExp(increaseIndentPattern).test(line)),
      [true, true, false],
    );
    assert.deepEqual(
      [begin, middle, last].map((line) => new RegExp(decreaseIndentPattern).test(line)),
      [false, true, true],
    );
  });
}
