// The documents that the editor has open: texts, versions, what was changed, and the bytes for the converter.

import { readFileSync } from "node:fs";
import type {
  DidChangeTextDocumentParams,
  DidOpenTextDocumentParams,
  Range,
  TextDocumentContentChangeEvent,
} from "vscode-languageserver";
import { TextDocument } from "vscode-languageserver-textdocument";
import { nativePath, pathOfUri } from "../converter/files.ts";
import { DocumentEncoding } from "./encoding.ts";
import { editOf, Moves } from "./moves.ts";

export class OpenDocument {
  readonly moves: Moves;
  private encoding: DocumentEncoding;
  private includes: string;

  constructor(
    readonly path: string,
    private document: TextDocument,
  ) {
    this.moves = new Moves(document.version);
    this.encoding = new DocumentEncoding(fileAt(path));
    this.includes = includesIn(document.getText());
  }

  get uri(): string {
    return this.document.uri;
  }
  get version(): number {
    return this.document.version;
  }
  get text(): TextDocument {
    return this.document;
  }

  /** The file is another one now. Whether it includes others than before. */
  wasSaved(): boolean {
    this.encoding = new DocumentEncoding(fileAt(this.path));
    const before = this.includes;
    this.includes = includesIn(this.document.getText());
    return before !== this.includes;
  }

  bytes(): Uint8Array {
    return this.encoding.encode(this.document.getText());
  }

  /** A line without its end; empty if there is none. */
  line(number: number): string {
    const start = { line: number, character: 0 };
    const text = this.document.getText({ start, end: { line: number + 1, character: 0 } });
    return text.replace(/[\r\n]+$/, "");
  }

  change(changes: readonly TextDocumentContentChangeEvent[], version: number): void {
    for (const change of changes) {
      const range = "range" in change ? this.inside(change.range) : this.whole();
      this.moves.add(version, editOf(range, change.text));
      this.document = TextDocument.update(this.document, [{ range, text: change.text }], version);
    }
  }

  private whole(): Range {
    return { start: { line: 0, character: 0 }, end: this.document.positionAt(Infinity) };
  }

  /** A range that an editor says, within the text. */
  private inside({ start, end }: Range): Range {
    const first = this.document.offsetAt(start);
    const last = Math.max(this.document.offsetAt(end), first);
    return { start: this.document.positionAt(first), end: this.document.positionAt(last) };
  }
}

function includesIn(text: string): string {
  return (text.match(/^[ \t]*#include.*$/gim) ?? []).join("\n");
}

function fileAt(path: string): Uint8Array | undefined {
  try {
    return readFileSync(nativePath(path));
  } catch {
    return undefined;
  }
}

export class Documents {
  private readonly byPath = new Map<string, OpenDocument>();

  open({ textDocument }: DidOpenTextDocumentParams): OpenDocument | undefined {
    const path = pathOfUri(textDocument.uri);
    if (path === undefined) {
      return undefined;
    }
    const { uri, languageId, version, text } = textDocument;
    const document = new OpenDocument(path, TextDocument.create(uri, languageId, version, text));
    this.byPath.set(path, document);
    return document;
  }

  /** Undefined: no such document is open, or the change is an old one. */
  change({ textDocument, contentChanges }: DidChangeTextDocumentParams): OpenDocument | undefined {
    const document = this.get(textDocument.uri);
    if (document === undefined || textDocument.version <= document.version) {
      return undefined;
    }
    document.change(contentChanges, textDocument.version);
    return document;
  }

  close(uri: string): OpenDocument | undefined {
    const document = this.get(uri);
    if (document !== undefined) {
      this.byPath.delete(document.path);
    }
    return document;
  }

  get(uri: string): OpenDocument | undefined {
    const path = pathOfUri(uri);
    return path === undefined ? undefined : this.byPath.get(path);
  }
  at(path: string): OpenDocument | undefined {
    return this.byPath.get(path);
  }
  all(): Iterable<OpenDocument> {
    return this.byPath.values();
  }
}
