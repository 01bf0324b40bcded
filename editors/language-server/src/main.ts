// The one file of the language server: `node server.cjs --stdio`. Its worker runs the same file.

import { isMainThread } from "node:worker_threads";
import wasm from "../generated/language.wasm";
import { runWorker } from "./converter/worker.ts";
import { runServer } from "./server.ts";

if (isMainThread) {
  runServer(__filename);
} else {
  runWorker(() => wasm);
}
