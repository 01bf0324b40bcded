// The Torvel of a program as a document that nobody can edit, beside the program. Its address is that of the program
// with another scheme and ending.

import * as vscode from "vscode";
import type { LanguageServer, Torvel } from "./server.ts";

export const torvelScheme = "brannic-torvel";

/** The ending makes the document one of Torvel; the whole address of the program is kept behind it. */
export function torvelAddress(source: vscode.Uri): vscode.Uri {
  return vscode.Uri.from({
    scheme: torvelScheme,
    path: source.path.replace(/\.[^./]*$/, "") + ".torvel",
    query: source.toString(),
  });
}

export function sourceAddress(torvel: vscode.Uri): vscode.Uri {
  return vscode.Uri.parse(torvel.query, true);
}

export class TorvelDocuments implements vscode.TextDocumentContentProvider, vscode.Disposable {
  private readonly changed = new vscode.EventEmitter<vscode.Uri>();
  readonly onDidChange = this.changed.event;
  private readonly lines = new Map<string, readonly number[]>();
  private readonly subscriptions: vscode.Disposable[];

  private timer: NodeJS.Timeout | undefined;

  constructor(private readonly server: LanguageServer) {
    // What a program includes may have changed too, so every Torvel that is shown is asked for again.
    const isProgram = ({ languageId }: vscode.TextDocument) => languageId === "brannic";
    this.subscriptions = [
      this.changed,
      vscode.workspace.onDidChangeTextDocument(({ document }) => {
        if (isProgram(document)) {
          this.refreshSoon();
        }
      }),
      vscode.workspace.onDidSaveTextDocument((document) => {
        if (isProgram(document)) {
          this.refreshSoon();
        }
      }),
      vscode.workspace.onDidChangeConfiguration((event) => {
        if (event.affectsConfiguration("brannic")) {
          this.refreshSoon();
        }
      }),
      vscode.workspace.onDidCloseTextDocument(({ uri }) => {
        this.lines.delete(uri.toString());
      }),
    ];
  }

  /** When nothing more is typed for a while. */
  private refreshSoon(): void {
    clearTimeout(this.timer);
    this.timer = setTimeout(() => {
      for (const { uri } of vscode.workspace.textDocuments) {
        if (uri.scheme === torvelScheme) {
          this.changed.fire(uri);
        }
      }
    }, 300);
  }

  async provideTextDocumentContent(
    address: vscode.Uri,
    cancel: vscode.CancellationToken,
  ): Promise<string> {
    let torvel: Torvel;
    try {
      torvel = await this.server.torvelOf(sourceAddress(address), cancel);
    } catch (error) {
      this.lines.delete(address.toString());
      return `// ${error instanceof Error ? error.message : String(error)}\n`;
    }
    this.lines.set(address.toString(), torvel.lines);
    return torvel.text;
  }

  /** For each line of the document its line in the source. */
  linesOf(address: vscode.Uri): readonly number[] | undefined {
    return this.lines.get(address.toString());
  }

  dispose(): void {
    clearTimeout(this.timer);
    vscode.Disposable.from(...this.subscriptions).dispose();
  }
}

export async function showTorvelBeside(documents: TorvelDocuments): Promise<void> {
  const editor = vscode.window.activeTextEditor;
  if (editor?.document.languageId !== "brannic") {
    void vscode.window.showInformationMessage("Open a Brannic program first.");
    return;
  }
  const document = await vscode.workspace.openTextDocument(torvelAddress(editor.document.uri));
  await vscode.window.showTextDocument(document, {
    viewColumn: vscode.ViewColumn.Beside,
    preserveFocus: true,
    preview: true,
  });
  if (documents.linesOf(document.uri) === undefined) {
    void vscode.window.showWarningMessage("There is no Torvel of this program to show.");
  }
}
