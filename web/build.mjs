// Builds the page that `torvel-migrate` puts its data into: node web/build.mjs FILE
//
// The page is one file: script and styles stand inside, and its policy allows these and files of programs beside it. In
// the place of the line <!--data--> the program writes the data. script/build-web makes what it needs first.

import { createHash } from "node:crypto";
import { mkdirSync, readFileSync, writeFileSync } from "node:fs";
import { dirname } from "node:path";
import { fileURLToPath } from "node:url";
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

/** The licence of what the script holds, as text of a comment. */
function notice() {
  const text = readFileSync(`${folder}/node_modules/preact/LICENSE`, "utf8").trim();
  if (text.includes("--")) {
    throw new Error("The licence of Preact would end its comment.");
  }
  return `The script of this page holds Preact.\n\n${text}`;
}

export async function reportPage() {
  const script = await bundled("src/main.ts");
  const styles = await bundled("src/style/page.css");
  if (/<\/script|<!--/i.test(script) || /<\/style/i.test(styles)) {
    throw new Error("The page's own script would end its element.");
  }
  const page = filled(readFileSync(`${folder}/src/page.html`, "utf8"), {
    script,
    styles,
    notice: notice(),
    scriptHash: hashOf(script),
    styleHash: hashOf(styles),
  });
  if (page.split("<!--data-->").length !== 2) {
    throw new Error("The page has to have one place for the data.");
  }
  return page;
}

if (process.argv[1] === fileURLToPath(import.meta.url)) {
  const file = process.argv[2];
  const page = await reportPage();
  mkdirSync(dirname(file), { recursive: true });
  writeFileSync(file, page);
  console.log(`${file}: ${page.length} bytes`);
}
