// Golden cases and hostile inputs in the page.

import assert from "node:assert/strict";
import { readdirSync, readFileSync } from "node:fs";
import { test } from "node:test";
import { browserSession } from "../e2e/opened-page.ts";
import { goldenCases, type Case } from "../wasm/cases.ts";
import { chooseFolder, convert, folderWith, pageUrl, savedZip, textOf } from "./converter-page.ts";

const { open } = browserSession();

/** Cases that can stand beside each other in folders of their own. */
function sample(): Case[] {
  return goldenCases()
    .map(({ test }) => test)
    .filter((golden): golden is Case => golden !== null)
    .filter(
      ({ status, main, parameters, limits, output, log, files }) =>
        status === 0 &&
        main === "main.pgm" &&
        parameters === "" &&
        Object.keys(limits).length === 0 &&
        ![output, log].some((text) => text?.includes("{dir}")) &&
        ![...files.keys()].some((path) => path.startsWith("/") || path.includes("..")),
    )
    .filter((_, i) => i % 5 === 0);
}

test("a sample of the golden cases comes out of the page as expected", async () => {
  const cases = sample();
  assert.ok(cases.length > 80, `${cases.length} cases`);
  const files = cases.flatMap(({ name, files }) =>
    [...files].map(([path, bytes]) => [`${name}/${path}`, bytes] as const),
  );
  const { page, close } = await open(pageUrl);
  await chooseFolder(page, folderWith("golden", files));
  await convert(page);
  const zip = await savedZip(page);
  for (const { name, output, log } of cases) {
    assert.equal(textOf(zip.get(`converted/${name}/main.torvel`)), output ?? "", name);
    assert.equal(textOf(zip.get(`converted/${name}/main.log`)), log, name);
  }
  await close();
});

/** Numbers that are the same in every run. */
function dice(seed: number): (limit: number) => number {
  let state = seed;
  return (limit) => {
    state = (Math.imul(state, 1664525) + 1013904223) >>> 0;
    return Math.floor((state / 2 ** 32) * limit);
  };
}

/** A text with some bytes changed, taken away, doubled or put in. */
function mutated(bytes: Uint8Array, roll: (limit: number) => number): Uint8Array {
  const text = [...bytes];
  for (let i = 1 + roll(8); i > 0 && text.length > 0; --i) {
    const at = roll(text.length);
    const length = 1 + roll(20);
    const kinds = [
      () => text.splice(at, 1, roll(256)),
      () => text.splice(at, length),
      () => text.splice(at, 0, ...text.slice(at, at + length)),
      () => text.splice(at, 0, ...Buffer.from(["(", '"', "/*", "#if 1\n", "\\\n", "\0"][roll(6)]!)),
    ];
    kinds[roll(kinds.length)]!();
  }
  return Uint8Array.from(text);
}

function* hostileFiles(): Iterable<readonly [string, Uint8Array]> {
  const roll = dice(1);
  for (const target of readdirSync("fuzz/corpus")) {
    for (const name of readdirSync(`fuzz/corpus/${target}`)) {
      yield [`corpus/${target}/${name}.pgm`, readFileSync(`fuzz/corpus/${target}/${name}`)];
    }
  }
  for (const { name, test } of goldenCases()) {
    if (test !== null && roll(2) === 0) {
      const bytes = test.files.get(test.main) ?? new Uint8Array();
      yield [`mutated/${name}.pgm`, mutated(bytes, roll)];
    }
  }
  const brackets = "(".repeat(100_000);
  yield ["deep/brackets.pgm", Buffer.from(`$a = ${brackets}1\n`)];
  yield ["deep/not.pgm", Buffer.from(`$a = ${"NOT ".repeat(100_000)}1\n`)];
  yield ["deep/minus.pgm", Buffer.from(`$a = ${"- ".repeat(100_000)}1\n`)];
  yield ["deep/conditionals.pgm", Buffer.from("#if 1\n".repeat(50_000))];
  yield ["deep/blocks.pgm", Buffer.from("IF $a == 1 THEN\n".repeat(50_000))];
  yield ["deep/itself.pgm", Buffer.from('#include "itself.pgm"\n')];
  yield ["long/line.pgm", Buffer.from(`; ${"x".repeat(1_000_000)}\n`)];
  const doubling = Array.from({ length: 40 }, (_, i) => `#define D${i + 1} D${i} D${i}\n`);
  yield ["long/doubling.pgm", Buffer.from(`#define D0 1\n${doubling.join("")}$a = D40\n`)];
  yield ["odd/</script><script>alert(1)<!--.pgm", Buffer.from('PROBE "</script><!--<script>"\n')];
  yield ["odd/=cmd|calc.pgm", Buffer.from("PROBE X\n")];
}

test("hostile programs are converted or refused, and the page goes on", async () => {
  const files = [...hostileFiles()].map(
    // A path of the disk has no slash in a name.
    ([path, bytes]) => [path.replace("</script>", "<script>"), bytes] as const,
  );
  assert.ok(files.length > 500, `${files.length} files`);
  const { page, close } = await open(pageUrl);
  await chooseFolder(page, folderWith("hostile", files));
  await convert(page, 120_000);
  const zip = await savedZip(page);
  const rows = textOf(zip.get("report/programs.csv")).trim().split("\r\n").slice(1);
  const json = JSON.parse(Buffer.from(zip.get("report/report.json")!).toString("utf8")) as {
    programs: { path: string; output: string; status: string }[];
  };
  // Every file is a program, or one that others include.
  assert.ok(rows.length > 450, `${rows.length} programs`);
  assert.equal(json.programs.length, rows.length);
  for (const { output, status } of json.programs) {
    assert.equal(zip.has(output), status === "converted", `${output} ${status}`);
  }
  // Its blocks are never closed, so that its output would be larger than what a tab has.
  const findings = textOf(zip.get("report/findings.csv")).split("\r\n");
  const ended = findings.filter((row) => row.includes(",conversion-ended,"));
  assert.deepEqual(
    ended.map((row) => row.split(",")[0]),
    ["deep/blocks.pgm"],
  );
  assert.match(ended[0]!, /The conversion ended before its time: /);
  await page.getByRole("link", { name: "Work list" }).click();
  await page.getByRole("heading", { name: "Work list" }).waitFor();
  await close();
});
