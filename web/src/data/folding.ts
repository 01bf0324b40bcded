// Which rows of a sheet are seen while inclusions are folded.

import { at } from "./report.ts";
import type { Sheet } from "./sheet.ts";

/** The inclusions that are open: those of the address, and those around a row that has to be seen. */
export function openInclusions(sheet: Sheet, asked: string, row: number): Set<number> {
  const open = new Set<number>(
    asked === "all"
      ? sheet.inclusions.keys()
      : asked
          .split(",")
          .filter((number) => number !== "")
          .map(Number),
  );
  open.add(0);
  for (let inclusion = row === -1 ? -1 : at(sheet.inclusion, row); inclusion !== -1;) {
    open.add(inclusion);
    inclusion = sheet.inclusions[inclusion]?.parent ?? -1;
  }
  return open;
}

export function visibleRows(sheet: Sheet, open: ReadonlySet<number>): Int32Array {
  const isVisible = sheet.inclusions.map(() => false);
  sheet.inclusions.forEach(({ parent }, inclusion) => {
    isVisible[inclusion] = open.has(inclusion) && (parent === -1 || isVisible[parent] === true);
  });
  const rows = new Int32Array(sheet.rowCount);
  let count = 0;
  for (let row = 0; row < sheet.rowCount; ++row) {
    if (isVisible[at(sheet.inclusion, row)] === true) {
      rows[count++] = row;
    }
  }
  return rows.subarray(0, count);
}

/** By row of an `#include`: the inclusion that it began. */
export function inclusionHeads(sheet: Sheet): Map<number, number> {
  return new Map(
    sheet.inclusions.flatMap(({ head }, inclusion) =>
      inclusion === 0 ? [] : [[head, inclusion] as const],
    ),
  );
}
