// Text of programs and files: characters that are not seen are shown by their names.

import type { ComponentChildren } from "preact";
import { visiblePieces } from "../data/visible.ts";

/** More than this of a text is not shown; it can be copied all the same. */
export const mostShown = 2000;

export function Text({ text }: { text: string }) {
  const shown = text.length > mostShown ? text.slice(0, mostShown) : text;
  return (
    <>
      {visibleText(shown)}
      {shown.length < text.length && <More count={text.length - shown.length} />}
    </>
  );
}

export function More({ count }: { count: number }) {
  return <span class="more"> … and {count.toLocaleString("en")} characters more</span>;
}

/** What stands for a text: itself, where all of its characters are seen. */
export function visibleText(text: string): ComponentChildren {
  const pieces = visiblePieces(text);
  return pieces.length === 1 && pieces[0]?.isShownByName === false
    ? text
    : pieces.map(({ text: piece, isShownByName }) =>
        isShownByName ? <span class="hidden-character">{piece}</span> : piece,
      );
}

/** A path, which may be broken behind a "/". */
export function Path({ path }: { path: string }) {
  return (
    <span class="path">
      {path.split(/(?<=\/)/).map((step) => (
        <>
          <Text text={step} />
          <wbr />
        </>
      ))}
    </span>
  );
}
