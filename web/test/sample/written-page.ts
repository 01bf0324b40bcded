// Writes a report into the page as torvel-migrate does.

import { mkdirSync, readFileSync, writeFileSync } from "node:fs";
import { gzipSync } from "node:zlib";
import type { SampleReport } from "./report-builder.ts";

export const pageTemplate = "build/web/report-page.html";

function packed(data: unknown): string {
  return gzipSync(JSON.stringify(data), { level: 1 }).toString("base64");
}

function element(id: string, data: unknown): string {
  return `<script type="text/plain" id="${id}">${packed(data)}</script>\n`;
}

function filled(data: string): string {
  const [before, after] = readFileSync(pageTemplate, "utf8").split("<!--data-->");
  return `${before}${data}${after}`;
}

/** One file with all programs inside. */
export function writePage(file: string, { summary, details }: SampleReport): void {
  const programs = details.map((detail, number) => element(`program-${number}`, detail));
  writeFileSync(file, filled(element("summary", summary) + programs.join("")));
}

/** A folder with a file for each program. */
export function writeFolder(folder: string, { summary, details }: SampleReport): void {
  mkdirSync(`${folder}/programs`, { recursive: true });
  const data = element("summary", { ...summary, details: "files" });
  writeFileSync(`${folder}/index.html`, filled(data));
  details.forEach((detail, number) => {
    const call = `torvelProgram(${number}, "${packed(detail)}", "${summary.made}");\n`;
    writeFileSync(`${folder}/programs/${number}.js`, call);
  });
}
