// The Torvel of a document, with the lines that it came from.

import { pathOfUri } from "../converter/files.ts";
import type { Program } from "../program.ts";
import type { Session } from "../session.ts";

export interface TorvelText {
  /** The program that was converted: another one if the document is a part. */
  readonly program: string;
  readonly text: string;
  /** By line of the text: the line of the document, from 0; -1: it came from another file. */
  readonly lines: number[];
}

/** Null: the document is not open, or could not be read yet. */
export async function torvelOf(session: Session, uri: string): Promise<TorvelText | null> {
  const path = pathOfUri(uri);
  if (path === undefined || session.documents.at(path) === undefined) {
    return null;
  }
  await session.settled();
  const program = session.programsWith(path)[0];
  return program === undefined ? null : textOf(session, program, path);
}

function textOf(session: Session, program: Program, path: string): TorvelText {
  const file = program.fileAt(path) ?? 0;
  const document = session.documents.at(path);
  const version = program.versions.get(path);
  const now = (line: number): number =>
    document === undefined || version === undefined
      ? line
      : document.moves.forward(version, { line, character: 0 }).line;
  const lines = program.lineMap().map((source) => (source.file === file ? now(source.line) : -1));
  return { program: program.path, text: program.output, lines };
}
