// The golden cases through the WebAssembly: all bytes of what is written.

import assert from "node:assert/strict";
import { readFileSync } from "node:fs";
import { test } from "node:test";
import { convert, type Conversion } from "../../src/converter/convert.ts";
import { goldenCases, type Case } from "./cases.ts";

const wasm = readFileSync("build/wasm/converter.wasm");
const cases = goldenCases();
const textOf = (bytes: Uint8Array): string => Buffer.from(bytes).toString("latin1");
const inFolder = (text: string): string => text.replaceAll("{dir}", "/project");

async function run(golden: Case): Promise<Conversion> {
  return convert(wasm, golden.main, golden.files, {
    ...(golden.parameters === "" ? {} : { parameters: golden.parameters }),
    limits: golden.limits,
  });
}

/** The message of a run that could not finish, as the command line prints it. */
function checkRefusal(golden: Case, result: Conversion): void {
  assert.equal(result.status, "unreadable");
  assert.equal(result.outputBytes.length + result.logBytes.length, 0);
  const told = inFolder(golden.standardError);
  const text = result.foundFindings.map((finding) => finding.text.split("\n")[0]!).at(-1) ?? "";
  // A fault of the parameter file is told with the file's name in front.
  const message = text.replace(/^The parameter file "[^"]*" cannot be used: /, "");
  assert.ok(message !== "" && told.includes(message), `${told} has ${message}`);
}

/** Cases that come out otherwise, and why. */
const others: Readonly<Record<string, string>> = {
  "includes/endless-device": "there are no devices in memory",
  "includes/separator-behind": "torvel-migrate takes the file, as it takes other cases of letters",
};

test("most golden cases need no command line", () => {
  const left = cases.filter(({ test }) => test === null).map(({ name }) => name);
  assert.ok(cases.length >= 680, `${cases.length} cases`);
  assert.ok(left.length < 15, left.join("\n"));
});

for (const { name, test: golden } of cases) {
  if (golden === null) {
    continue;
  }
  const skip = others[name] ?? false;
  test(name, { skip }, async () => {
    const result = await run(golden);
    if (golden.status !== 0) {
      checkRefusal(golden, result);
      return;
    }
    assert.equal(textOf(result.outputBytes), inFolder(golden.output ?? ""));
    assert.equal(textOf(result.logBytes), inFolder(golden.log));
  });
}
