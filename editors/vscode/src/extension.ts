// The extension: what the manifest names is put together here.

import * as vscode from "vscode";
import { convertProgram } from "./convert.ts";
import { explainCode, explanations, explanationScheme } from "./explain.ts";
import { openReport } from "./report.ts";
import { LanguageServer } from "./server.ts";
import { showTorvelBeside, TorvelDocuments, torvelScheme } from "./torvel-documents.ts";
import { keepInStep } from "./step.ts";

let server: LanguageServer | undefined;

export async function activate(context: vscode.ExtensionContext): Promise<void> {
  const log = vscode.window.createOutputChannel("Brannic");
  const started = new LanguageServer(context, log);
  server = started;
  const documents = new TorvelDocuments(started);
  context.subscriptions.push(
    log,
    documents,
    vscode.workspace.registerTextDocumentContentProvider(torvelScheme, documents),
    vscode.workspace.registerTextDocumentContentProvider(explanationScheme, explanations),
    vscode.commands.registerCommand("brannic.convertProgram", () => convertProgram(log)),
    vscode.commands.registerCommand("brannic.showTorvel", () => showTorvelBeside(documents)),
    vscode.commands.registerCommand("brannic.explainCode", (code?: unknown) =>
      explainCode(code, log),
    ),
    vscode.commands.registerCommand("brannic.openReport", () => openReport(context, log)),
    keepInStep(documents),
  );
  await started.start();
}

export async function deactivate(): Promise<void> {
  await server?.stop();
}
