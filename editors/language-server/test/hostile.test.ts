// Wrong and hostile requests, and more than an editor should ask for.

import assert from "node:assert/strict";
import { after, before, describe, test } from "node:test";
import type { DocumentSymbol } from "vscode-languageserver";
import { Client, Folder, rangeAt, shown } from "./client.ts";

const asked = [
  "textDocument/hover",
  "textDocument/definition",
  "textDocument/references",
  "textDocument/documentSymbol",
  "textDocument/foldingRange",
  "textDocument/completion",
] as const;

const paramsAt = (uri: unknown, line: unknown, character: unknown) => ({
  textDocument: { uri },
  position: { line, character },
  context: { includeDeclaration: true },
});

describe("requests that make no sense", () => {
  const folder = new Folder();
  let client: Client;
  before(async () => {
    client = await Client.start(folder.path);
  });
  after(async () => {
    assert.equal(await client.stop(), 0);
    folder.remove();
  });

  test("of documents that are not open", async () => {
    for (const uri of [
      "file:///nowhere/main.pgm",
      "http://x/y",
      "%%%",
      "",
      "untitled:Untitled-1",
      "file://%zz",
    ]) {
      for (const method of asked) {
        const answer = await client.request<unknown>(method, paramsAt(uri, 0, 0));
        assert.ok(answer === null || (Array.isArray(answer) && answer.length === 0), method);
      }
      assert.equal(await client.request("brannic.torvel", { uri }), null);
      client.notify("textDocument/didChange", {
        textDocument: { uri, version: 2 },
        contentChanges: [{ text: "HOME X" }],
      });
      client.notify("textDocument/didClose", { textDocument: { uri } });
      client.notify("textDocument/didSave", { textDocument: { uri } });
    }
  });

  test("with places outside of the document", async () => {
    const uri = folder.write("small.pgm", "PROBE X\n");
    client.open(uri, "PROBE X\n");
    await client.diagnostics(uri, (all) => all.length === 1);
    for (const line of [-1, 1, 2, 1e9, 2 ** 40, 0.5]) {
      for (const character of [-1, 0, 1e9, 2 ** 40]) {
        for (const method of asked) {
          await client.request(method, paramsAt(uri, line, character));
        }
      }
    }
    assert.match(await client.hover(uri, 0, 1), /Becomes/);
  });

  test("with parameters of another kind", async () => {
    for (const method of [...asked, "brannic.torvel", "workspace/executeCommand"]) {
      for (const params of [
        null,
        [],
        { textDocument: null },
        { textDocument: { uri: 5 } },
        { uri: [] },
      ]) {
        await client.request(method, params).catch((error: unknown) => assert.ok(error));
      }
    }
    await assert.rejects(client.command("brannic.dance"), /There is no command/);
    await assert.rejects(client.command("brannic.torvel", 5), /has to be a text/);
    await assert.rejects(client.request("textDocument/dance", {}), /Unhandled method/);
    for (const settings of [null, 5, { brannic: 5 }, { brannic: { parameterFile: {} } }]) {
      client.notify("workspace/didChangeConfiguration", { settings });
    }
    client.notify("textDocument/dance", { much: true });
    const uri = folder.write("alive.pgm", "PROBE X\n");
    client.open(uri, "PROBE X\n");
    await client.diagnostics(uri, (all) => all.length === 1);
  });

  test("changes with ranges outside, the wrong way round, and of old versions", async () => {
    const uri = folder.write("ranges.pgm", "HOME X\n");
    client.open(uri, "HOME X\n");
    client.change(uri, "PROBE X\n", rangeAt(1e6, 5, 7, 2e6));
    client.change(uri, "PROBE Y\n", rangeAt(5, 3, 0, 1));
    client.change(uri, "", { start: { line: -3, character: -7 }, end: { line: -1, character: 0 } });
    await client.diagnostics(uri, (all) => all.length === 2);
    client.notify("textDocument/didChange", {
      textDocument: { uri, version: 1 },
      contentChanges: [{ text: "" }],
    });
    const torvel = await client.request<{ text: string }>("brannic.torvel", { uri });
    assert.equal(torvel.text.split("#error_unconvertible").length, 3);
  });

  test("a document without a file", async () => {
    const uri = "untitled:Untitled-1";
    client.open(uri, "PROBE X\n");
    assert.deepEqual(shown(await client.diagnostics(uri, (all) => all.length > 0)), [
      "0:0-7 probe-unsupported",
    ]);
    client.close(uri);
    await client.diagnostics(uri, (all) => all.length === 0);
  });

  test("files that include themselves, each other, and nothing", async () => {
    const one = folder.write("circle/one.pgm", '#include "two.pgm"\n');
    folder.write("circle/two.pgm", '#include "one.pgm"\n');
    client.open(one, '#include "two.pgm"\n');
    const circle = await client.diagnostics(one, (all) => all.length > 0);
    assert.equal(circle[0]?.severity, 1);
    const none = folder.write("none.pgm", '#include "missing.pgm"\n');
    client.open(none, '#include "missing.pgm"\n');
    assert.equal((await client.diagnostics(none, (all) => all.length > 0))[0]?.range.start.line, 0);
    // The missing file comes as a document.
    const missing = folder.uri("missing.pgm");
    client.open(missing, "PROBE X\n");
    await client.diagnostics(missing, (all) => all.length > 0);
    await client.diagnostics(none, (all) => all.length === 0);
  });

  test("a path with blanks, signs and umlauts", async () => {
    const uri = folder.write("a b/#1 ü%20/main.pgm", '#include "ö.pgm"\nPROBE X\n');
    folder.write("a b/#1 ü%20/ö.pgm", "PROBE Y\n");
    client.open(uri, '#include "ö.pgm"\nPROBE X\n');
    await client.diagnostics(uri, (all) => all.length === 1);
    await client.diagnostics(folder.uri("a b/#1 ü%20/ö.pgm"), (all) => all.length === 1);
  });
});

