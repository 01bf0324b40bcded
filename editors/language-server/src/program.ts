// A program as it was converted: where its names stand, and what its lines became.

import type { Position, Range } from "vscode-languageserver";
import type { NamesAnswer } from "./converter/messages.ts";
import { Result } from "./result.ts";

/** In the order of NamePlace::Kind in src/base/name-places.h. */
const kinds = [
  "define",
  "lostDefine",
  "macro",
  "name",
  "variable",
  "label",
  "function",
  "functionEnd",
  "item",
  "statement",
  "opens",
  "continues",
  "closes",
  "opensConditional",
  "continuesConditional",
  "closesConditional",
] as const;

export type NameKind = (typeof kinds)[number] | "include";

const includeKind = 64;
const nameRow = 8;
const lineRow = 5;

export interface Name {
  readonly kind: NameKind;
  readonly isDefinition: boolean;
  readonly file: number;
  readonly range: Range;
  readonly name: string;
  /** The number of the name among the program's texts. */
  readonly text: number;
  /** What it stands for. */
  readonly value: string;
  /** Of an include: the file that it leads to. */
  readonly target: number;
}

/** What a line of a file became: lines of the output from 0. */
export interface LineOfOutput {
  readonly output: number;
  readonly count: number;
  readonly isConverted: boolean;
}

/** What kinds share their names. */
function family(kind: NameKind): string {
  return kind === "define" || kind === "lostDefine" || kind === "macro" || kind === "name"
    ? "name"
    : kind;
}

export class Program extends Result {
  /** By file: the numbers of its first row and of the one behind its last. */
  private readonly rowsOfFile: readonly (readonly [number, number])[];

  constructor(
    result: Result,
    private readonly details: NamesAnswer,
  ) {
    super(result.answer, result.versions);
    this.rowsOfFile = this.findFiles();
  }

  get output(): string {
    return this.details.output;
  }

  /** Those of a file in the order of their places. */
  *namesOf(file: number): Iterable<Name> {
    const [first, last] = this.rowsOfFile[file] ?? [0, 0];
    for (let row = first; row < last; ++row) {
      yield this.name(row);
    }
  }

  /** Those of a line. */
  namesIn(file: number, line: number): Name[] {
    const [first, last] = this.rowsOfFile[file] ?? [0, 0];
    const names: Name[] = [];
    for (let row = this.firstRow(first, last, line); row < last; ++row) {
      if (this.number(row, 3) !== line) {
        break;
      }
      names.push(this.name(row));
    }
    return names;
  }

  /** The names at a place; those that are a whole line are not. */
  namesAt(file: number, { line, character }: Position): Name[] {
    return this.namesIn(file, line).filter(
      ({ range }) =>
        range.start.character <= character &&
        character <= range.end.character &&
        range.end.character > 0,
    );
  }

  /** All places of a name, in any file; the word of a statement is none. Going through all rows is quicker than an index
   * that is new after every key. */
  placesOf(wanted: Name): Name[] {
    const { names } = this.details;
    const found: Name[] = [];
    if (wanted.kind === "statement" || wanted.kind === "item") {
      return found;
    }
    for (let at = 0; at < names.length; at += nameRow) {
      if (names[at + 6] === wanted.text && names[at + 5] !== 0) {
        const name = this.name(at / nameRow);
        if (family(name.kind) === family(wanted.kind)) {
          found.push(name);
        }
      }
    }
    return found;
  }

  /** Where a name is defined; where it is spelled in another case if it is not; where it stands first if it is a
   * variable without a declaration. */
  definitionsOf(wanted: Name): Name[] {
    const places = this.placesOf(wanted);
    const definitions = places.filter(({ isDefinition }) => isDefinition);
    if (definitions.length > 1 && wanted.kind === "label") {
      const here = definitions.filter((label) => this.areInOneFunction(label, wanted));
      return here.length > 0 ? here : definitions;
    }
    if (definitions.length > 0) {
      return definitions;
    }
    if (wanted.kind === "variable") {
      return places.slice(0, 1);
    }
    const lower = wanted.name.toLowerCase();
    return this.definitions(family(wanted.kind)).filter(({ name }) => name.toLowerCase() === lower);
  }

