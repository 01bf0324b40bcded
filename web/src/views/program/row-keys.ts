// Keys: n and p go to the next and the previous finding, j and k to the next and the previous row.

import { useEffect } from "preact/hooks";
import type { FindingRows } from "../../data/program-texts.ts";

interface Rows {
  readonly found: FindingRows;
  readonly rows: Int32Array;
  readonly selected: number;
  readonly select: (row: number) => void;
}

export function nextFinding({ found, selected }: Pick<Rows, "found" | "selected">): number {
  return found.rows.find((row) => row > selected) ?? found.rows[0] ?? -1;
}

export function previousFinding({ found, selected }: Pick<Rows, "found" | "selected">): number {
  return found.rows.findLast((row) => row < selected) ?? found.rows.at(-1) ?? -1;
}

export function useRowKeys({ found, rows, selected, select }: Rows): void {
  useEffect(() => {
    const step = (by: number) => {
      const index = rows.indexOf(selected);
      return rows[index === -1 ? 0 : index + by] ?? -1;
    };
    const targets: Readonly<Record<string, () => number>> = {
      n: () => nextFinding({ found, selected }),
      p: () => previousFinding({ found, selected }),
      j: () => step(1),
      k: () => step(-1),
    };
    const press = (event: KeyboardEvent) => {
      const target = isTyping(event) ? undefined : targets[event.key];
      const row = target?.() ?? -1;
      if (row !== -1) {
        event.preventDefault();
        select(row);
      }
    };
    window.addEventListener("keydown", press);
    return () => window.removeEventListener("keydown", press);
  }, [found, rows, selected]);
}

function isTyping({ target, ctrlKey, altKey, metaKey }: KeyboardEvent): boolean {
  return (
    ctrlKey ||
    altKey ||
    metaKey ||
    (target instanceof Element && target.closest("input, select, textarea") !== null)
  );
}
