// The sheet of a program as it was converted.

import type { MappedLines, ProgramDetail } from "./format.ts";
import { SheetBuilder } from "./sheet-builder.ts";
import { linesOf, type Sheet } from "./sheet.ts";

/** Goes through the line map, and puts lines of the source that it leaves out where they stand. */
class MapReader {
  private readonly last: number[] = [];
  private readonly files: number[] = [];
  private generated = 0;

  constructor(
    private readonly lineCounts: readonly number[],
    private readonly builder: SheetBuilder,
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
  const builder = new SheetBuilder();
  const reader = new MapReader(
    detail.files.map(({ text }) => lineCount(text)),
    builder,
  );
  // A program that was not converted is shown all the same.
  const whole: MappedLines = [lineCount(detail.files[0]?.text ?? ""), 0, 0, 1, 0, 1];
  reader.read(detail.lineMap.length > 0 ? detail.lineMap : [whole]);
  return builder.sheet();
}
