const lineFeed = 10;
const carriageReturn = 13;

/** CR LF for each LF, as the programs write on Windows. */
export function withWindowsLines(bytes: Uint8Array): Uint8Array {
  const count = bytes.reduce((sum, byte) => sum + (byte === lineFeed ? 1 : 0), 0);
  const result = new Uint8Array(bytes.length + count);
  let at = 0;
  for (const byte of bytes) {
    if (byte === lineFeed) {
      result[at++] = carriageReturn;
    }
    result[at++] = byte;
  }
  return result;
}
