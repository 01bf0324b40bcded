// torvel-migrate and the server find the same in the example plant: with its project file, in every program.

import assert from "node:assert/strict";
import { execFileSync } from "node:child_process";
import { cpSync, existsSync, readFileSync } from "node:fs";
import { pathToFileURL } from "node:url";
import { test } from "node:test";
import type { Diagnostic } from "vscode-languageserver";
import { Client, Folder } from "./client.ts";

interface Report {
  readonly programs: readonly {
    readonly path: string;
    readonly findings: readonly {
      readonly file: string;
      readonly line: number;
      readonly column: number;
      readonly lastColumn: number;
      readonly code: string;
      readonly todo: string;
      readonly severity: string;
      readonly text: string;
      readonly includedFrom: readonly { readonly file: string; readonly line: number }[];
    }[];
  }[];
}

const migrate = process.env["TORVEL_MIGRATE"] ?? "";

test(
  "the findings of the plant",
  { skip: !existsSync(migrate) && "torvel-migrate is not built" },
  async () => {
    const folder = new Folder();
    cpSync("examples/plant", folder.file("plant"), { recursive: true });
    const project = folder.file("plant/migration.toml");
    const json = folder.file("report.json");
    execFileSync(migrate, ["convert", "--project", project], { stdio: "ignore" });
    execFileSync(migrate, ["report", "--project", project, "--json", json], { stdio: "ignore" });
    const report = JSON.parse(readFileSync(json, "utf8")) as Report;

    const expected = new Set<string>();
    for (const { findings } of report.programs) {
      for (const finding of findings) {
        const columns = finding.column === 0 ? "" : `${finding.column - 1}-${finding.lastColumn}`;
        expected.add(
          `${finding.file}:${Math.max(finding.line, 1)} ${columns} ${finding.code} ${finding.todo} ${finding.severity} ${finding.text}`,
        );
      }
    }
    assert.ok(expected.size >= 30, "the plant has findings");
    assert.equal(report.programs.length, 40);

    const fileOf = (uri: string) =>
      decodeURI(uri.slice(pathToFileURL(folder.file("plant/")).href.length));
    const client = await Client.start(folder.file("plant"));
    const told = new Set<string>();
    const chains = new Set<string>();
    for (const { path } of report.programs) {
      const file = folder.file(`plant/${path}`);
      const uri = pathToFileURL(file).href;
      client.open(uri, readFileSync(file, "latin1"));
    }
    // The answer comes when all are converted.
    const first = pathToFileURL(folder.file(`plant/${report.programs[0]?.path}`)).href;
    await client.request("brannic.torvel", { uri: first });
    const columnsKnown = new Set([...expected].map((key) => key.replace(/ \d+-\d+ /, " * ")));
    for (const [uri, { diagnostics }] of client.published) {
      const file = fileOf(uri);
      for (const diagnostic of diagnostics) {
        const key = (columns: string) => keyOf(file, diagnostic, columns);
        const { start, end } = diagnostic.range;
        const exact = key(`${start.character}-${end.character}`);
        told.add(columnsKnown.has(key("*")) ? exact : key(""));
        diagnostic.relatedInformation?.forEach(({ location }) => chains.add(location.uri));
      }
    }
    assert.deepEqual([...told].sort(), [...expected].sort());
    // A finding that several programs have is told once, with the way from one of them.
    const ways = report.programs.flatMap(({ findings }) => findings.flatMap((f) => f.includedFrom));
    const included = new Set(ways.map((from) => from.file));
    assert.ok(chains.size > 0);
    for (const uri of chains) {
      assert.ok(included.has(fileOf(uri)), uri);
    }
    await client.stop();
    folder.remove();
  },
);

/** Whole files are told at their first line, and further lines behind the text. */
function keyOf(file: string, { range, code, message, data }: Diagnostic, columns: string): string {
  const { todo, severity } = data as { todo: string; severity: string };
  const text = message.replace(/ \(also in lines [^)]*\)$/, "");
  return `${file}:${range.start.line + 1} ${columns} ${code} ${todo} ${severity} ${text}`;
}
