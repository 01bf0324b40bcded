// Which lines of a text a person kept.

/** By line of `before`, from 0: the line of `after` that it became, -1 if it is gone. */
export function keptLines(before: readonly string[], after: readonly string[]): Int32Array {
  const kept = new Int32Array(before.length).fill(-1);
  matchRange(
    before,
    after,
    { from: 0, to: before.length, afterFrom: 0, afterTo: after.length },
    kept,
  );
  return kept;
}

interface Region {
  from: number;
  to: number;
  afterFrom: number;
  afterTo: number;
}

function matchRange(
  before: readonly string[],
  after: readonly string[],
  whole: Region,
  kept: Int32Array,
): void {
  const regions = [whole];
  for (let region = regions.pop(); region !== undefined; region = regions.pop()) {
    const rest = withoutEqualEnds(before, after, region, kept);
    if (rest.from < rest.to && rest.afterFrom < rest.afterTo) {
      const anchors = anchorsOf(before, after, rest);
      if (anchors.length > 0) {
        between(anchors, rest, kept).forEach((part) => regions.push(part));
      } else {
        matchSmall(before, after, rest, kept);
      }
    }
  }
}

/** Matches equal lines at both ends; gives what is between them. */
function withoutEqualEnds(
  before: readonly string[],
  after: readonly string[],
  { from, to, afterFrom, afterTo }: Region,
  kept: Int32Array,
): Region {
  while (from < to && afterFrom < afterTo && before[from] === after[afterFrom]) {
    kept[from++] = afterFrom++;
  }
  while (from < to && afterFrom < afterTo && before[to - 1] === after[afterTo - 1]) {
    kept[--to] = --afterTo;
  }
  return { from, to, afterFrom, afterTo };
}

type Anchor = readonly [line: number, afterLine: number];

/** Lines that stand once in both regions, as many of them as keep their order. */
function anchorsOf(before: readonly string[], after: readonly string[], region: Region): Anchor[] {
  const lines = onlyOnce(before, region.from, region.to);
  const afterLines = onlyOnce(after, region.afterFrom, region.afterTo);
  const pairs: Anchor[] = [];
  for (const [text, line] of lines) {
    const afterLine = afterLines.get(text);
    if (line !== -1 && afterLine !== undefined && afterLine !== -1) {
      pairs.push([line, afterLine]);
    }
  }
  return longestRising(pairs);
}

/** By text: the line where it stands, -1 if there is more than one. */
function onlyOnce(lines: readonly string[], from: number, to: number): Map<string, number> {
  const found = new Map<string, number>();
  for (let line = from; line < to; ++line) {
    const text = lines[line]!;
    found.set(text, found.has(text) ? -1 : line);
  }
  return found;
}

/** The most of the pairs, which are in the order of their first, that are in the order of their second too. */
function longestRising(pairs: readonly Anchor[]): Anchor[] {
  const ends: number[] = [];
  const before = new Int32Array(pairs.length).fill(-1);
  pairs.forEach(([, value], index) => {
    let low = 0;
    let high = ends.length;
    while (low < high) {
      const middle = (low + high) >> 1;
      if (pairs[ends[middle]!]![1] < value) {
        low = middle + 1;
      } else {
        high = middle;
      }
    }
    before[index] = low === 0 ? -1 : ends[low - 1]!;
    ends[low] = index;
  });
  const rising: Anchor[] = [];
  for (let index = ends.at(-1) ?? -1; index !== -1; index = before[index]!) {
    rising.push(pairs[index]!);
  }
  return rising.reverse();
}

/** Matches the anchors, and gives the regions between them. */
function between(anchors: readonly Anchor[], region: Region, kept: Int32Array): Region[] {
  const regions: Region[] = [];
  let { from, afterFrom } = region;
  for (const [line, afterLine] of anchors) {
    regions.push({ from, to: line, afterFrom, afterTo: afterLine });
    kept[line] = afterLine;
    from = line + 1;
    afterFrom = afterLine + 1;
  }
  regions.push({ from, to: region.to, afterFrom, afterTo: region.afterTo });
  return regions;
}

/** More pairs of lines than this are not compared: the region counts as replaced. */
const mostPairs = 1_000_000;

/** The longest common sequence of a region without anchors. */
function matchSmall(
  before: readonly string[],
  after: readonly string[],
  { from, to, afterFrom, afterTo }: Region,
  kept: Int32Array,
): void {
  const height = to - from;
  const width = afterTo - afterFrom;
  if (height * width > mostPairs) {
    return;
  }
  const stride = width + 1;
  const lengths = new Int32Array((height + 1) * stride);
  const length = (i: number, j: number) => lengths[i * stride + j]!;
  for (let i = height - 1; i >= 0; --i) {
    for (let j = width - 1; j >= 0; --j) {
      lengths[i * stride + j] =
        before[from + i] === after[afterFrom + j]
          ? length(i + 1, j + 1) + 1
          : Math.max(length(i + 1, j), length(i, j + 1));
    }
  }
  for (let i = 0, j = 0; i < height && j < width;) {
    if (before[from + i] === after[afterFrom + j]) {
      kept[from + i++] = afterFrom + j++;
    } else if (length(i + 1, j) >= length(i, j + 1)) {
      ++i;
    } else {
      ++j;
    }
  }
}