  /** A label of a subroutine is another one than that of the same name elsewhere. */
  private areInOneFunction(a: Name, b: Name): boolean {
    return a.file === b.file && this.functionAt(a) === this.functionAt(b);
  }

  /** The line of the subroutine that a name stands in; -1: it stands in none. */
  private functionAt({ file, range }: Name): number {
    let line = -1;
    for (const name of this.namesOf(file)) {
      if (name.range.start.line > range.start.line) {
        break;
      }
      if (name.kind === "functionEnd") {
        line = -1;
      } else if (name.kind === "function" && name.isDefinition) {
        line = name.range.start.line;
      }
    }
    return line;
  }

  variableNames(): Set<string> {
    const found = new Set<string>();
    const { names, texts } = this.details;
    const variable = kinds.indexOf("variable");
    for (let at = 0; at < names.length; at += nameRow) {
      if (names[at] === variable) {
        found.add(texts[names[at + 6] ?? 0] ?? "");
      }
    }
    return found;
  }

  /** All definitions, or those of a family. */
  definitions(of?: string): Name[] {
    const found: Name[] = [];
    const { names } = this.details;
    for (let row = 0; row * nameRow < names.length; ++row) {
      if (names[row * nameRow + 1] === 1) {
        const name = this.name(row);
        if (of === undefined || family(name.kind) === of) {
          found.push(name);
        }
      }
    }
    return found;
  }

  /** What a line of a file became, once for each time that the file is included. */
  outputOf(file: number, line: number): LineOfOutput[] {
    const { lines } = this.details;
    const found: LineOfOutput[] = [];
    for (let at = 0; at < lines.length; at += lineRow) {
      if (lines[at + 1] === line && lines[at] === file) {
        const [output = 0, count = 0, isConverted] = lines.subarray(at + 2, at + lineRow);
        found.push({ output, count, isConverted: isConverted === 1 });
      }
    }
    return found;
  }

  textOf({ output, count }: LineOfOutput): string[] {
    const { output: text } = this.details;
    let begin = 0;
    for (let line = 0; line < output; ++line) {
      begin = text.indexOf("\n", begin) + 1;
    }
    let end = begin;
    for (let line = 0; line < count; ++line) {
      end = text.indexOf("\n", end) + 1;
    }
    return text.slice(begin, Math.max(end - 1, begin)).split("\n");
  }

  /** By line of the output: the file and the line in it that it came from. */
  lineMap(): { file: number; line: number }[] {
    const { lines } = this.details;
    const map: { file: number; line: number }[] = [];
    for (let at = 0; at < lines.length; at += lineRow) {
      const source = { file: lines[at] ?? 0, line: lines[at + 1] ?? 0 };
      for (let count = lines[at + 3] ?? 0; count > 0; --count) {
        map.push(source);
      }
    }
    return map;
  }

  private number(row: number, column: number): number {
    return this.details.names[row * nameRow + column] ?? 0;
  }

  private name(row: number): Name {
    const kind = this.number(row, 0);
    const line = this.number(row, 3);
    const value = this.number(row, 7);
    const isInclude = kind === includeKind;
    return {
      kind: isInclude ? "include" : (kinds[kind] ?? "statement"),
      isDefinition: this.number(row, 1) === 1,
      file: this.number(row, 2),
      range: {
        start: { line, character: this.number(row, 4) },
        end: { line, character: this.number(row, 5) },
      },
      name: this.details.texts[this.number(row, 6)] ?? "",
      text: this.number(row, 6),
      value: isInclude ? "" : (this.details.texts[value] ?? ""),
      target: isInclude ? value : -1,
    };
  }

  private findFiles(): [number, number][] {
    const rows = this.answer.files.map((): [number, number] => [0, 0]);
    const count = this.details.names.length / nameRow;
    for (let row = 0; row < count; ++row) {
      const range = rows[this.number(row, 2)];
      if (range !== undefined) {
        range[0] = range[1] === 0 ? row : range[0];
        range[1] = row + 1;
      }
    }
    return rows;
  }

  /** The first row of a file whose line is not in front of `line`. */
  private firstRow(first: number, last: number, line: number): number {
    let low = first;
    let high = last;
    while (low < high) {
      const middle = (low + high) >> 1;
      if (this.number(middle, 3) < line) {
        low = middle + 1;
      } else {
        high = middle;
      }
    }
    return low;
  }
}
