// How fast a program of 100,000 lines is answered for: node bench.mjs [LINES]
// Each figure is the median of some tries, in milliseconds.

import { Client, Folder, rangeAt } from "../test/client.ts";

const lineCount = Number(process.argv[2] ?? 100_000);
const tries = 9;

function programOf(lines: number): string {
  const block = [
    "#define SPEED@ 1500",
    "G1 X($position * 10.25) Y(20 + $offset) F SPEED@ ; next hole",
    "IF $count@ == 3 THEN",
    "  MOVEINC X 10 5 ; to the gauge",
    "  WAIT ($DI[2].X == 1) 5000",
    "ENDIF",
    "$count@ = $count@ + 1",
    "HOME X Y",
    "GOTO label@",
    "label@: LINEAR X10 Y20",
  ];
  const text: string[] = [];
  for (let i = 0; text.length < lines; ++i) {
    block.forEach((line) => text.push(line.replaceAll("@", String(i))));
  }
  return text.slice(0, lines).join("\n") + "\n";
}

function median(values: number[]): string {
  const sorted = [...values].sort((a, b) => a - b);
  return (sorted[sorted.length >> 1] ?? 0).toFixed(0);
}

async function timed(step: () => Promise<unknown>): Promise<number> {
  const began = performance.now();
  await step();
  return performance.now() - began;
}

const folder = new Folder();
const text = programOf(lineCount);
const uri = folder.write("large.pgm", text);
const client = await Client.start(folder.path);
const middle = lineCount >> 1;
const report = (what: string, values: number[]) =>
  console.log(
    `${what}: ${median(values)} (${Math.min(...values).toFixed(0)} to ${Math.max(...values).toFixed(0)})`,
  );

console.log(`${lineCount} lines, ${(text.length / 1e6).toFixed(1)} MB, node ${process.version}`);
report("opened, until its first diagnostics", [
  await timed(() => {
    client.open(uri, text);
    return client.diagnostics(uri);
  }),
]);

const diagnosed: number[] = [];
const duringChange: number[] = [];
const completed: number[] = [];
for (let i = 0; i < tries; ++i) {
  diagnosed.push(
    await timed(async () => {
      client.change(uri, `PROBE X${i}\n`, rangeAt(middle, 0, 0));
      const all = client.diagnostics(uri, (list) => list.length > 0);
      completed.push(
        await timed(() => client.request("textDocument/completion", client.at(uri, middle, 3))),
      );
      await all;
    }),
  );
}
report("a keystroke, until the diagnostics of the whole file", diagnosed);
report("a keystroke, until the completion behind it", completed);
for (let i = 0; i < 40; ++i) {
  // Somebody types on and on, so that conversions run beside.
  client.change(uri, `PROBE Y${i}\n`, rangeAt(middle, 0, 0));
  duringChange.push(await timed(() => client.hover(uri, middle + 20, 3)));
  await new Promise((resolve) => setTimeout(resolve, 60));
}
report("hover while somebody types and it converts", duringChange);
await client.diagnostics(uri, (list) => list.length > 0);
const ask = (method: string, more: object = {}) =>
  timed(() => client.request(method, { ...client.at(uri, middle + 60, 2), ...more }));
for (const method of [
  "textDocument/hover",
  "textDocument/definition",
  "textDocument/documentSymbol",
  "textDocument/foldingRange",
]) {
  const values: number[] = [];
  for (let i = 0; i < tries; ++i) {
    values.push(await ask(method));
  }
  report(method, values);
}
report("textDocument/references", [
  await ask("textDocument/references", { context: { includeDeclaration: true } }),
]);
report("brannic.torvel", [await timed(() => client.request("brannic.torvel", { uri }))]);
await client.stop();
folder.remove();
