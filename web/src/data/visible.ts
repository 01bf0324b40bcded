// Characters that are not seen, or that turn the order of others, shown as what they are.

export type Visible = { readonly text: string; readonly isShownByName: boolean };

/* Controls but the tab, marks of direction, blanks without width, halves of pairs, the mark of a byte order, and
 * what stands for a character that could not be decoded. */
const hidden =
  /[\u0000-\u0008\u000a-\u001f\u007f-\u009f\u00ad\u061c\u180e\u200b-\u200f\u2028-\u202e\u2060-\u206f\ufeff\ufff9-\ufffd]|[\ud800-\udbff](?![\udc00-\udfff])|(?<![\ud800-\udbff])[\udc00-\udfff]/g;

/** Most texts are of these only. */
const plain = /^[\t -~]*$/;

export function visiblePieces(text: string): Visible[] {
  if (plain.test(text)) {
    return [{ text, isShownByName: false }];
  }
  const pieces: Visible[] = [];
  let from = 0;
  for (const match of text.matchAll(hidden)) {
    if (match.index > from) {
      pieces.push({ text: text.slice(from, match.index), isShownByName: false });
    }
    pieces.push({ text: nameOf(match[0]), isShownByName: true });
    from = match.index + match[0].length;
  }
  if (from < text.length || pieces.length === 0) {
    pieces.push({ text: text.slice(from), isShownByName: false });
  }
  return pieces;
}

function nameOf(character: string): string {
  return "U+" + character.charCodeAt(0).toString(16).toUpperCase().padStart(4, "0");
}
