// What the commands make of settings and findings, and how torvel-migrate is run.

import assert from "node:assert/strict";
import { cpSync, existsSync, mkdtempSync, readFileSync, rmSync } from "node:fs";
import { tmpdir } from "node:os";
import { test } from "node:test";
import { convertArguments } from "../src/convert.ts";
import { codeOf } from "../src/explain.ts";
import { failureOf, runMigrate } from "../src/migrate.ts";
import { wholePath, type Settings } from "../src/settings.ts";

const written: string[] = [];
const log = {
  append: (text: string) => written.push(text),
  appendLine: (text: string) => written.push(`${text}\n`),
} as unknown as Parameters<typeof runMigrate>[3];

const unset: Settings = {
  migrateProgram: "torvel-migrate",
  parameterFile: "",
  projectFile: "",
  referenceRows: "",
};

test("a path that is not whole counts from the folder", () => {
  assert.equal(wholePath("machine.xml", "/plant"), "/plant/machine.xml");
  assert.equal(wholePath("/machine.xml", "/plant"), "/machine.xml");
  assert.equal(wholePath("", "/plant"), "");
  assert.equal(wholePath("machine.xml", undefined), "machine.xml");
});

test("only codes of the converter are codes", () => {
  assert.equal(codeOf({ code: "value-cut" }), "value-cut");
  assert.equal(
    codeOf({ code: { value: "probe-unsupported", target: {} as never } }),
    "probe-unsupported",
  );
  for (const code of [undefined, 12, "", "-help", "Value Cut", { value: 3 }]) {
    assert.equal(codeOf({ code } as Parameters<typeof codeOf>[0]), undefined);
  }
});

test("the status, and what was said, are given back", async () => {
  const said = await runMigrate(
    process.execPath,
    ["-e", "console.log('out'); console.error('wrong: $(id)'); process.exitCode = 3", "--", "a b"],
    undefined,
    log,
  );
  assert.deepEqual(said, { status: 3, output: "out\n", errors: "wrong: $(id)\n" });
  assert.equal(failureOf(said, "torvel-migrate"), "wrong: $(id)");
  assert.match(written.join(""), /^> .*node.* -- a b\nout\nwrong/);
});

test("a program that is not there is told, with the setting", async () => {
  const said = await runMigrate("/no/such/torvel-migrate", ["status"], undefined, log);
  assert.equal(said.status, undefined);
  assert.match(
    failureOf(said, "/no/such/torvel-migrate"),
    /^\/no\/such\/torvel-migrate could not be run; the setting brannic\.migrateProgram .*ENOENT/,
  );
});

const migrate = process.env["TORVEL_MIGRATE"] ?? "build/dev/torvel-migrate";
const isMissing = !existsSync(migrate) && process.env["TORVEL_EDITOR_TESTS"] !== "required";
const withMigrate = { skip: isMissing && "torvel-migrate is not built" };

test("torvel-migrate takes what the commands hand over", withMigrate, async () => {
  const folder = mkdtempSync(`${tmpdir()}/commands-`);
  cpSync("examples/plant", folder, { recursive: true });
  const program = `${folder}/programs/drilling/d1010.pgm`;
  const run = (words: string[]) => runMigrate(migrate, words, undefined, log);

  const alone = await run(
    convertArguments(program, {
      ...unset,
      parameterFile: `${folder}/programs/drilling/machine.xml`,
    }),
  );
  assert.equal(alone.status, 0, alone.errors);
  const ownResult = `${folder}/programs/drilling/converted/d1010.torvel`;
  const projectFile = `${folder}/migration.toml`;
  const ofProject = await run(convertArguments(program, { ...unset, projectFile }));
  assert.equal(ofProject.status, 0, ofProject.errors);
  assert.equal(
    readFileSync(`${folder}/converted/drilling/d1010.torvel`, "latin1"),
    readFileSync(ownResult, "latin1"),
  );

  const explained = await run(["explain", "--project", projectFile, "value-cut"]);
  assert.match(explained.output, /^Text behind the value of an assignment is dropped\./);
  rmSync(folder, { recursive: true });
});
