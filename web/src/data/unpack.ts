// How data stands in the page: base64 of gzip of JSON.

function bytesOf(base64: string): Uint8Array<ArrayBuffer> {
  const text = atob(base64.trim());
  const bytes = new Uint8Array(text.length);
  for (let i = 0; i < text.length; ++i) {
    bytes[i] = text.charCodeAt(i);
  }
  return bytes;
}

export async function unpacked<T>(base64: string): Promise<T> {
  const stream = new Blob([bytesOf(base64)]).stream().pipeThrough(new DecompressionStream("gzip"));
  return JSON.parse(await new Response(stream).text()) as T;
}
