// Makes programs for node of tests and benchmarks: node web/build-tests.mjs FOLDER
// They are made into FOLDER, under the names of their sources, and are run where the project is.

import { existsSync, readdirSync } from "node:fs";
import { dirname } from "node:path";
import { fileURLToPath } from "node:url";
import { build } from "esbuild";

const folder = dirname(fileURLToPath(import.meta.url));
const glue = `${folder}/../build/wasm/converter.js`;
// What needs the WebAssembly is left out where it was not built.
const withWasm = existsSync(glue) ? ["test/wasm", "test/browser"] : [];
const sources = ["test/unit", "test/e2e", "bench", ...withWasm].flatMap((name) =>
  readdirSync(`${folder}/${name}`)
    .filter((file) => /\.test\.tsx?$|bench\.ts$/.test(file))
    .map((file) => `${name}/${file}`),
);

await build({
  absWorkingDir: folder,
  entryPoints: sources,
  outdir: process.argv[2],
  outbase: ".",
  outExtension: { ".js": ".mjs" },
  bundle: true,
  platform: "node",
  format: "esm",
  target: "node18",
  packages: "external",
  alias: { "torvel-converter-glue": glue },
  jsx: "automatic",
  jsxImportSource: "preact",
  sourcemap: "inline",
  logLevel: "warning",
});
