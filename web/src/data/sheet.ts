// Source and output side by side: a row for each line of either, in the order of the output.

import type { MappedLines, ProgramDetail } from "./format.ts";

/** What a person did to a line of the output. */
export const changes = ["", "added", "removed"] as const;

export interface Sheet {
  readonly rowCount: number;
  /** By row: a number of the program's files, and the line there; 0: the row has none. */
  readonly file: Int32Array;
  readonly line: Int32Array;
  /** The line of the output as it was generated, and as it is now; 0: none. */
  readonly generated: Int32Array;
  readonly current: Int32Array;
  readonly change: Uint8Array;
  readonly isConverted: Uint8Array;
  /** The number of the inclusion that the row is in; 0 is the program. */
  readonly inclusion: Int32Array;
  readonly inclusions: readonly Inclusion[];
}

export interface Inclusion {
  readonly file: number;
  readonly depth: number;
  readonly parent: number;
  /** The row of the `#include`, and the rows that it brought in. */
  readonly head: number;
  readonly first: number;
  end: number;
}

export function linesOf(text: string): string[] {
  return text.split(/\r\n|\r|\n/);
}

/** What a row is made of before it has a place. */
export interface Row {
  file: number;
  line: number;
  generated: number;
  current: number;
  change: number;
  isConverted: number;
}

/** Collects rows, and which inclusion they are in. */
class Builder {
  private readonly columns: number[][] = [[], [], [], [], [], [], []];
  readonly inclusions: Inclusion[] = [];
  private open: number[] = [];

  get rowCount(): number {
    return this.columns[0]!.length;
  }

  enter(file: number): void {
    const parent = this.open.at(-1) ?? -1;
    const first = this.rowCount;
    this.inclusions.push({ file, depth: this.open.length, parent, head: first - 1, first, end: 0 });
    this.open.push(this.inclusions.length - 1);
  }

  leave(): void {
    const inclusion = this.open.pop();
    if (inclusion !== undefined) {
      this.inclusions[inclusion]!.end = this.rowCount;
    }
  }

  add({ file, line, generated, current, change, isConverted }: Row): void {
    const inclusion = this.open.at(-1) ?? 0;
    [file, line, generated, current, change, isConverted, inclusion].forEach((value, column) =>
      this.columns[column]!.push(value),
    );
  }

  sheet(): Sheet {
    const [file, line, generated, current, change, isConverted, inclusion] = this.columns;
    return {
      rowCount: this.rowCount,
      file: Int32Array.from(file!),
      line: Int32Array.from(line!),
      generated: Int32Array.from(generated!),
      current: Int32Array.from(current!),
      change: Uint8Array.from(change!),
      isConverted: Uint8Array.from(isConverted!),
      inclusion: Int32Array.from(inclusion!),
      inclusions: this.inclusions,
    };
  }
}

/** Goes through the line map, and puts lines of the source that it leaves out where they stand. */
class MapReader {
  private readonly last: number[] = [];
  private readonly files: number[] = [];
  private generated = 0;

  constructor(
    private readonly lineCounts: readonly number[],
    private readonly builder: Builder,
  ) {}

  read(map: readonly MappedLines[]): void {
    for (const [count, file, depth, firstLine, outputLinesOfEach, isConverted] of map) {
      this.goTo(file, depth);
      if (firstLine <= this.last[depth]!) {
        // What stands in the output behind an included file.
        this.addOutput(count * outputLinesOfEach, isConverted);
      } else {
        this.addSource(depth, firstLine - 1);
        for (let line = firstLine; line < firstLine + count; ++line) {
          this.addLine(depth, line, outputLinesOfEach, isConverted);
        }
      }
    }
    this.leaveTo(0);
  }

  private goTo(file: number, depth: number): void {
    this.leaveTo(depth + 1);
    if (this.files.length === depth + 1 && this.files[depth] !== file) {
      this.leaveTo(depth);
    }
    while (this.files.length <= depth) {
      this.files.push(file);
      this.last.push(0);
      this.builder.enter(file);
    }
  }

  private leaveTo(depth: number): void {
    while (this.files.length > depth) {
      const top = this.files.length - 1;
      this.addSource(top, this.lineCounts[this.files[top]!] ?? 0);
      this.builder.leave();
      this.files.pop();
      this.last.pop();
    }
  }

  /** Lines without an output, up to `end`. */
  private addSource(depth: number, end: number): void {
    for (let line = this.last[depth]! + 1; line <= end; ++line) {
      this.addLine(depth, line, 0, 1);
    }
  }

  private addLine(depth: number, line: number, outputLines: number, isConverted: number): void {
    const file = this.files[depth]!;
    const generated = outputLines === 0 ? 0 : ++this.generated;
    this.builder.add({ file, line, generated, current: generated, change: 0, isConverted });
    this.last[depth] = line;
    this.addOutput(outputLines - 1, isConverted);
  }

  private addOutput(count: number, isConverted: number): void {
    const file = this.files.at(-1)!;
    for (let i = 0; i < count; ++i) {
      const generated = ++this.generated;
      this.builder.add({ file, line: 0, generated, current: generated, change: 0, isConverted });
    }
  }
}

/** Lines that count: an empty one behind the last line end does not. */
function lineCount(text: string): number {
  const lines = linesOf(text);
  return lines.at(-1) === "" ? lines.length - 1 : lines.length;
}

export function generatedSheet(detail: ProgramDetail): Sheet {
  const builder = new Builder();
  const reader = new MapReader(
    detail.files.map(({ text }) => lineCount(text)),
    builder,
  );
  // A program that was not converted is shown all the same.
  const whole: MappedLines = [lineCount(detail.files[0]?.text ?? ""), 0, 0, 1, 0, 1];
  reader.read(detail.lineMap.length > 0 ? detail.lineMap : [whole]);
  return builder.sheet();
}

/** The rows of a sheet once more, each with what `rowsFor` puts in its place. */
export function rebuilt(sheet: Sheet, rowsFor: (row: Row) => readonly Row[]): Sheet {
  const builder = new Builder();
  const { inclusions } = sheet;
  const open: Inclusion[] = [];
  let next = 0;
  for (let row = 0; row <= sheet.rowCount; ++row) {
    // Inclusions stand in the order of their first rows, outer ones first.
    while (open.at(-1)?.end === row || inclusions[next]?.first === row) {
      if (open.at(-1)?.end === row) {
        builder.leave();
        open.pop();
      } else {
        const inclusion = inclusions[next++]!;
        builder.enter(inclusion.file);
        open.push(inclusion);
      }
    }
    if (row < sheet.rowCount) {
      rowsFor(rowOf(sheet, row)).forEach((made) => builder.add(made));
    }
  }
  return builder.sheet();
}

export function rowOf(sheet: Sheet, row: number): Row {
  return {
    file: sheet.file[row]!,
    line: sheet.line[row]!,
    generated: sheet.generated[row]!,
    current: sheet.current[row]!,
    change: sheet.change[row]!,
    isConverted: sheet.isConverted[row]!,
  };
}
