// Builds the language server: node editors/language-server/build.mjs FOLDER
//
// FOLDER/server.cjs is one file that node runs: the server, and the converter as WebAssembly, which script/build-wasm
// builds before. Beside it are NOTICES.txt, and in docs the pages of advice that messages lead to. With --tests in front of FOLDER
// the tests and the benchmark are made into it instead.

import { copyFileSync, mkdirSync, readdirSync, readFileSync, writeFileSync } from "node:fs";
import { dirname, resolve } from "node:path";
import { fileURLToPath } from "node:url";
import { parseArgs } from "node:util";
import { build } from "esbuild";
import { grammarTables, statementForms } from "../grammar/tables.mjs";

const folder = dirname(fileURLToPath(import.meta.url));
const root = `${folder}/../..`;
const generated = `${folder}/generated`;
const wasm = process.env.TORVEL_LANGUAGE_WASM ?? `${root}/build/wasm`;

function generate() {
  mkdirSync(generated, { recursive: true });
  copyFileSync(`${wasm}/language.js`, `${generated}/language.cjs`);
  copyFileSync(`${wasm}/language.wasm`, `${generated}/language.wasm`);
  const words = { ...grammarTables().brannic, forms: statementForms() };
  writeFileSync(`${generated}/words.json`, JSON.stringify(words));
}

/** The notices of what is in the file: packages of npm, and libraries of Debian in the WebAssembly. */
function notices() {
  const packages = [
    "vscode-languageserver",
    "vscode-languageserver-protocol",
    "vscode-languageserver-textdocument",
    "vscode-languageserver-types",
    "vscode-jsonrpc",
  ].map((name) => {
    const path = `${folder}/node_modules/${name}`;
    const licence = readdirSync(path).find((file) => /^licen[sc]e/i.test(file));
    return [name, `${path}/${licence}`];
  });
  const libraries = [
    "libtinyxml2-dev",
    "libfmt-dev",
    "nlohmann-json3-dev",
    "libtomlplusplus-dev",
    "libxxhash-dev",
    "emscripten",
  ].map((name) => [name, `/usr/share/doc/${name}/copyright`]);
  return [...packages, ...libraries]
    .map(([name, file]) => `${name}\n\n${readFileSync(file, "utf8").trim()}\n`)
    .join(`\n${"-".repeat(80)}\n\n`);
}

const common = {
  absWorkingDir: folder,
  bundle: true,
  platform: "node",
  target: "node18",
  logLevel: "warning",
  loader: { ".wasm": "binary" },
};

const { values, positionals } = parseArgs({
  options: { tests: { type: "boolean", default: false } },
  allowPositionals: true,
});
if (positionals.length !== 1) {
  console.error("usage: build.mjs [--tests] FOLDER");
  process.exit(1);
}
const target = resolve(positionals[0]);
generate();
if (values.tests) {
  const sources = ["test", "bench"].flatMap((name) =>
    readdirSync(`${folder}/${name}`)
      .filter((file) => /\.test\.ts$|^bench\.ts$/.test(file))
      .map((file) => `${name}/${file}`),
  );
  await build({
    ...common,
    entryPoints: sources,
    outdir: target,
    outbase: ".",
    outExtension: { ".js": ".mjs" },
    format: "esm",
    packages: "external",
    sourcemap: "inline",
  });
} else {
  await build({
    ...common,
    entryPoints: ["src/main.ts"],
    outfile: `${target}/server.cjs`,
    format: "cjs",
    minify: true,
    legalComments: "none",
    banner: { js: "// The notices of what this file holds are in NOTICES.txt." },
  });
  writeFileSync(`${target}/NOTICES.txt`, notices());
  mkdirSync(`${target}/docs`, { recursive: true });
  for (const page of ["messages.md", "checks.md", "plant-findings.md"]) {
    copyFileSync(`${root}/docs/${page}`, `${target}/docs/${page}`);
  }
}
