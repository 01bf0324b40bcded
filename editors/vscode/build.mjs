// Builds the extension and packs it: node editors/vscode/build.mjs BUILD
//
// BUILD/vscode becomes what is packed, BUILD/brannic-torvel-VERSION.vsix the package. The language server is in it if it
// stands in BUILD/language-server: its program, and what that reads beside it. The same sources give the same bytes;
// SOURCE_DATE_EPOCH is the date of the files.

process.env.TZ = "UTC"; // dates in a package have no zone

import { cpSync, existsSync, mkdirSync, readFileSync, rmSync, writeFileSync } from "node:fs";
import { dirname, resolve } from "node:path";
import { fileURLToPath } from "node:url";
import { createVSIX } from "@vscode/vsce";
import { build } from "esbuild";
import { extensionFiles, writeFiles } from "../grammar/generate.mjs";
import { readPackage, writePackage } from "./zip.mjs";

const folder = dirname(fileURLToPath(import.meta.url));
const buildFolder = resolve(process.argv[2]);
const staged = `${buildFolder}/vscode`;

/** The one file of the extension's program, and the packages that it is made of. */
async function bundle() {
  const { metafile } = await build({
    absWorkingDir: folder,
    entryPoints: ["src/extension.ts"],
    outfile: `${staged}/out/extension.js`,
    bundle: true,
    minify: true,
    charset: "ascii",
    legalComments: "none",
    platform: "node",
    format: "cjs",
    target: "node18",
    external: ["vscode"],
    metafile: true,
    logLevel: "warning",
  });
  const packages = Object.keys(metafile.inputs).flatMap(
    (path) => /^.*node_modules\/(?:@[^/]+\/)?[^/]+/.exec(path) ?? [],
  );
  return [...new Set(packages)].sort();
}

function licenceOf(path) {
  const { name, version, license } = JSON.parse(
    readFileSync(`${folder}/${path}/package.json`, "utf8"),
  );
  const file = ["LICENSE", "License.txt", "LICENSE.md", "license"].find((candidate) =>
    existsSync(`${folder}/${path}/${candidate}`),
  );
  if (file === undefined) {
    throw new Error(`The licence of ${name} was not found.`);
  }
  const text = readFileSync(`${folder}/${path}/${file}`, "utf8").trim();
  return `${name} ${version} (${license})\n\n${text.replaceAll("\r\n", "\n")}\n`;
}

/** The manifest without what is for building only. */
function packedManifest() {
  const {
    private: _,
    dependencies,
    devDependencies,
    overrides,
    engines,
    ...manifest
  } = JSON.parse(readFileSync(`${folder}/package.json`, "utf8"));
  return { ...manifest, engines: { vscode: engines.vscode } };
}

rmSync(staged, { recursive: true, force: true });
mkdirSync(staged, { recursive: true });
const packages = await bundle();
const manifest = packedManifest();
writeFileSync(`${staged}/package.json`, JSON.stringify(manifest, null, 2) + "\n");
writeFileSync(
  `${staged}/THIRD-PARTY-NOTICES.txt`,
  `The program of this extension holds these packages.\n\n${packages.map(licenceOf).join(`\n${"-".repeat(72)}\n\n`)}`,
);
cpSync(`${folder}/README.md`, `${staged}/README.md`);
cpSync(`${folder}/../../LICENSE`, `${staged}/LICENSE.txt`);
writeFiles(staged, extensionFiles());
const server = `${buildFolder}/language-server`;
if (existsSync(server)) {
  cpSync(server, `${staged}/server`, { recursive: true });
} else {
  console.log("The language server is not built: the extension is packed without it.");
}

const file = `${buildFolder}/${manifest.name}-${manifest.version}.vsix`;
await createVSIX({
  cwd: staged,
  packagePath: file,
  dependencies: false,
  allowMissingRepository: true,
  rewriteRelativeLinks: false,
});
await writePackage(file, await readPackage(file));
