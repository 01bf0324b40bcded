// What the user has set, in one shape. A setting may be null or of another type than the manifest says.

import * as path from "node:path";
import * as vscode from "vscode";

export interface Settings {
  /** torvel-migrate: a path, or a name that is looked for as the system does it. */
  readonly migrateProgram: string;
  /** Whole paths, or empty. */
  readonly parameterFile: string;
  readonly projectFile: string;
  readonly referenceRows: string;
}

function textOf(value: unknown): string {
  return typeof value === "string" ? value.trim() : "";
}

/** A path that is not whole counts from the folder of the workspace. */
export function wholePath(setting: string, folder: string | undefined): string {
  return setting === "" || folder === undefined || path.isAbsolute(setting)
    ? setting
    : path.join(folder, setting);
}

export function folderOf(file: vscode.Uri | undefined): string | undefined {
  const folder =
    (file === undefined ? undefined : vscode.workspace.getWorkspaceFolder(file)) ??
    vscode.workspace.workspaceFolders?.[0];
  return folder?.uri.fsPath;
}

export function settingsFor(file: vscode.Uri | undefined): Settings {
  const section = vscode.workspace.getConfiguration("brannic", file ?? null);
  const folder = folderOf(file);
  const pathOf = (name: string) => wholePath(textOf(section.get(name)), folder);
  const program = textOf(section.get("migrateProgram"));
  return {
    migrateProgram: /[\\/]/.test(program)
      ? wholePath(program, folder)
      : program || "torvel-migrate",
    parameterFile: pathOf("parameterFile"),
    projectFile: pathOf("projectFile"),
    referenceRows: pathOf("referenceRows"),
  };
}
