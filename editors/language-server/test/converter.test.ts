// What becomes of questions when the worker dies.

import assert from "node:assert/strict";
import { test } from "node:test";
import { Converter } from "../src/converter/converter.ts";
import { Folder, within } from "./client.ts";

/** Answers with all that it was told; ends at the program "die". */
const script = `
const { parentPort } = require("node:worker_threads");
const told = [];
parentPort.on("message", (message) => {
  if (message.kind === "convert" && message.program === "die") process.exit(3);
  told.push(message.kind + " " + (message.path ?? message.program ?? message.question?.folder));
  if (message.id !== undefined) parentPort.postMessage({ id: message.id, answer: { project: message.id, told } });
});
`;

test("a worker that dies is replaced, and the next one is told of all documents and projects", async () => {
  const folder = new Folder();
  folder.write("worker.cjs", script);
  const told: string[] = [];
  const converter = new Converter(folder.file("worker.cjs"), (sentence) => told.push(sentence));
  const ask = (program: string) => within(converter.convert(1, program), program);

  converter.setDocument("/a", new Uint8Array());
  converter.setDocument("/b", new Uint8Array());
  converter.forgetDocument("/b");
  await converter.openProject({ file: "", folder: "/f", settings: "", referenceFile: "" });

  // Whoever waits gets a fault, and nobody waits for ever.
  const waiting = [ask("die"), ask("behind")];
  for (const answer of await Promise.all(waiting)) {
    assert.deepEqual(answer, { fault: "The converter was started again." });
  }
  assert.equal(told.length, 1);

  const answer = (await ask("next")) as unknown as { told: string[] };
  assert.deepEqual(answer.told, ["document /a", "project /f", "convert next"]);
  await converter.stop();
  folder.remove();
});
