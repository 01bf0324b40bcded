// Converts the program that is open, by torvel-migrate: with the project where one is named, by itself otherwise.

import * as path from "node:path";
import * as vscode from "vscode";
import { failureOf, runMigrate } from "./migrate.ts";
import { settingsFor, type Settings } from "./settings.ts";

export function convertArguments(file: string, { projectFile, parameterFile }: Settings): string[] {
  if (projectFile !== "") {
    return ["convert", "--project", projectFile, file];
  }
  const output = path.join(path.dirname(file), "converted");
  const parameters = parameterFile === "" ? [] : ["-p", parameterFile];
  return ["convert", file, "-o", output, ...parameters];
}

export async function convertProgram(log: vscode.OutputChannel): Promise<void> {
  const document = vscode.window.activeTextEditor?.document;
  if (document?.languageId !== "brannic" || document.uri.scheme !== "file") {
    void vscode.window.showInformationMessage("Open a Brannic program of this computer first.");
    return;
  }
  if (document.isDirty && !(await document.save())) {
    return;
  }
  const settings = settingsFor(document.uri);
  const { migrateProgram, projectFile } = settings;
  const file = document.uri.fsPath;
  const folder = path.dirname(projectFile === "" ? file : projectFile);
  const outcome = await runMigrate(migrateProgram, convertArguments(file, settings), folder, log);
  // 3: converted, with findings that are not in the baseline.
  const isDone = outcome.status === 0 || outcome.status === 3;
  const [first = "Converted."] = outcome.output.trim().split("\n");
  const answer = isDone
    ? await vscode.window.showInformationMessage(first, "Details")
    : await vscode.window.showErrorMessage(failureOf(outcome, migrateProgram), "Details");
  if (answer === "Details") {
    log.show();
  }
}
