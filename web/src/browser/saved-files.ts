// Everything that came of a run as one ZIP: outputs and logs in the folders of the programs, and the report.

import { Zip, ZipDeflate } from "fflate";
import type { Converter } from "../converter/instance.ts";
import { reportPage, reportText, type ReportFormat } from "../converter/report.ts";
import type { Questions } from "./messages.ts";
import { withWindowsLines } from "./windows-lines.ts";

const reportFiles: Readonly<Record<string, ReportFormat>> = {
  "report.json": "json",
  "findings.csv": "csv",
  "programs.csv": "programs-csv",
  "report.sarif": "sarif",
  "report-junit.xml": "junit",
};

export async function savedFiles(
  converter: Converter,
  { files, emptyPage, made, windowsLines }: Questions["save"][0],
): Promise<Blob> {
  const parts: Uint8Array<ArrayBuffer>[] = [];
  let failure: Error | null = null;
  const zip = new Zip((error, chunk) => {
    failure ??= error;
    parts.push(chunk as Uint8Array<ArrayBuffer>);
  });
  const add = (path: string, bytes: Uint8Array): void => {
    const entry = new ZipDeflate(path, { level: 6 });
    entry.mtime = made * 1000;
    zip.add(entry);
    entry.push(bytes, true);
  };
  for (const { path, bytes } of files) {
    const text = new Uint8Array(await bytes.arrayBuffer());
    add(path, windowsLines ? withWindowsLines(text) : text);
  }
  for (const [path, bytes] of reportPage(converter, emptyPage, made)) {
    add(`report/${path}`, bytes);
  }
  for (const [path, format] of Object.entries(reportFiles)) {
    add(`report/${path}`, reportText(converter, format));
  }
  zip.end();
  if (failure !== null) {
    throw failure;
  }
  return new Blob(parts, { type: "application/zip" });
}
