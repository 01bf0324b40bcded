// What the page that converts makes of files and wishes, without a browser.

import assert from "node:assert/strict";
import { readFileSync } from "node:fs";
import { test } from "node:test";
import { chosenFiles, merged, type Choice } from "../../src/browser/dropped-files.ts";
import { conversionLimits, tabLimits } from "../../src/browser/limits.ts";
import { firstWishes, projectOf, settingsOf } from "../../src/browser/project-choice.ts";
import { withWindowsLines } from "../../src/browser/windows-lines.ts";
import { Request } from "../../src/converter/request.ts";

const fileOf = (size: number): File => ({ size }) as File;
const choiceOf = (files: Readonly<Record<string, File>>): Choice => ({
  files: new Map(Object.entries(files)),
  refused: [],
});
const nothing = choiceOf({});

test("files of the same path take each other's place", () => {
  const [old, young, other] = [fileOf(1), fileOf(2), fileOf(3)];
  const choice = merged(choiceOf({ "a.pgm": old, "b.pgm": other }), choiceOf({ "a.pgm": young }));
  assert.deepEqual([...choice.files.values()], [young, other]);
  assert.deepEqual(choice.refused, []);
});

test("what is too large is refused by name, and what comes behind it is taken", () => {
  const choice = merged(
    nothing,
    choiceOf({ "a.pgm": fileOf(tabLimits.fileBytes + 1), "b.pgm": fileOf(tabLimits.fileBytes) }),
  );
  assert.deepEqual([...choice.files.keys()], ["b.pgm"]);
  assert.deepEqual(
    choice.refused.map(({ path }) => path),
    ["a.pgm"],
  );
  const small = merged(choice, choiceOf({ "a.pgm": fileOf(1) }));
  assert.deepEqual([[...small.files.keys()].sort(), small.refused], [["a.pgm", "b.pgm"], []]);
});

test("all files together have a limit", () => {
  const most = tabLimits.allBytes / tabLimits.fileBytes;
  const files = Array.from(
    { length: most + 1 },
    (_, i) => [`${i}.pgm`, tabLimits.fileBytes] as const,
  );
  const large = files.map(([path, size]) => [path, fileOf(size)] as const);
  const choice = merged(nothing, choiceOf(Object.fromEntries(large)));
  assert.deepEqual([choice.files.size, choice.refused.length], [most, 1]);
  // A file that takes its own place counts once.
  const again = merged(choice, choiceOf({ "0.pgm": fileOf(tabLimits.fileBytes) }));
  assert.deepEqual([again.files.size, again.refused.length], [most, 1]);
});

test("so many files are taken, and the others named", () => {
  const files = Array.from(
    { length: tabLimits.files + 2 },
    (_, i) => [`${i}.pgm`, fileOf(1)] as const,
  );
  const choice = merged(nothing, choiceOf(Object.fromEntries(files)));
  assert.deepEqual([choice.files.size, choice.refused.length], [tabLimits.files, 2]);
});

test("files of a folder have the folder's path, others their name", () => {
  const inFolder = { name: "a.pgm", webkitRelativePath: "plant/mill/a.pgm" };
  const alone = { name: "b.pgm", webkitRelativePath: "" };
  const { files } = chosenFiles([inFolder, alone] as unknown as FileList);
  assert.deepEqual([...files.keys()], ["plant/mill/a.pgm", "b.pgm"]);
});

test("the project is that of the project file that is nearest to the top", () => {
  const paths = ["all/old/migration.toml", "all/plant/x/migration.toml", "all/a.pgm"];
  assert.equal(projectOf(paths).projectFile, "all/old/migration.toml");
  const project = projectOf([...paths, "all/migration.toml"]);
  assert.deepEqual([project.projectFile, project.name], ["all/migration.toml", "all"]);
  const { limits, ...others } = settingsOf(project, firstWishes(project));
  assert.deepEqual(others, { projectFile: "all/migration.toml" });
  assert.equal(limits, conversionLimits);
});

test("without one it is the folder that has all files, if there is one", () => {
  assert.equal(projectOf(["plant/a.pgm", "plant/b/c.pgm"]).folder, "plant");
  assert.equal(projectOf(["plant/a.pgm", "b.pgm"]).folder, "");
  assert.equal(projectOf(["plant/a.pgm", "other/b.pgm"]).folder, "");
  assert.equal(projectOf(["a.pgm"]).name, "programs");
});

test("the only parameter file is chosen, of several none", () => {
  const one = projectOf(["plant/a.pgm", "plant/Machine.XML"]);
  assert.equal(firstWishes(one).parameters, "plant/Machine.XML");
  const settings = settingsOf(one, { ...firstWishes(one), programs: " *.txt,, **/x.pgm " });
  assert.equal(settings.parameters, "Machine.XML");
  assert.deepEqual(settings.programs, ["*.txt", "**/x.pgm"]);
  assert.equal(firstWishes(projectOf(["a.xml", "b.xml"])).parameters, "");
});

test("each line feed becomes CR LF", () => {
  const bytes = Buffer.from("a\n\n\xb0b\n", "latin1");
  const windows = withWindowsLines(bytes);
  assert.equal(Buffer.from(windows).toString("latin1"), "a\r\n\r\n\xb0b\r\n");
  assert.equal(withWindowsLines(new Uint8Array()).length, 0);
});

test("requests have numbers in base 128 and texts as UTF-8 with their length", () => {
  const packed = new Request()
    .number(0)
    .number(127)
    .number(128)
    .number(2 ** 40)
    .text("ä")
    .texts([]);
  assert.deepEqual(
    [...packed.packed()],
    [0, 127, 0x80, 1, 0x80, 0x80, 0x80, 0x80, 0x80, 0x20, 2, 0xc3, 0xa4, 0],
  );
});

test("the document tells the limits as they are", () => {
  const document = readFileSync("docs/browser.md", "utf8");
  const mebibytes = (bytes: number | undefined) => `${bytes! / 2 ** 20} MiB`;
  const rows: Readonly<Record<string, string>> = {
    files: tabLimits.files.toLocaleString("en"),
    "bytes of a file": mebibytes(tabLimits.fileBytes),
    "bytes of all files": mebibytes(tabLimits.allBytes),
    "bytes of a program with its includes": mebibytes(conversionLimits["programText"]),
    "includes of a program": conversionLimits["includedFiles"]!.toLocaleString("en"),
    "bytes of the parameter file": mebibytes(conversionLimits["parameterFile"]),
  };
  for (const [name, value] of Object.entries(rows)) {
    assert.ok(document.includes(`| ${name} | ${value} |`), name);
  }
  assert.equal(tabLimits.patience, 60_000);
});
