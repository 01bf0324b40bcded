// Lines with the scopes that they have to have, written below them by hand.

import { execFileSync } from "node:child_process";
import { readdirSync } from "node:fs";
import { test } from "node:test";

const folder = "editors/vscode/test/grammar";
const grammars = ["brannic", "torvel"].flatMap((id) => [
  "-g",
  `build/editors/vscode/syntaxes/${id}.tmLanguage.json`,
]);

test("lines have the scopes that stand below them", () => {
  const files = readdirSync(folder).map((name) => `${folder}/${name}`);
  execFileSync(
    process.execPath,
    ["editors/vscode/node_modules/vscode-tmgrammar-test/dist/unit.js", ...grammars, ...files],
    { stdio: ["ignore", "inherit", "inherit"] },
  );
});
