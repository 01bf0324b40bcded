// The sheet of a program whose output a person changed: the output as it is now, with what was taken out beside it.

import { keptLines } from "./line-changes.ts";
import { rebuilt } from "./sheet-builder.ts";
import { linesOf, type Row, type Sheet } from "./sheet.ts";

const added = 1;
const removed = 2;

export function editedSheet(sheet: Sheet, generated: string, current: string): Sheet {
  const after = linesOf(current);
  const kept = keptLines(linesOf(generated), after);
  // A line behind the last line end is none.
  const lineCount = after.at(-1) === "" ? after.length - 1 : after.length;
  let shown = 0;
  const addedUpTo = (end: number, file: number): Row[] => {
    const rows: Row[] = [];
    while (shown < end) {
      ++shown;
      rows.push({ file, line: 0, generated: 0, current: shown, change: added, isConverted: 1 });
    }
    return rows;
  };
  const lastRow = sheet.generated.reduce((last, line, row) => (line > 0 ? row : last), -1);
  let at = -1;
  return rebuilt(sheet, (row) => {
    ++at;
    const rows: Row[] = [];
    if (row.generated === 0) {
      rows.push(row);
    } else {
      const now = kept[row.generated - 1] ?? -1;
      if (now === -1) {
        rows.push({ ...row, current: 0, change: removed });
      } else {
        rows.push(...addedUpTo(now, row.file), { ...row, current: now + 1 });
        shown = now + 1;
      }
    }
    return at === lastRow ? [...rows, ...addedUpTo(lineCount, row.file)] : rows;
  });
}
