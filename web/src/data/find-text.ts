// The next row of a program that has a text, in any case.

import { outputText, sourceText, type ProgramTexts } from "./program-texts.ts";

/** The first row behind `from` that has it, going on at the top; -1 if none has it. */
export function rowWithText(texts: ProgramTexts, text: string, from: number): number {
  const wanted = text.toLowerCase();
  const { rowCount, line } = texts.sheet;
  if (wanted === "") {
    return -1;
  }
  for (let step = 1; step <= rowCount; ++step) {
    const row = (from + step + rowCount) % rowCount;
    if (
      (line[row]! > 0 && sourceText(texts, row).toLowerCase().includes(wanted)) ||
      outputText(texts, row).toLowerCase().includes(wanted)
    ) {
      return row;
    }
  }
  return -1;
}
