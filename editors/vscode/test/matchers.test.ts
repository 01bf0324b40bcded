// The problem matchers, over the logs of the golden cases and what the pages say of the gate.

import assert from "node:assert/strict";
import { readFileSync } from "node:fs";
import { test } from "node:test";
import { goldenCases } from "./cases.ts";

interface Matcher {
  readonly name: string;
  readonly pattern: { readonly regexp: string; readonly [part: string]: string | number };
}

const { contributes } = JSON.parse(readFileSync("editors/vscode/package.json", "utf8")) as {
  contributes: { problemMatchers: Matcher[] };
};

function matched(matcher: string, line: string): Record<string, string> | undefined {
  const { regexp, ...parts } = contributes.problemMatchers.find(
    ({ name }) => name === matcher,
  )!.pattern;
  const found = new RegExp(regexp).exec(line);
  return found === null
    ? undefined
    : Object.fromEntries(
        Object.entries(parts).map(([part, index]) => [part, found[Number(index)] ?? ""]),
      );
}

test("every message of a log is a problem, and what stands below it is none", () => {
  let messages = 0;
  for (const { name, parts } of goldenCases()) {
    const log = parts.find(({ kind }) => kind === "expect log")?.content ?? "";
    for (const line of log.split("\n")) {
      const isChain = line.startsWith("In file included from ") || line.startsWith("    ");
      const place = line.slice(0, line.indexOf(": "));
      if (line === "" || isChain) {
        assert.equal(matched("brannic-log", line), undefined, `${name}: ${line}`);
        continue;
      }
      const colon = place.lastIndexOf(":");
      assert.deepEqual(
        matched("brannic-log", line),
        {
          file: place.slice(0, colon),
          line: place.slice(colon + 1),
          message: line.slice(place.length + 2),
        },
        `${name}: ${line}`,
      );
      messages += 1;
    }
  }
  assert.ok(messages > 500, `${messages} messages`);
});

test("a path of Windows with its drive is a path", () => {
  assert.deepEqual(matched("brannic-log", "../d: x/a.pgm:3: Unexpected ':' seen."), {
    file: "../d: x/a.pgm",
    line: "3",
    message: "Unexpected ':' seen.",
  });
});

test("a new finding of the gate is a problem", () => {
  const page = readFileSync("docs/migrating.md", "utf8").split("\n");
  const found = page.map((line) => matched("brannic-gate", line)).filter(Boolean);
  assert.deepEqual(found, [
    {
      file: "programs/bench/new.pgm",
      line: "2",
      message: "PROBE is no longer supported.",
      code: "probe-unsupported",
    },
  ]);
});
