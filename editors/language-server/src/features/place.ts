// What stands at a place of a document, as the programs that it is seen through have it.

import type { Position, Range } from "vscode-languageserver";
import type { Name, Program } from "../program.ts";
import type { Session } from "../session.ts";
import type { OpenDocument } from "../text/documents.ts";
import { rangeNow } from "./diagnostics.ts";

export interface Place {
  readonly program: Program;
  readonly document: OpenDocument;
  readonly file: number;
  /** As the program has it, and the line as the document has it. */
  readonly position: Position;
  readonly line: number;
}

/** The place in each program. */
export function placesAt(session: Session, document: OpenDocument, position: Position): Place[] {
  return session.programsWith(document.path).map((program) => {
    const version = program.versions.get(document.path) ?? document.version;
    return {
      program,
      document,
      file: program.fileAt(document.path) ?? 0,
      position: document.moves.backward(version, position),
      line: position.line,
    };
  });
}

/** The names at a place that a person can ask for, the shortest first. */
export function namesAt({ program, file, position }: Place): Name[] {
  const length = ({ range }: Name) => range.end.character - range.start.character;
  return program.namesAt(file, position).sort((a, b) => length(a) - length(b));
}

/** The range of a name as its file is now. */
export function rangeOf(session: Session, program: Program, name: Name): Range {
  return rangeNow(program, program.pathOf(name.file), session.documents, name.range);
}
