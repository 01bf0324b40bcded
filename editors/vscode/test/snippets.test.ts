// Every snippet, filled in, is a statement that the converter converts.

import assert from "node:assert/strict";
import { spawnSync } from "node:child_process";
import { existsSync, mkdirSync, mkdtempSync, readFileSync, rmSync, writeFileSync } from "node:fs";
import { tmpdir } from "node:os";
import { test } from "node:test";
import { snippets } from "../../grammar/snippets.mjs";

interface Snippet {
  readonly prefix: string;
  readonly body: readonly string[];
  readonly description: string;
}

const all = Object.entries(snippets() as Record<string, Snippet>);

/** What is typed in the places of a snippet; those with a number are kinds too. */
const samples: Readonly<Record<string, string>> = {
  NAME: "WIDTH",
  axes: "X Y",
  axis: "X",
  axis1: "X",
  axis2: "Y",
  axis3: "Z",
  condition: "$a == 1",
  index: "5",
  name: "spot",
  size: "9",
  string: '"text"',
  string1: '"first"',
  string2: '"second"',
  task: "2",
  value: "-11",
  values: "6, 7, 8",
  variable: "$v",
};

/** The text that a snippet leaves, places filled in. */
function filled(body: readonly string[]): string {
  return body
    .join("\n")
    .replace(/\$\{[0-9]+:(\w+)\}/g, (_, name: string) => {
      const text = samples[name] ?? samples[name.replace(/[0-9]$/, "")];
      assert.ok(text !== undefined, name);
      return text.replace("$", "\\$");
    })
    .replace(/(?<!\\)\$0/g, "")
    .replace(/\\([\\$}])/g, "$1");
}

test("snippets have what people type, places, and what they become", () => {
  assert.ok(all.length > 250, `${all.length} snippets`);
  for (const [name, { prefix, body, description }] of all) {
    assert.match(prefix, /^[#$a-z0-9][a-z0-9]*( [a-z0-9]+)*$/, name);
    assert.ok(filled(body).toLowerCase().startsWith(prefix), name);
    assert.match(description, /^becomes ./, name);
    const numbers = [...body.join("").matchAll(/\$\{([0-9]+):/g)].map(([, number]) => number);
    assert.deepEqual(
      numbers,
      numbers.map((_, index) => String(index + 1)),
      name,
    );
  }
});

test("what opens a block closes it", () => {
  const bodyOf = (name: string) => all.find(([key]) => key === name)?.[1].body;
  assert.deepEqual(bodyOf("IF condition"), ["IF ${1:condition}", "\t$0", "ENDIF"]);
  assert.deepEqual(bodyOf("DO WHILE condition"), ["DO WHILE ${1:condition}", "\t$0", "LOOP"]);
  assert.deepEqual(bodyOf("MOVEINC axis, value1, value2"), [
    "MOVEINC ${1:axis}, ${2:value1}, ${3:value2}",
  ]);
});

const converter = process.env["TORVEL_CONVERTER"] ?? "build/dev/BrannicToTorvel64";
const isMissing = !existsSync(converter) && process.env["TORVEL_EDITOR_TESTS"] !== "required";

test("the converter converts every snippet", { skip: isMissing && "no converter" }, () => {
  const folder = mkdtempSync(`${tmpdir()}/snippets-`);
  mkdirSync(`${folder}/out`);
  const program = all.map(([, { body }]) => filled(body)).join("\n");
  writeFileSync(`${folder}/main.pgm`, program);
  const run = spawnSync(converter, ["-o", `${folder}/out`, `${folder}/main.pgm`]);
  assert.equal(run.status, 0, String(run.stderr));
  const torvel = readFileSync(`${folder}/out/main.torvel`, "utf8").split("\n");
  rmSync(folder, { recursive: true });
  assert.deepEqual(
    torvel.filter((line) => line.includes("#error_unconvertible")),
    [],
  );
  assert.ok(torvel.length >= all.length);
});
