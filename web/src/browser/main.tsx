// The page has the worker, the WebAssembly and the page for reports in itself, packed as reports are.

import { render } from "preact";
import { unpackedBytes } from "../data/unpack.ts";
import { App } from "./app.tsx";
import { ConverterClient } from "./converter-client.ts";

async function partOf(id: string): Promise<Uint8Array<ArrayBuffer>> {
  const element = document.getElementById(id);
  const bytes = await unpackedBytes(element?.textContent ?? "");
  element?.remove();
  return bytes;
}

async function show(root: HTMLElement): Promise<void> {
  const [worker, wasm, emptyPage] = await Promise.all([
    partOf("worker"),
    partOf("converter"),
    partOf("report-page"),
  ]);
  const script = new Blob([worker], { type: "text/javascript" });
  root.textContent = "";
  render(<App client={new ConverterClient(script, wasm)} emptyPage={emptyPage} />, root);
}

const root = document.getElementById("root");
if (root !== null) {
  show(root).catch((error: unknown) => {
    root.textContent = `This page cannot be shown: ${String(error)}`;
  });
}
