// Puts sheets together, row by row.

import { rowOf, type Inclusion, type Row, type Sheet } from "./sheet.ts";

/** Collects rows, and which inclusion they are in. */
export class SheetBuilder {
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

/** The rows of a sheet once more, each with what `rowsFor` puts in its place. */
export function rebuilt(sheet: Sheet, rowsFor: (row: Row) => readonly Row[]): Sheet {
  const builder = new SheetBuilder();
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
