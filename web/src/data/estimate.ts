// How long the rest may take: open findings times the minutes for one.

import { todos, type Effort, type Todo } from "./format.ts";
import type { Count } from "./totals.ts";

export type Range = readonly [least: number, most: number];

/** How often each place is finished: once in the source, or in every output that holds it. */
export type Counting = "places" | "outputs";

export interface EstimateRow {
  readonly todo: Todo;
  readonly count: number;
  readonly minutes: Range;
  readonly product: Range;
}

export interface Estimate {
  readonly rows: readonly EstimateRow[];
  readonly sum: Range;
}

export function estimateOf(open: readonly Count[], effort: Effort, counting: Counting): Estimate {
  const rows = todos.map((todo, index) => {
    const { places, inOutputs } = open[index]!;
    const count = counting === "places" ? places : inOutputs;
    const minutes = effort[todo];
    const product: Range = [count * minutes[0], count * minutes[1]];
    return { todo, count, minutes, product };
  });
  return {
    rows,
    sum: [
      rows.reduce((sum, row) => sum + row.product[0], 0),
      rows.reduce((sum, row) => sum + row.product[1], 0),
    ],
  };
}

/** "10-40" or "10" as minutes; nothing if it is no range. */
export function parsedRange(text: string): Range | null {
  const match = /^\s*(\d+(?:\.\d+)?)\s*(?:-\s*(\d+(?:\.\d+)?)\s*)?$/.exec(text);
  if (match === null) {
    return null;
  }
  const least = Number(match[1]);
  const most = match[2] === undefined ? least : Number(match[2]);
  return least <= most && most <= 100_000 ? [least, most] : null;
}
