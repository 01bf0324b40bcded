import assert from "node:assert/strict";
import { test } from "node:test";
import { DocumentEncoding } from "../src/text/encoding.ts";

const latin = (text: string) => Uint8Array.from(text, (c) => c.charCodeAt(0));
const utf8 = (text: string) => new TextEncoder().encode(text);

test("a document without a file, or with one in UTF-8, is UTF-8", () => {
  assert.deepEqual(new DocumentEncoding(undefined).encode("5 °µ𝄞"), utf8("5 °µ𝄞"));
  assert.deepEqual(new DocumentEncoding(utf8("; °\n")).encode("µ𝄞\r\n"), utf8("µ𝄞\r\n"));
});

test("a document of a file in Windows-1252 keeps its bytes", () => {
  const file = latin('; 5\xb0 \xb5\r\n$a = "\x80\x99"\n');
  const text = '; 5° µ\r\n$a = "€™"\n';
  assert.deepEqual(new DocumentEncoding(file).encode(text), file);
});

test("a byte that stands for no character comes back as it was", () => {
  const file = latin("; \x81\x8d\x8f\x90\x9d\n");
  assert.deepEqual(new DocumentEncoding(file).encode("; \u0081\u008d\u008f\u0090\u009d\n"), file);
});

test("what such a file cannot hold is one byte for each unit, so that columns stay", () => {
  const encoding = new DocumentEncoding(latin("; \xb0\n"));
  assert.deepEqual(encoding.encode("𝄞Ω°"), latin("???\xb0"));
});

test("a line that the editor took for UTF-8 keeps its bytes wherever it is moved", () => {
  const file = latin("; 5\xb0\n$a = 1 ; \xb5\n");
  const encoding = new DocumentEncoding(file);
  assert.deepEqual(
    encoding.encode("HOME X\n$a = 1 ; \ufffd\n; 5\ufffd\n"),
    latin("HOME X\n$a = 1 ; \xb5\n; 5\xb0\n"),
  );
});
