// The syntax, the file types, the indentation and the list of errors as Vim has them.

import assert from "node:assert/strict";
import { execFileSync, spawnSync } from "node:child_process";
import { mkdtempSync, readFileSync, rmSync, writeFileSync } from "node:fs";
import { tmpdir } from "node:os";
import { after, before, test } from "node:test";
import { caseTexts, linesOf, type CaseText } from "./cases.ts";
import { difference, kindsByPage } from "./kinds.ts";

const isMissing = spawnSync("vim", ["--version"]).status !== 0;
const isRequired = process.env["TORVEL_EDITOR_TESTS"] === "required";
const options = { skip: isMissing && !isRequired && "Vim is not there" };

let folder = "";
before(() => {
  folder = mkdtempSync(`${tmpdir()}/vim-`);
});
after(() => rmSync(folder, { recursive: true }));

/** Runs Vim without what a user has, on a script. */
function runVim(script: string, environment: Record<string, string>): void {
  execFileSync("vim", ["-N", "-e", "-s", "-u", "NONE", "-i", "NONE", "-S", script], {
    env: { ...process.env, ...environment },
    input: "",
    stdio: ["pipe", "ignore", "inherit"],
    timeout: 120_000,
  });
}

/** "brannicSystemVariable" is the kind "systemVariable". */
const kindOf = (name: string) =>
  name
    .replace(/^(?:brannic|torvel)(?:Name|Axis)?/, "")
    .replace(/^./, (letter) => letter.toLowerCase());

/** A program of many cases, since a file of its own for each takes Vim long. */
function joined(texts: readonly CaseText[], language: string): string[] {
  return texts
    .filter((text) => text.language === language && !text.isRefused)
    .flatMap(({ text }) => linesOf(text.replaceAll("\0", "\u0001")));
}

test("Vim colours every golden case as the report page does", options, () => {
  const texts = caseTexts();
  const files = { brannic: `${folder}/all.pgm`, torvel: `${folder}/all.torvel` };
  for (const language of ["brannic", "torvel"] as const) {
    writeFileSync(files[language], joined(texts, language).join("\n") + "\n", "latin1");
  }
  writeFileSync(`${folder}/list`, Object.values(files).join("\n") + "\n");
  runVim("editors/vscode/test/vim-names.vim", { TORVEL_TEXTS: `${folder}/list` });
  for (const language of ["brannic", "torvel"] as const) {
    const lines = joined(texts, language);
    const [fileType, ...names] = readFileSync(`${files[language]}.names`, "latin1").split("\n");
    assert.equal(fileType, language);
    const expected = kindsByPage(lines, language);
    let compared = 0;
    lines.forEach((line, index) => {
      const kinds = (names[index] ?? "").split(",").map(kindOf);
      assert.equal(difference(line, expected[index] ?? [], kinds), "");
      compared += line.length;
    });
    assert.ok(compared > 10_000, `${compared} characters`);
  }
});

const flat = [
  "if $a == 1 then",
  "N10 while $b < 3",
  "$b = 1 ; if",
  "if $goto then jump again ; stays",
  "if $goto == 1 // goto",
  "endif",
  "ENDWHL",
  "else if $a == 2",
  "again: RPT 3",
  "HOME X",
  "end repeat",
  "ELSE",
  "DO WHILE $c",
  "NEXT_ONE:",
  "loop",
  "END IF",
  "END PROGRAM",
];

test("Vim knows the files, indents blocks, and reads a log", options, () => {
  const write = (name: string, ...lines: string[]) =>
    writeFileSync(`${folder}/${name}`, lines.join("\n") + "\n");
  write("picture.pgm", "P2 2 2", "1");
  write("program.pgm", "P1 = 1");
  write("PROGRAM.PRG", "");
  write("program.torvel", "");
  write("flat.pgm", ...flat);
  write("include.pgm", '  #INCLUDE "inc/tool.pgm" ; the tool');
  write(
    "messages.log",
    "inc/tool.pgm:7: BNAND is no longer supported.",
    "In file included from setup.pgm:3,",
    "                 from include.pgm:12",
    "",
    "include.pgm:14: Expected a numeric expression.",
    "",
  );
  const result = `${folder}/result`;
  runVim("editors/vscode/test/vim-plugin.vim", { TORVEL_FOLDER: folder, TORVEL_RESULT: result });
  const [picture = "", ...lines] = readFileSync(result, "utf8").trimEnd().split("\n");
  assert.match(picture, /^picture\.pgm (?!brannic)/);
  const indents = [0, 2, 4, 4, 4, 4, 2, 0, 2, 4, 2, 0, 2, 4, 2, 0, 0];
  assert.deepEqual(lines, [
    "program.pgm brannic ; %s",
    "PROGRAM.PRG brannic ; %s",
    "program.torvel torvel // %s",
    ...flat.map((line, index) => " ".repeat(indents[index] ?? 0) + line),
    "include inc/tool.pgm",
    "inc/tool.pgm 7 BNAND is no longer supported.",
    "setup.pgm 3 ",
    "include.pgm 12 ",
    "include.pgm 14 Expected a numeric expression.",
  ]);
});
