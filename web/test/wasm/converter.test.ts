// The wrapper around the WebAssembly.

import assert from "node:assert/strict";
import { readFileSync } from "node:fs";
import { test } from "node:test";
import { convert } from "../../src/converter/convert.ts";
import { convertProgram, noteFault, outputOf, recordOf } from "../../src/converter/conversion.ts";
import { Converter, ConverterDied, ConverterRefused } from "../../src/converter/instance.ts";
import { openProject } from "../../src/converter/project.ts";
import { makeReport, summaryOf } from "../../src/converter/report.ts";
import { bytesOf } from "./cases.ts";

const wasm = readFileSync("build/wasm/converter.wasm");

const files = (entries: Readonly<Record<string, string>>) =>
  new Map(Object.entries(entries).map(([path, text]) => [path, bytesOf(text)] as const));

test("a program in one call", async () => {
  const result = await convert(
    wasm,
    "mill/main.pgm",
    files({
      "mill/main.pgm": 'HOME X\n#include "INC\\tool.pgm"\n',
      "mill/inc/Tool.pgm": "PROBE X\n",
    }),
  );
  assert.equal(result.status, "converted");
  assert.equal(
    Buffer.from(result.logBytes).toString(),
    "inc/Tool.pgm:1: PROBE is no longer supported.\n" + "In file included from main.pgm:2\n\n",
  );
  assert.deepEqual(
    result.foundFindings.map(({ file, line, code }) => [file, line, code]),
    [["mill/inc/Tool.pgm", 1, "probe-unsupported"]],
  );
  assert.deepEqual(result.lineMap.files, ["mill/main.pgm", "mill/inc/Tool.pgm"]);
});

test("files that are missing are told", async () => {
  const result = await convert(wasm, "main.pgm", files({ "main.pgm": '#include "a/b.pgm"\n' }));
  assert.equal(result.status, "unreadable");
  assert.deepEqual(result.missing, ["a/b.pgm"]);
  assert.deepEqual(result.found.missing, [
    { file: "main.pgm", line: 1, written: "a/b.pgm", path: "a/b.pgm" },
  ]);
});

test("a project file is taken, and told where it is wrong", async () => {
  const converter = await Converter.of(wasm);
  converter.putFiles(
    files({
      "plant/migration.toml":
        'sources = ["p"]\noutput = "out"\n[reference]\naxis_parameters = { 7000 = "OurGain" }\n',
      "plant/p/a.pgm": "$PAXIS[7000].X = 5\n",
      "plant/broken.toml": "sources = 5\n",
    }),
  );
  const found = openProject(converter, { projectFile: "plant/migration.toml" });
  assert.deepEqual(
    found.programs.map(({ path, output }) => [path, output]),
    [["p/a.pgm", "out/a.torvel"]],
  );
  convertProgram(converter, 0);
  assert.match(Buffer.from(outputOf(converter)).toString(), /OurGain/);
  assert.throws(
    () => openProject(converter, { projectFile: "plant/broken.toml" }),
    (error) => error instanceof ConverterRefused && /broken\.toml/.test(error.message),
  );
});

test("a report has programs that ended, and outlives its instance", async () => {
  const first = await Converter.of(wasm);
  const sources = files({ "a.pgm": "PROBE X\n", "b.pgm": "HOME X\n" });
  first.putFiles(sources);
  openProject(first);
  convertProgram(first, 0);
  const records = [recordOf(first)];
  noteFault(first, 1, "The conversion ended before its time: for a test.");
  records.push(recordOf(first));
  const second = await Converter.of(wasm);
  second.putFiles(sources);
  openProject(second);
  makeReport(second, { projectName: "plant", earlierRuns: [], records, began: 1, ended: 2 });
  const summary = summaryOf(second, 3);
  assert.deepEqual([...summary.programs.status], [0, 1]);
  assert.deepEqual(summary.rules.map(({ code }) => code).sort(), [
    "conversion-ended",
    "probe-unsupported",
  ]);
});

test("an instance that ended says so from then on", async () => {
  const converter = await Converter.of(wasm);
  assert.throws(() => converter.call("NoSuchFunction"), ConverterDied);
  assert.throws(() => openProject(converter), ConverterDied);
});

test("a program that needs more memory than there is ends its instance or is refused", async () => {
  const converter = await Converter.of(wasm);
  converter.putFiles(new Map([["a.pgm", Buffer.alloc(400 << 20, "$a = 1\n")]]));
  openProject(converter);
  assert.throws(
    () => convertProgram(converter, 0),
    (error) => error instanceof ConverterRefused || error instanceof ConverterDied,
  );
});
