// The page as torvel-migrate writes it over the example plant, and pictures of its views.

import assert from "node:assert/strict";
import { execFileSync } from "node:child_process";
import { cpSync, mkdirSync, readFileSync, rmSync, writeFileSync } from "node:fs";
import { before, test } from "node:test";
import { pathToFileURL } from "node:url";
import type { ProgramDetail, Summary } from "../../src/data/format.ts";
import { generatedSheet } from "../../src/data/generated-sheet.ts";
import { linesOf } from "../../src/data/sheet.ts";
import { programTexts } from "../../src/data/program-texts.ts";
import { unpacked } from "../../src/data/unpack.ts";
import { axeViolations } from "./axe.ts";
import { browserSession, goTo } from "./opened-page.ts";

const migrate = process.env["TORVEL_MIGRATE"] ?? "";
const skip = migrate === "" ? "torvel-migrate is not built" : false;
const plant = "build/web/plant";
const pictures = "build/web/pictures";
const file = `${plant}/report.html`;
const { open } = browserSession();

before(() => {
  if (skip !== false) {
    return;
  }
  rmSync(plant, { recursive: true, force: true });
  cpSync("examples/plant", plant, {
    recursive: true,
    filter: (path) => !path.endsWith("/converted"),
  });
  const run = (...words: string[]) =>
    execFileSync(migrate, [...words, "--project", `${plant}/migration.toml`], { stdio: "pipe" });
  run("convert", "--quiet");
  const output = `${plant}/converted/drilling/d1010.torvel`;
  const text = readFileSync(output, "latin1");
  writeFileSync(
    output,
    text
      .replace("SetupCoordinatedRampValue(RampMode.Rate, /* $rampValue */)\n", "")
      .replace("#error_unconvertible #define DOOR_CLOSED $BI[0]\n", "// checked 2026-11-20 kb\n")
      .replace("\tG0 Z4\n", "\tG0 Z6\n"),
    "latin1",
  );
  run("report", "--html", file);
  mkdirSync(pictures, { recursive: true });
});

async function elementOf<T>(id: string): Promise<T> {
  const text = new RegExp(`id="${id}">([^<]*)<`).exec(readFileSync(file, "utf8"))?.[1];
  return unpacked<T>(text as string);
}

test("every line of every source and output is shown once, in its order", { skip }, async () => {
  const summary = await elementOf<Summary>("summary");
  assert.equal(summary.programs.path.length, 40);
  for (let program = 0; program < 40; ++program) {
    const detail = await elementOf<ProgramDetail>(`program-${program}`);
    if (detail.files.length === 0) {
      // Two programs have one output: neither was begun.
      assert.match(summary.strings[summary.programs.path[program]!]!, /d1050/i);
      continue;
    }
    const sheet = generatedSheet(detail);
    const outputs = [...sheet.generated].filter((line) => line > 0);
    const outputLines = linesOf(detail.generated);
    const count = outputLines.at(-1) === "" ? outputLines.length - 1 : outputLines.length;
    assert.deepEqual(
      outputs,
      Array.from({ length: count }, (_, i) => i + 1),
    );
    for (const [number, { file: source, first, end }] of sheet.inclusions.entries()) {
      const rows = Array.from({ length: end - first }, (_, i) => first + i);
      const lines = rows
        .filter((row) => sheet.inclusion[row] === number && sheet.line[row]! > 0)
        .map((row) => sheet.line[row]);
      const { text } = detail.files[source]!;
      const most = linesOf(text).length;
      assert.deepEqual(
        lines,
        lines.map((_, i) => i + 1),
      );
      assert.ok(lines.length === most || lines.length === most - 1, `${lines.length} of ${most}`);
    }
  }
});

test("markers stand beside the lines that they are of", { skip }, async () => {
  for (let program = 0; program < 40; ++program) {
    const texts = programTexts(await elementOf<ProgramDetail>(`program-${program}`), true);
    texts.sheet.generated.forEach((line, row) => {
      const marker = /^\s*#error_unconvertible \([^)]*:(\d+)\)/.exec(
        texts.generated[line - 1] ?? "",
      );
      if (line > 0 && marker !== null) {
        assert.equal(texts.sheet.line[row], Number(marker[1]));
        assert.equal(texts.sheet.isConverted[row], 0);
      }
    });
  }
});

const program = "#/program?path=programs/drilling/d1010.pgm";

const views: Readonly<Record<string, string>> = {
  overview: "#/overview",
  work: "#/work?show=datacollect-start-no-one-to-one",
  programs: "#/program",
  program: `${program}&out=25`,
  checks: "#/checks",
};

for (const colorScheme of ["light", "dark"] as const) {
  for (const width of [1280, 768]) {
    test(`the views over the plant, ${colorScheme}, ${width} px`, { skip }, async () => {
      const { page, close } = await open(pathToFileURL(file).href, {
        colorScheme,
        viewport: { width, height: 860 },
      });
      assert.equal(await page.getByText("The counts do not agree").count(), 0);
      for (const [name, state] of Object.entries(views)) {
        await goTo(page, state);
        await page.locator("main h1").waitFor();
        assert.deepEqual(await axeViolations(page), [], state);
        await page.screenshot({ path: `${pictures}/${name}-${colorScheme}-${width}.png` });
      }
      await close();
    });
  }
}

test("the form on paper", { skip }, async () => {
  const { page, close } = await open(`${pathToFileURL(file).href}#/checks`);
  await page.getByLabel("Your initials").fill("kb");
  await page.getByRole("checkbox").first().check();
  await page.setViewportSize({ width: 794, height: 560 });
  await page.emulateMedia({ media: "print" });
  await page.screenshot({ path: `${pictures}/form.png` });
  const paper = await page.pdf({ path: `${pictures}/form.pdf`, format: "A4" });
  assert.ok(paper.length > 10_000);
  await close();
});

test("every program of the plant opens", { skip }, async () => {
  const { page, close } = await open(`${pathToFileURL(file).href}#/program`);
  const paths = await page.locator(".block .program-row a").allTextContents();
  assert.equal(paths.length, 40);
  for (const path of paths) {
    await goTo(page, `#/program?path=${path}&open=all`);
    await page.getByRole("heading", { name: path, exact: true }).waitFor();
    await page.locator(".row").or(page.getByText("its conversion was not begun")).first().waitFor();
  }
  await close();
});
