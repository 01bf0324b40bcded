// What becomes of documents and projects when the converter traps.

import assert from "node:assert/strict";
import { test } from "node:test";
import type { ToWorker } from "../src/converter/messages.ts";
import { type Answering, Jobs } from "../src/converter/worker.ts";

/** As the engine has it. */
class TrapError extends Error {
  override readonly name = "RuntimeError";
}

/** Remembers what it is told, and traps when it is asked for the program "trap". */
class Fake implements Answering {
  readonly documents = new Map<string, string>();
  readonly projects: object[] = [];

  setDocument(path: string, text: Uint8Array): void {
    if (path === "trap") {
      throw new TrapError("unreachable");
    }
    this.documents.set(path, new TextDecoder().decode(text));
  }
  forgetDocument(path: string): void {
    this.documents.delete(path);
  }
  names(): Int32Array {
    return Int32Array.from([1, 2]);
  }
  lines(): Int32Array {
    return Int32Array.from([3]);
  }
  ask(question: { do?: string; program?: string; project?: number }): string {
    if (question.do === "project") {
      this.projects.push(question);
      return JSON.stringify({ project: this.projects.length - 1 });
    }
    if (question.program === "trap") {
      throw new TrapError("unreachable");
    }
    const documents = Object.fromEntries(this.documents);
    return JSON.stringify({ ...question, documents });
  }
}

const bytes = (text: string) => new TextEncoder().encode(text);
const question = { file: "", folder: "/a", settings: "", referenceFile: "" };

test("after a trap a fresh instance knows all documents and projects", async () => {
  const made: Fake[] = [];
  const jobs = new Jobs(async () => {
    made.push(new Fake());
    return made[made.length - 1] as Fake;
  });
  const ask = async (message: ToWorker) => (await jobs.handle(message))?.message;

  await jobs.handle({ kind: "document", path: "/a/one", text: bytes("1") });
  assert.equal(made.length, 0, "no instance is made before there is a job");
  const first = await ask({ kind: "project", id: 1, question });
  assert.deepEqual(first, { id: 1, answer: { project: 1 } });
  await ask({ kind: "project", id: 2, question: { ...question, folder: "/b" } });
  await jobs.handle({ kind: "document", path: "/a/two", text: bytes("2") });
  await jobs.handle({ kind: "forget", path: "/a/one" });
  await ask({ kind: "close", id: 3, project: 1 });

  const trapped = await ask({ kind: "convert", id: 4, project: 2, program: "trap" });
  assert.deepEqual(trapped, { id: 4, trap: "RuntimeError: unreachable" });
  assert.equal(made.length, 1);

  const reply = await jobs.handle({ kind: "convert", id: 5, project: 2, program: "/b/main" });
  assert.equal(made.length, 2);
  assert.deepEqual(made[1]?.projects, [{ do: "project", ...question, folder: "/b" }]);
  assert.deepEqual(reply?.message.answer, {
    do: "convert",
    project: 0,
    program: "/b/main",
    documents: { "/a/two": "2" },
  });
  assert.equal(reply?.transfer.length, 0);
  const names = await jobs.handle({ kind: "names", id: 6 });
  assert.deepEqual(names?.message.answer, {
    do: "names",
    documents: { "/a/two": "2" },
    names: Int32Array.from([1, 2]),
    lines: Int32Array.from([3]),
  });
  assert.equal(names?.transfer.length, 2);
});

test("a trap while a document is told leads to a fresh instance too", async () => {
  let made = 0;
  const jobs = new Jobs(async () => {
    ++made;
    return new Fake();
  });
  await jobs.handle({ kind: "project", id: 1, question });
  await jobs.handle({ kind: "document", path: "trap", text: bytes("") });
  await jobs.handle({ kind: "forget", path: "trap" });
  const reply = await jobs.handle({ kind: "tables", id: 2, project: 1 });
  assert.equal(reply?.message.trap, undefined);
  assert.equal(made, 2);
});
