// Text of programs and files: characters that are not seen are shown by their names.

import { visiblePieces } from "../data/visible.ts";

/** More than this of a text is not shown; it can be copied all the same. */
export const mostShown = 2000;

export function Text({ text }: { text: string }) {
  const shown = text.length > mostShown ? text.slice(0, mostShown) : text;
  return (
    <>
      <Pieces text={shown} />
      {shown.length < text.length && <More count={text.length - shown.length} />}
    </>
  );
}

export function More({ count }: { count: number }) {
  return <span class="more"> … and {count.toLocaleString("en")} characters more</span>;
}

export function Pieces({ text }: { text: string }) {
  return (
    <>
      {visiblePieces(text).map(({ text: piece, isShownByName }) =>
        isShownByName ? <span class="hidden-character">{piece}</span> : piece,
      )}
    </>
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
