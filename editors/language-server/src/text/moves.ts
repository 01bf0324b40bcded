// Where a place of an older text is in a newer one, and the other way round. Lines and columns from 0, columns in units
// of UTF-16, as the protocol has them.

import type { Position, Range } from "vscode-languageserver";

/** The text from `begin` to `oldEnd` became that from `begin` to `newEnd`. */
export interface Edit {
  readonly begin: Position;
  readonly oldEnd: Position;
  readonly newEnd: Position;
}

export function isBefore(a: Position, b: Position): boolean {
  return a.line < b.line || (a.line === b.line && a.character < b.character);
}

export function editOf(range: Range, text: string): Edit {
  const { start: begin, end: oldEnd } = range;
  const lines = text.split(/\r\n|\r|\n/);
  const last = lines[lines.length - 1] ?? "";
  const newEnd =
    lines.length === 1
      ? { line: begin.line, character: begin.character + last.length }
      : { line: begin.line + lines.length - 1, character: last.length };
  return { begin, oldEnd, newEnd };
}

/** A place inside of what was replaced goes to its end. */
function moved(position: Position, begin: Position, from: Position, to: Position): Position {
  if (isBefore(position, begin) || (isSame(position, begin) && !isSame(begin, from))) {
    return position;
  }
  if (isBefore(position, from)) {
    return to;
  }
  return {
    line: position.line + to.line - from.line,
    character:
      position.line === from.line
        ? position.character + to.character - from.character
        : position.character,
  };
}

function isSame(a: Position, b: Position): boolean {
  return a.line === b.line && a.character === b.character;
}

/** The changes of a document by its versions. Old ones are forgotten. */
export class Moves {
  private edits: { version: number; edit: Edit }[] = [];
  /** The version that the first edit was made to. */
  private from = 0;

  constructor(version: number) {
    this.from = version;
  }

  add(version: number, edit: Edit): void {
    this.edits.push({ version, edit });
  }

  /** Nobody asks for anything older any more. */
  forgetBefore(version: number): void {
    const first = this.edits.findIndex((entry) => entry.version > version);
    this.edits.splice(0, first === -1 ? this.edits.length : first);
    this.from = Math.max(this.from, version);
  }

  /** A place of that version in the newest text. */
  forward(version: number, position: Position): Position {
    let at = position;
    for (const { version: made, edit } of this.edits) {
      if (made > version) {
        at = moved(at, edit.begin, edit.oldEnd, edit.newEnd);
      }
    }
    return at;
  }

  /** A place of the newest text in that version. */
  backward(version: number, position: Position): Position {
    let at = position;
    for (let i = this.edits.length - 1; i >= 0; --i) {
      const entry = this.edits[i];
      if (entry === undefined || entry.version <= version) {
        break;
      }
      at = moved(at, entry.edit.begin, entry.edit.newEnd, entry.edit.oldEnd);
    }
    return at;
  }

  forwardRange(version: number, range: Range): Range {
    return { start: this.forward(version, range.start), end: this.forward(version, range.end) };
  }
}
