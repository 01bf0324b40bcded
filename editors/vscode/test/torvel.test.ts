// The Torvel beside a program: what is shown, when it is asked for again, and how the two keep in step.

import assert from "node:assert/strict";
import { beforeEach, test } from "node:test";
import * as vscode from "vscode";
import type { LanguageServer, Torvel } from "../src/server.ts";
import { keepInStep } from "../src/step.ts";
import { sourceAddress, torvelAddress, TorvelDocuments } from "../src/torvel-documents.ts";

interface Happenings {
  readonly changedText: vscode.EventEmitter<unknown>;
  readonly selection: vscode.EventEmitter<unknown>;
  readonly visibleRanges: vscode.EventEmitter<unknown>;
}
const { happens } = vscode as unknown as { happens: Happenings };
const editor = vscode.window as unknown as Record<string, unknown>;
const workspace = vscode.workspace as unknown as Record<string, unknown>;
const nothing = { isCancellationRequested: false } as vscode.CancellationToken;

const source = vscode.Uri.file("/plant/Größe #1/part.pgm");

/** A server that knows one program, whose second line became two. */
const torvel: Torvel = { text: "a\nb\nc\nd\n", lines: [0, 1, 1, 3] };
const server = {
  torvelOf: (address: vscode.Uri) =>
    address.toString() === source.toString()
      ? Promise.resolve(torvel)
      : Promise.reject(new Error("Not known.")),
} as unknown as LanguageServer;

interface FakeEditor {
  readonly document: { readonly uri: vscode.Uri };
  readonly shown: number[];
  readonly marked: number[];
}

function editorOf(uri: vscode.Uri): FakeEditor {
  const shown: number[] = [];
  const marked: number[] = [];
  return Object.assign(
    { document: { uri }, shown, marked },
    {
      revealRange: (range: vscode.Range) => shown.push(range.start.line),
      setDecorations: (_: unknown, ranges: vscode.Range[]) =>
        marked.splice(0, marked.length, ...ranges.map(({ start }) => start.line)),
    },
  );
}

let documents: TorvelDocuments;
let step: vscode.Disposable;
let program: FakeEditor;
let result: FakeEditor;
beforeEach(async () => {
  step?.dispose();
  documents = new TorvelDocuments(server);
  step = keepInStep(documents);
  await documents.provideTextDocumentContent(torvelAddress(source), nothing);
  program = editorOf(source);
  result = editorOf(torvelAddress(source));
  editor["visibleTextEditors"] = [program, result];
});

const scroll = (textEditor: FakeEditor, line: number) =>
  happens.visibleRanges.fire({ textEditor, visibleRanges: [new vscode.Range(line, 0, line, 0)] });
const select = (textEditor: FakeEditor, line: number) =>
  happens.selection.fire({ textEditor, selections: [{ active: { line, character: 0 } }] });

test("the address of the Torvel leads back to the program", () => {
  const address = torvelAddress(source);
  assert.equal(address.path, "/plant/Größe #1/part.torvel");
  assert.equal(sourceAddress(address).toString(), source.toString());
  const again = vscode.Uri.parse(address.toString());
  assert.equal(sourceAddress(again).toString(), source.toString());
  const sibling = torvelAddress(vscode.Uri.file("/plant/Größe #1/part.prg"));
  assert.notEqual(sibling.toString(), address.toString());
});

test("what the server says is shown, and a failure too", async () => {
  assert.equal(
    await documents.provideTextDocumentContent(torvelAddress(source), nothing),
    torvel.text,
  );
  assert.deepEqual(documents.linesOf(torvelAddress(source)), torvel.lines);
  const other = torvelAddress(vscode.Uri.file("/plant/other.pgm"));
  assert.equal(await documents.provideTextDocumentContent(other, nothing), "// Not known.\n");
  assert.equal(documents.linesOf(other), undefined);
});

test("the other side follows the one that is worked in", () => {
  editor["activeTextEditor"] = program;
  scroll(program, 1);
  scroll(program, 2);
  assert.deepEqual([program.shown, result.shown], [[], [1, 1]]);
  editor["activeTextEditor"] = result;
  scroll(result, 3);
  scroll(result, 2);
  assert.deepEqual(program.shown, [3, 1]);
});

test("the side that is moved does not lead", () => {
  editor["activeTextEditor"] = program;
  scroll(result, 0);
  assert.deepEqual([program.shown, result.shown], [[], []]);
});

test("the line of the cursor is marked on the other side only", () => {
  editor["activeTextEditor"] = program;
  select(program, 3);
  assert.deepEqual([program.marked, result.marked], [[], [3]]);
  editor["activeTextEditor"] = result;
  select(result, 2);
  assert.deepEqual([program.marked, result.marked], [[1], []]);
});

test("a program without its Torvel beside it moves nothing", () => {
  const other = editorOf(vscode.Uri.file("/plant/other.pgm"));
  editor["activeTextEditor"] = other;
  scroll(other, 4);
  select(other, 4);
  assert.deepEqual([program.shown, result.shown, result.marked], [[], [], []]);
});

test("what is typed brings the Torvel anew, once, when it rests", async () => {
  workspace["textDocuments"] = [{ uri: source }, { uri: torvelAddress(source) }];
  const asked: string[] = [];
  documents.onDidChange((address) => asked.push(address.toString()));
  for (let count = 0; count < 5; count += 1) {
    happens.changedText.fire({ document: { languageId: "brannic", uri: source } });
  }
  happens.changedText.fire({ document: { languageId: "torvel", uri: torvelAddress(source) } });
  assert.deepEqual(asked, []);
  await new Promise<void>((resolve) => {
    documents.onDidChange(() => resolve());
  });
  assert.deepEqual(asked, [torvelAddress(source).toString()]);
});
