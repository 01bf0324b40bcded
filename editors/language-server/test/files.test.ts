// Paths of both kinds of system.

import assert from "node:assert/strict";
import { posix, win32 } from "node:path";
import { test } from "node:test";
import { converterPath, mountOf, nativePath, pathOfUri } from "../src/converter/files.ts";

test("paths of Windows have drives and shares", () => {
  for (const [native, converted] of [
    ["C:\\plant\\main.pgm", "/C:/plant/main.pgm"],
    ["c:\\plant\\a b\\ü.pgm", "/C:/plant/a b/ü.pgm"],
    ["\\\\server\\share\\x\\main.pgm", "/UNC/server/share/x/main.pgm"],
  ] as const) {
    assert.equal(converterPath(native, win32), converted);
    assert.equal(nativePath(converted, win32).toLowerCase(), native.toLowerCase());
  }
  assert.deepEqual(mountOf("/C:/plant/main.pgm", win32), { root: "C:\\", at: "/C:" });
  assert.deepEqual(mountOf("/UNC/server/share/x/main.pgm", win32), {
    root: "\\\\server\\share\\",
    at: "/UNC/server/share",
  });
});

test("other paths are as they are", () => {
  assert.equal(converterPath("/plant/main.pgm", posix), "/plant/main.pgm");
  assert.deepEqual(mountOf("/plant/x/main.pgm", posix), { root: "/plant", at: "/plant" });
  assert.equal(mountOf("/", posix), undefined);
  assert.equal(mountOf("x", posix), undefined);
});

test("documents without a file have paths of their own", () => {
  assert.equal(pathOfUri("untitled:Untitled-1"), "/untitled:/Untitled-1");
  assert.equal(pathOfUri("no uri"), undefined);
});
