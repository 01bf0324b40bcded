// Keys: n and p go to the next and the previous finding, j and k to the next and the previous row.

import { useEffect, useRef } from "preact/hooks";
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

export function useRowKeys(rows: Rows): void {
  // A key may come before what the one before it selected is shown.
  const now = useRef(rows);
  now.current = rows;
  useEffect(() => {
    const step = (by: number) => {
      const { rows, selected } = now.current;
      const index = rows.indexOf(selected);
      return rows[index === -1 ? 0 : index + by] ?? -1;
    };
    const targets: Readonly<Record<string, () => number>> = {
      n: () => nextFinding(now.current),
      p: () => previousFinding(now.current),
      j: () => step(1),
      k: () => step(-1),
    };
    const press = (event: KeyboardEvent) => {
      const target = isTyping(event) ? undefined : targets[event.key];
      const row = target?.() ?? -1;
      if (row !== -1) {
        event.preventDefault();
        now.current.select(row);
        now.current = { ...now.current, selected: row };
      }
    };
    window.addEventListener("keydown", press);
    return () => window.removeEventListener("keydown", press);
  }, []);
}

function isTyping({ target, ctrlKey, altKey, metaKey }: KeyboardEvent): boolean {
  return (
    ctrlKey ||
    altKey ||
    metaKey ||
    (target instanceof Element && target.closest("input, select, textarea") !== null)
  );
}
