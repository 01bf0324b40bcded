// Builds the page that `torvel-migrate` puts its data into: node web/build.mjs FILE
// and the page that converts programs itself, over the WebAssembly of a folder: node web/build.mjs FILE BROWSER-FILE FOLDER
//
// A page is one file: script and styles stand inside, and its policy allows these and, for reports, files of programs
// beside it. In the place of the line <!--data--> the program writes the data. script/build-web makes what it needs first.

import { createHash } from "node:crypto";
import { existsSync, mkdirSync, readFileSync, writeFileSync } from "node:fs";
import { dirname, resolve } from "node:path";
import { fileURLToPath } from "node:url";
import { gzipSync } from "node:zlib";
import { build } from "esbuild";

const folder = dirname(fileURLToPath(import.meta.url));

async function bundled(entry, loader) {
  const { outputFiles } = await build({
    absWorkingDir: folder,
    entryPoints: [entry],
    bundle: true,
    minify: true,
    charset: "ascii",
    format: "iife",
    jsx: "automatic",
    jsxImportSource: "preact",
    target: ["chrome109", "firefox115", "safari16.4"],
    logLevel: "warning",
    write: false,
    ...loader,
  });
  return outputFiles[0].text.trim();
}

const hashOf = (text) => `'sha256-${createHash("sha256").update(text).digest("base64")}'`;

/** The template with its holes filled. A text that holds "</script" or "$&" is taken as it is. */
function filled(template, values) {
  return template.replace(/\{\{(\w+)\}\}/g, (_, name) => values[name]);
}

/** A licence of what a page holds, as text of a comment. */
function licence(name, file) {
  const text = readFileSync(file, "utf8").trim().replaceAll("--", "- -");
  return `This page holds ${name}.\n\n${text}`;
}

const notice = () => licence("Preact", `${folder}/node_modules/preact/LICENSE`);

/** Script and styles of a page, in its template. */
async function page(template, script, styles, values) {
  const code = await bundled(script);
  const style = await bundled(styles);
  if (/<\/script|<!--/i.test(code) || /<\/style/i.test(style)) {
    throw new Error("The page's own script would end its element.");
  }
  return filled(readFileSync(`${folder}/${template}`, "utf8"), {
    script: code,
    styles: style,
    scriptHash: hashOf(code),
    styleHash: hashOf(style),
    ...values,
  });
}

export async function reportPage() {
  const html = await page("src/page.html", "src/main.ts", "src/style/page.css", {
    notice: notice(),
  });
  if (html.split("<!--data-->").length !== 2) {
    throw new Error("The page has to have one place for the data.");
  }
  return html;
}

/** As reports are packed: base64 of gzip. */
const packed = (bytes) => gzipSync(bytes, { level: 9 }).toString("base64");

/** What Debian's packages say of what the WebAssembly holds. */
const wasmNotices = {
  "the runtime of Emscripten": "emscripten",
  tinyxml2: "libtinyxml2-dev",
  fmt: "libfmt-dev",
  "toml++": "libtomlplusplus-dev",
  xxHash: "libxxhash-dev",
  zlib: "zlib1g-dev",
};

function browserNotice() {
  const fromDebian = Object.entries(wasmNotices).map(([name, debian]) => [
    name,
    `/usr/share/doc/${debian}/copyright`,
  ]);
  return [
    notice(),
    licence("fflate", `${folder}/node_modules/fflate/LICENSE`),
    ...fromDebian.filter(([, file]) => existsSync(file)).map(([name, file]) => licence(name, file)),
  ].join("\n\n");
}

export async function browserPage(report, wasmFolder) {
  const worker = await bundled("src/browser/worker.ts", {
    alias: { "torvel-converter-glue": `${wasmFolder}/converter.js` },
  });
  return page("src/browser.html", "src/browser/main.tsx", "src/style/browser.css", {
    worker: packed(worker),
    converter: packed(readFileSync(`${wasmFolder}/converter.wasm`)),
    reportPage: packed(report),
    notice: browserNotice(),
  });
}

function write(file, text) {
  mkdirSync(dirname(file), { recursive: true });
  writeFileSync(file, text);
  console.log(`${file}: ${text.length} bytes`);
}

if (process.argv[1] === fileURLToPath(import.meta.url)) {
  const [, , file, browserFile, wasmFolder] = process.argv;
  const report = await reportPage();
  write(file, report);
  if (browserFile !== undefined) {
    write(browserFile, await browserPage(report, resolve(wasmFolder)));
  }
}
