// Shows what torvel-migrate says of a code: that of the finding under the cursor, or one that is typed.

import * as vscode from "vscode";
import { failureOf, runMigrate } from "./migrate.ts";
import { folderOf, settingsFor } from "./settings.ts";

export const explanationScheme = "brannic-explanation";

const texts = new Map<string, string>();

export const explanations: vscode.TextDocumentContentProvider = {
  provideTextDocumentContent: ({ path }) => texts.get(path) ?? "",
};

/** Codes are words of small letters joined by "-". What a finding has instead may be a number, or nothing. */
export function codeOf({ code }: Pick<vscode.Diagnostic, "code">): string | undefined {
  const value = typeof code === "object" ? code.value : code;
  return typeof value === "string" && /^[a-z0-9]+(?:-[a-z0-9]+)*$/.test(value) ? value : undefined;
}

function codeUnderCursor(): string | undefined {
  const editor = vscode.window.activeTextEditor;
  if (editor === undefined) {
    return undefined;
  }
  const { line } = editor.selection.active;
  return vscode.languages
    .getDiagnostics(editor.document.uri)
    .filter(({ range }) => range.start.line <= line && line <= range.end.line)
    .map(codeOf)
    .find((code) => code !== undefined);
}

export async function explainCode(given: unknown, log: vscode.OutputChannel): Promise<void> {
  const code =
    (typeof given === "string" ? codeOf({ code: given }) : codeUnderCursor()) ??
    (await vscode.window.showInputBox({
      prompt: "The code of a message or a check",
      placeHolder: "value-cut",
      validateInput: (text) =>
        codeOf({ code: text }) === undefined ? "Small letters, digits and -" : undefined,
    }));
  if (code === undefined) {
    return;
  }
  const file = vscode.window.activeTextEditor?.document.uri;
  const { migrateProgram, projectFile } = settingsFor(file);
  const project = projectFile === "" ? [] : ["--project", projectFile];
  const outcome = await runMigrate(
    migrateProgram,
    ["explain", ...project, code],
    folderOf(file),
    log,
  );
  if (outcome.status !== 0) {
    void vscode.window.showErrorMessage(failureOf(outcome, migrateProgram));
    return;
  }
  const address = vscode.Uri.from({ scheme: explanationScheme, path: `/${code}.txt` });
  texts.set(address.path, outcome.output);
  await vscode.window.showTextDocument(await vscode.workspace.openTextDocument(address), {
    viewColumn: vscode.ViewColumn.Beside,
    preview: true,
  });
}
