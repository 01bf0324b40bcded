// Which line of the Torvel stands for which line of the source, and back. Both count from 0.

/** The line of the source that a line of the Torvel comes from; -1 where there is none. */
export function sourceLine(lines: readonly number[], torvel: number): number {
  for (let line = Math.min(torvel, lines.length - 1); line >= 0; line -= 1) {
    const source = lines[line] ?? -1;
    if (source >= 0) {
      return source;
    }
  }
  return -1;
}

/**
 * The first line of the Torvel that comes from the line of the source, or from the last one in front of it that has any;
 * -1 where there is none. An include shows its line again and again, and the lines of a block comment have none.
 */
export function torvelLine(lines: readonly number[], source: number): number {
  let best = -1;
  let bestSource = -1;
  lines.forEach((from, line) => {
    if (from <= source && from > bestSource) {
      best = line;
      bestSource = from;
    }
  });
  return best;
}
