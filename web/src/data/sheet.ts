// Source and output side by side: a row for each line of either, in the order of the output.

/** What a person did to a line of the output. */
export const changes = ["", "added", "removed"] as const;

export interface Sheet {
  readonly rowCount: number;
  /** By row: a number of the program's files, and the line there; 0: the row has none. */
  readonly file: Int32Array;
  readonly line: Int32Array;
  /** The line of the output as it was generated, and as it is now; 0: none. */
  readonly generated: Int32Array;
  readonly current: Int32Array;
  readonly change: Uint8Array;
  readonly isConverted: Uint8Array;
  /** The number of the inclusion that the row is in; 0 is the program. */
  readonly inclusion: Int32Array;
  readonly inclusions: readonly Inclusion[];
}

export interface Inclusion {
  readonly file: number;
  readonly depth: number;
  readonly parent: number;
  /** The row of the `#include`, and the rows that it brought in. */
  readonly head: number;
  readonly first: number;
  end: number;
}

export function linesOf(text: string): string[] {
  return text.split(/\r\n|\r|\n/);
}

/** What a row is made of before it has a place. */
export interface Row {
  file: number;
  line: number;
  generated: number;
  current: number;
  change: number;
  isConverted: number;
}

export function rowOf(sheet: Sheet, row: number): Row {
  return {
    file: sheet.file[row]!,
    line: sheet.line[row]!,
    generated: sheet.generated[row]!,
    current: sheet.current[row]!,
    change: sheet.change[row]!,
    isConverted: sheet.isConverted[row]!,
  };
}
