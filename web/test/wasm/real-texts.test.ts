// A million numbers are read and written by the WebAssembly as by the program.

import assert from "node:assert/strict";
import { execFileSync } from "node:child_process";
import { existsSync } from "node:fs";
import { dirname } from "node:path";
import { test } from "node:test";

const beside = dirname(process.env["TORVEL_MIGRATE"] ?? "build/dev/torvel-migrate");
const program =
  [`${beside}/tests/real-text-digests`, "build/dev/tests/real-text-digests"].find((path) =>
    existsSync(path),
  ) ?? "";
const skip = program === "" ? "real-text-digests is not built" : false;

test("a million numbers", { skip }, () => {
  const options = { encoding: "utf8" } as const;
  const expected = execFileSync(program, options);
  assert.equal(expected.split("\n").length, 52);
  assert.equal(execFileSync("node", ["build/wasm/real-text-digests.js"], options), expected);
});
