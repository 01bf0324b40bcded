// Makes programs for node of the tests: node editors/vscode/build-tests.mjs
// They come to "generated/tests" in this folder, and are run where the project is.

import { readdirSync } from "node:fs";
import { dirname } from "node:path";
import { fileURLToPath } from "node:url";
import { build } from "esbuild";

const folder = dirname(fileURLToPath(import.meta.url));

await build({
  absWorkingDir: folder,
  entryPoints: readdirSync(`${folder}/test`)
    .filter((file) => file.endsWith(".test.ts"))
    .map((file) => `test/${file}`),
  outdir: "generated/tests",
  outExtension: { ".js": ".mjs" },
  bundle: true,
  platform: "node",
  format: "esm",
  target: "node18",
  packages: "external",
  alias: { vscode: "./test/stub/vscode.cjs" },
  // They read the tables beside them.
  external: ["../grammar/*.mjs"],
  sourcemap: "inline",
  logLevel: "warning",
});
