// Keeps a program and its Torvel in step: the one that is looked at leads, the other one follows.

import * as vscode from "vscode";
import { sourceLine, torvelLine } from "./lines.ts";
import {
  sourceAddress,
  torvelAddress,
  torvelScheme,
  type TorvelDocuments,
} from "./torvel-documents.ts";

function editorOf(address: vscode.Uri): vscode.TextEditor | undefined {
  const wanted = address.toString();
  return vscode.window.visibleTextEditors.find(
    ({ document }) => document.uri.toString() === wanted,
  );
}

/** The other editor of the pair and the line there, for a line of this one. */
function counterpart(
  documents: TorvelDocuments,
  { document }: vscode.TextEditor,
  line: number,
): { editor: vscode.TextEditor; line: number } | undefined {
  const isTorvel = document.uri.scheme === torvelScheme;
  const address = isTorvel ? sourceAddress(document.uri) : torvelAddress(document.uri);
  const editor = editorOf(address);
  const lines = documents.linesOf(isTorvel ? document.uri : address);
  if (editor === undefined || lines === undefined) {
    return undefined;
  }
  const found = isTorvel ? sourceLine(lines, line) : torvelLine(lines, line);
  return found < 0 ? undefined : { editor, line: found };
}

function reveal(found: ReturnType<typeof counterpart>, type: vscode.TextEditorRevealType): void {
  found?.editor.revealRange(new vscode.Range(found.line, 0, found.line, 0), type);
}

export function keepInStep(documents: TorvelDocuments): vscode.Disposable {
  const mark = vscode.window.createTextEditorDecorationType({
    isWholeLine: true,
    backgroundColor: new vscode.ThemeColor("editor.rangeHighlightBackground"),
  });
  // What is moved here says so in its turn: only the editor that is worked in leads.
  const leads = (editor: vscode.TextEditor) => editor === vscode.window.activeTextEditor;
  return vscode.Disposable.from(
    mark,
    vscode.window.onDidChangeTextEditorVisibleRanges(({ textEditor, visibleRanges }) => {
      const first = visibleRanges[0]?.start.line;
      if (leads(textEditor) && first !== undefined) {
        reveal(counterpart(documents, textEditor, first), vscode.TextEditorRevealType.AtTop);
      }
    }),
    vscode.window.onDidChangeTextEditorSelection(({ textEditor, selections }) => {
      const line = selections[0]?.active.line;
      if (!leads(textEditor) || line === undefined) {
        return;
      }
      const found = counterpart(documents, textEditor, line);
      textEditor.setDecorations(mark, []);
      found?.editor.setDecorations(mark, [new vscode.Range(found.line, 0, found.line, 0)]);
      reveal(found, vscode.TextEditorRevealType.InCenterIfOutsideViewport);
    }),
  );
}
