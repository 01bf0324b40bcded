// A line of a program, coloured.

import type { ComponentChildren } from "preact";
import { piecesOf, type Piece } from "../language/tokens.ts";
import type { Language } from "../language/words.ts";
import { More, mostShown, visibleText } from "./text.tsx";

/** Columns of the line, from 1, both ends included; 0: none. */
export type Columns = readonly [first: number, last: number];

interface CodeProps {
  readonly text: string;
  readonly language: Language;
  readonly isInComment?: boolean;
  readonly columns?: Columns;
}

export function Code({ text, language, isInComment = false, columns = [0, 0] }: CodeProps) {
  const shown = text.length > mostShown ? text.slice(0, mostShown) : text;
  const { pieces } = piecesOf(shown, language, isInComment);
  return (
    <code>
      {columns[0] > 0 ? markedPieces(pieces, columns).map(marked) : pieces.map(coloured)}
      {shown.length < text.length && <More count={text.length - shown.length} />}
    </code>
  );
}

interface MarkedPiece extends Piece {
  readonly isMarked: boolean;
}

/* A long program has many pieces: no component is made for one. */

function coloured({ text, kind }: Piece): ComponentChildren {
  const content = visibleText(text);
  return kind === "" ? content : <span class={`t-${kind}`}>{content}</span>;
}

function marked(piece: MarkedPiece): ComponentChildren {
  const { text, kind, isMarked } = piece;
  if (!isMarked) {
    return coloured(piece);
  }
  return <mark class={kind === "" ? "place" : `place t-${kind}`}>{visibleText(text)}</mark>;
}

/** The pieces, cut where the marked columns begin and end. */
export function markedPieces(pieces: readonly Piece[], [first, last]: Columns): MarkedPiece[] {
  const from = first - 1;
  const found: MarkedPiece[] = [];
  let begin = 0;
  for (const { text, kind } of pieces) {
    const end = begin + text.length;
    const cuts = [begin, clamp(from, begin, end), clamp(last, begin, end), end];
    for (let i = 0; i < 3; ++i) {
      const part = text.slice(cuts[i]! - begin, cuts[i + 1]! - begin);
      if (part !== "") {
        found.push({ text: part, kind, isMarked: first > 0 && i === 1 });
      }
    }
    begin = end;
  }
  return found;
}

function clamp(value: number, least: number, most: number): number {
  return Math.min(Math.max(value, least), most);
}
