// Writes the report page of the project and opens it in the browser.

import { mkdir } from "node:fs/promises";
import * as path from "node:path";
import * as vscode from "vscode";
import { failureOf, runMigrate } from "./migrate.ts";
import { folderOf, settingsFor } from "./settings.ts";

export async function openReport(
  { storageUri, globalStorageUri }: vscode.ExtensionContext,
  log: vscode.OutputChannel,
): Promise<void> {
  const file = vscode.window.activeTextEditor?.document.uri;
  const { migrateProgram, projectFile } = settingsFor(file);
  const storage = (storageUri ?? globalStorageUri).fsPath;
  await mkdir(storage, { recursive: true });
  const page = path.join(storage, "report.html");
  const project = projectFile === "" ? [] : ["--project", projectFile];
  const folder = projectFile === "" ? folderOf(file) : path.dirname(projectFile);
  const outcome = await runMigrate(
    migrateProgram,
    ["report", ...project, "--html", page],
    folder,
    log,
  );
  if (outcome.status === 0) {
    await vscode.env.openExternal(vscode.Uri.file(page));
  } else {
    void vscode.window.showErrorMessage(failureOf(outcome, migrateProgram));
  }
}
