// The user-defined languages of Notepad++: their form, and their words against the tables.

import assert from "node:assert/strict";
import { execFileSync } from "node:child_process";
import { test } from "node:test";
import { grammarTables } from "../../grammar/tables.mjs";

const tables = grammarTables();

/** What xmllint finds at a path: text, or a number. */
function query(file: string, path: string): string {
  return execFileSync("xmllint", ["--xpath", path, `editors/notepad++/${file}`], {
    encoding: "utf8",
  }).replace(/\n$/, "");
}

const listOf = (file: string, name: string) => query(file, `string(//Keywords[@name='${name}'])`);
const wordsOf = (file: string, name: string) => listOf(file, name).split(" ");

/** The names that Notepad++ looks for, in its version 2.1 of such files. */
const listNames = [
  "Comments",
  ...["prefix1", "prefix2", "extras1", "extras2", "suffix1", "suffix2", "range"].map(
    (part) => `Numbers, ${part}`,
  ),
  "Operators1",
  "Operators2",
  ...["code1", "code2", "comment"].flatMap((where) =>
    ["open", "middle", "close"].map((part) => `Folders in ${where}, ${part}`),
  ),
  ...[1, 2, 3, 4, 5, 6, 7, 8].map((number) => `Keywords${number}`),
  "Delimiters",
];

for (const file of ["brannic.udl.xml", "torvel.udl.xml"]) {
  test(`${file} is XML and has every list and style once`, () => {
    assert.equal(query(file, "count(/NotepadPlus/UserLang[@udlVersion='2.1'])"), "1");
    assert.equal(query(file, "count(//KeywordLists/Keywords)"), String(listNames.length));
    for (const name of listNames) {
      assert.equal(query(file, `count(//Keywords[@name='${name}'])`), "1", name);
    }
    assert.equal(query(file, "count(//Styles/WordsStyle)"), "24");
    assert.equal(query(file, "count(//WordsStyle[string-length(@fgColor)=6])"), "24");
    assert.equal(query(file, "string(//Prefix/@Keywords7)"), "yes");
    assert.equal(query(file, "string(//Prefix/@Keywords1)"), "no");
  });

  test(`no list of ${file} is longer than Notepad++ takes`, () => {
    for (const name of listNames) {
      assert.ok(listOf(file, name).length < 30_000, name);
    }
  });

  test(`strings and markers of ${file} end with their line`, () => {
    const parts = listOf(file, "Delimiters").split(/ ?(?=\b[0-2][0-9])/);
    assert.equal(parts.length, 24);
    assert.deepEqual(parts.slice(0, 6), [
      '00"',
      "01",
      '02((" EOL))',
      "03#error_unconvertible",
      "04",
      "05((EOL))",
    ]);
  });
}

test("the words of Brannic are those of the tables", () => {
  const { control, statements, functions, words, operators, constants } = tables.brannic;
  const file = "brannic.udl.xml";
  assert.equal(query(file, "string(//Global/@caseIgnored)"), "yes");
  assert.equal(query(file, "string(//UserLang/@ext)"), "pgm prg");
  assert.deepEqual(wordsOf(file, "Keywords1"), control);
  assert.deepEqual(wordsOf(file, "Keywords2"), statements);
  assert.deepEqual(wordsOf(file, "Keywords3"), functions);
  assert.deepEqual(wordsOf(file, "Keywords4").sort(), [...words, ...operators].sort());
  assert.deepEqual(wordsOf(file, "Keywords5"), constants);
  assert.ok(wordsOf(file, "Keywords8").includes("G1"));
  assert.equal(listOf(file, "Comments"), "00; 00' 00// 01 02 03/* 04*/");
  assert.match(listOf(file, "Folders in code2, close"), /"END IF".* ENDIF .*\bNEXT\b/);
});

test("the words of Torvel are those of the tables", () => {
  const file = "torvel.udl.xml";
  assert.equal(query(file, "string(//Global/@caseIgnored)"), "no");
  assert.equal(query(file, "string(//UserLang/@ext)"), "torvel");
  assert.deepEqual(wordsOf(file, "Keywords1"), tables.torvel.control);
  assert.deepEqual(wordsOf(file, "Keywords2"), tables.torvel.functions);
  assert.equal(listOf(file, "Comments"), "00// 01 02 03/* 04*/");
  assert.deepEqual(wordsOf(file, "Folders in code2, close"), ["end"]);
});
