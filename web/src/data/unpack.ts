// How data stands in the page: base64 of gzip of JSON.

function bytesOf(base64: string): Uint8Array<ArrayBuffer> {
  const text = atob(base64.trim());
  const bytes = new Uint8Array(text.length);
  for (let i = 0; i < text.length; ++i) {
    bytes[i] = text.charCodeAt(i);
  }
  return bytes;
}

export async function unpackedBytes(base64: string): Promise<Uint8Array<ArrayBuffer>> {
  const stream = new Blob([bytesOf(base64)]).stream().pipeThrough(new DecompressionStream("gzip"));
  return new Uint8Array(await new Response(stream).arrayBuffer());
}

export async function unpacked<T>(base64: string): Promise<T> {
  return JSON.parse(new TextDecoder().decode(await unpackedBytes(base64))) as T;
}
