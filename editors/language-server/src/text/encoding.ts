// The bytes of a document as the converter would read them from its file. An editor hands over decoded text; a file that
// is not UTF-8 has a byte for each character, in Windows-1252.

/** What Windows-1252 has from 0x80 to 0x9F; the same table decodes in the converter. */
const upper = [
  0x20ac, 0x0081, 0x201a, 0x0192, 0x201e, 0x2026, 0x2020, 0x2021, 0x02c6, 0x2030, 0x0160, 0x2039,
  0x0152, 0x008d, 0x017d, 0x008f, 0x0090, 0x2018, 0x2019, 0x201c, 0x201d, 0x2022, 0x2013, 0x2014,
  0x02dc, 0x2122, 0x0161, 0x203a, 0x0153, 0x009d, 0x017e, 0x0178,
];
const byteOf = new Map(upper.map((character, index) => [character, 0x80 + index]));

const replacement = 0xfffd;
/** In the place of what the file could not hold, so that no column is another. */
const unknownByte = 0x3f;

export function isUtf8(bytes: Uint8Array): boolean {
  try {
    new TextDecoder("utf-8", { fatal: true }).decode(bytes);
    return true;
  } catch {
    return false;
  }
}

/** `file` is what is on the disk; undefined: nothing. */
export class DocumentEncoding {
  /** Lines that an editor took for UTF-8, with what they are. */
  private readonly lossy: ReadonlyMap<string, Uint8Array> | undefined;

  constructor(file: Uint8Array | undefined) {
    this.lossy = file === undefined || isUtf8(file) ? undefined : lossyLines(file);
  }

  encode(text: string): Uint8Array {
    if (this.lossy === undefined) {
      return new TextEncoder().encode(text);
    }
    const pieces: Uint8Array[] = [];
    for (const piece of text.split(/(\r\n|\r|\n)/)) {
      pieces.push(this.lossy.get(piece) ?? encodeWindows1252(piece));
    }
    return joined(pieces);
  }
}

/** By the text that an editor shows which decodes the file as UTF-8: the bytes of lines that are not. */
function lossyLines(file: Uint8Array): Map<string, Uint8Array> {
  const lines = new Map<string, Uint8Array>();
  const decoder = new TextDecoder("utf-8", { ignoreBOM: true });
  let begin = 0;
  for (let at = 0; at <= file.length; ++at) {
    if (at === file.length || file[at] === 0x0a || file[at] === 0x0d) {
      const line = file.subarray(begin, at);
      const text = decoder.decode(line);
      if (text.includes("\ufffd")) {
        lines.set(text, line);
      }
      begin = at + 1;
    }
  }
  return lines;
}

function encodeWindows1252(text: string): Uint8Array {
  const bytes = new Uint8Array(text.length);
  for (let at = 0; at < text.length; ++at) {
    const unit = text.charCodeAt(at);
    const plain = unit < 0x80 || (unit >= 0xa0 && unit < 0x100);
    bytes[at] = plain
      ? unit
      : unit === replacement
        ? unknownByte
        : (byteOf.get(unit) ?? unknownByte);
  }
  return bytes;
}

function joined(pieces: readonly Uint8Array[]): Uint8Array {
  const bytes = new Uint8Array(pieces.reduce((size, piece) => size + piece.length, 0));
  let at = 0;
  for (const piece of pieces) {
    bytes.set(piece, at);
    at += piece.length;
  }
  return bytes;
}