describe("much at once", () => {
  const folder = new Folder();
  let client: Client;
  before(async () => {
    client = await Client.start(folder.path);
  });
  after(async () => {
    assert.equal(await client.stop(), 0);
    folder.remove();
  });

  test("changes while it converts: the last text counts", async () => {
    const lines = Array.from({ length: 5000 }, (_, i) => `$a = $a + ${i}\n`).join("");
    const uri = folder.write("fast.pgm", lines);
    client.open(uri, lines);
    for (let i = 0; i < 200; ++i) {
      client.change(uri, i % 2 === 0 ? "PROBE X\n" : "HOME X\n", rangeAt(i, 0, 0));
      if (i % 20 === 0) {
        void client.hover(uri, i, 2);
        void client.request("brannic.torvel", { uri });
      }
    }
    const all = await client.diagnostics(uri, (list) => list.length === 100);
    assert.deepEqual(
      all.map(({ range }) => range.start.line).sort((a, b) => a - b),
      Array.from({ length: 100 }, (_, i) => i * 2),
    );
  });

  test("a file of 20 MB: requests are answered while it is converted", async () => {
    const line = "G1 X($position * 10.25) Y(20 + $offset) F1500 ; next hole of the plate\n";
    const text = line.repeat(Math.ceil(20_000_000 / line.length)) + "PROBE X\n";
    const uri = folder.write("large.pgm", text);
    client.open(uri, text);
    const small = folder.write("small.pgm", "HOME X\n");
    client.open(small, "HOME X\n");
    await client.hover(small, 0, 1);
    const began = performance.now();
    await client.hover(small, 0, 1);
    const took = performance.now() - began;
    assert.ok(took < 1000, `a request took ${took} ms`);
    const all = await client.diagnostics(uri, (list) => list.length > 0);
    assert.equal(all[0]?.code, "probe-unsupported");
    const last = text.split("\n").length - 2;
    assert.equal(all[0]?.range.start.line, last);
    assert.match(await client.hover(uri, last, 1), /Becomes/);
    client.close(uri);
    await client.diagnostics(uri, (list) => list.length === 0);
  });

  test("more symbols and findings than an editor takes: it is told how many are left out", async () => {
    const text = Array.from({ length: 4000 }, (_, i) => `label${i}: PROBE X\n`).join("");
    const uri = folder.write("many.pgm", text);
    client.open(uri, text);
    const all = await client.diagnostics(uri, (list) => list.length > 0);
    assert.equal(all.length, 1001);
    assert.ok(all.some(({ message }) => message.startsWith("3000 more findings of this file")));
    const symbols = await client.request<DocumentSymbol[]>("textDocument/documentSymbol", {
      textDocument: { uri },
    });
    assert.equal(symbols.length, 3000);
    assert.ok(
      client.log.some((line) => line.startsWith("1000 more symbols")),
      client.log.join("\n"),
    );
  });

  test("a line of a megabyte", async () => {
    const text = `$a = ${"1 + ".repeat(250_000)}1\nPROBE X\n`;
    const uri = folder.write("long.pgm", text);
    client.open(uri, text);
    await client.diagnostics(uri, (list) => list.some(({ code }) => code === "probe-unsupported"));
    await client.hover(uri, 0, 2);
  });
});
