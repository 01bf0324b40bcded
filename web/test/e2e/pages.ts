// The pages that tests open.

import { mkdirSync } from "node:fs";
import { pathToFileURL } from "node:url";
import type { SampleReport } from "../sample/report-builder.ts";
import { writeFolder, writePage } from "../sample/written-page.ts";

const folder = "build/web/pages";

export function pageOf(name: string, report: SampleReport): string {
  mkdirSync(folder, { recursive: true });
  writePage(`${folder}/${name}.html`, report);
  return pathToFileURL(`${folder}/${name}.html`).href;
}

export function folderPageOf(name: string, report: SampleReport): string {
  writeFolder(`${folder}/${name}`, report);
  return pathToFileURL(`${folder}/${name}/index.html`).href;
}
