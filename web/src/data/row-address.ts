// How rows of a program are named in the address: by the line of the program, else by that of the output.

import { at } from "./report.ts";
import type { Sheet } from "./sheet.ts";

type Parameters = Readonly<Record<string, string>>;

export const noRow: Parameters = { line: "", out: "", now: "", finding: "" };

export function rowParameters(sheet: Sheet, row: number): Parameters {
  if (at(sheet.inclusion, row) === 0 && at(sheet.line, row) > 0) {
    return { ...noRow, line: String(at(sheet.line, row)) };
  }
  const generated = at(sheet.generated, row);
  return generated > 0
    ? { ...noRow, out: String(generated) }
    : at(sheet.current, row) > 0
      ? { ...noRow, now: String(at(sheet.current, row)) }
      : { ...noRow, line: String(at(sheet.line, row)), file: String(at(sheet.file, row)) };
}

/** -1 if the address names no row, or one that is not there. */
export function rowOfParameters(sheet: Sheet, parameters: Parameters): number {
  const number = (name: string) => Number(parameters[name] ?? "");
  const find = (column: ArrayLike<number>, value: number, file: number) => {
    for (let row = 0; row < sheet.rowCount; ++row) {
      if (at(column, row) === value && (file === -1 || at(sheet.file, row) === file)) {
        return row;
      }
    }
    return -1;
  };
  if (number("line") > 0) {
    return find(sheet.line, number("line"), number("file"));
  }
  if (number("out") > 0) {
    return find(sheet.generated, number("out"), -1);
  }
  return number("now") > 0 ? find(sheet.current, number("now"), -1) : -1;
}
