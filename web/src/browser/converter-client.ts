// The page's side of the worker. A worker that dies or does not answer any more is ended; what waits for it fails with
// `WorkerLost`, and the next one is started with the same files.

import type { Settings } from "../converter/project.ts";
import type { ChosenFiles, Refusal } from "./dropped-files.ts";
import { tabLimits } from "./limits.ts";
import type { Answered, Question, Questions } from "./messages.ts";

export class WorkerLost extends Error {
  override readonly name = "WorkerLost";
}

interface Waiting {
  readonly resolve: (answer: never) => void;
  readonly reject: (error: Error) => void;
}

export class ConverterClient {
  private worker: Worker | null = null;
  private waiting = new Map<number, Waiting>();
  private lastId = 0;
  private files: ChosenFiles = new Map();
  private settings: Settings | null = null;

  constructor(
    private readonly script: Blob,
    private readonly wasm: Uint8Array,
  ) {}

  /** Gives the worker other files. */
  async start(files: ChosenFiles): Promise<Refusal[]> {
    this.files = files;
    this.settings = null;
    return this.ask("start", { wasm: this.wasm, files: [...files] });
  }

  async open(settings: Settings): Promise<Questions["open"][1]> {
    this.settings = settings;
    return this.ask("open", settings);
  }

  /** Another worker with the same files and project, in the place of one that was lost. */
  async restart(): Promise<void> {
    await this.ask("start", { wasm: this.wasm, files: [...this.files] });
    if (this.settings !== null) {
      await this.ask("open", this.settings);
    }
  }

  ask<Name extends Question>(
    question: Name,
    argument: Questions[Name][0],
    patience = 10 * tabLimits.patience,
  ): Promise<Questions[Name][1]> {
    this.worker ??= this.newWorker();
    const id = ++this.lastId;
    const { worker } = this;
    return new Promise<Questions[Name][1]>((resolve, reject) => {
      const timer = setTimeout(() => this.lose("it took longer than is waited for"), patience);
      const done = () => clearTimeout(timer);
      this.waiting.set(id, {
        resolve: (answer) => (done(), resolve(answer)),
        reject: (error) => (done(), reject(error)),
      });
      worker.postMessage({ id, question, argument });
    });
  }

  /** Ends the worker, and gives its memory back. */
  lose(reason: string): void {
    this.worker?.terminate();
    this.worker = null;
    const waiting = [...this.waiting.values()];
    this.waiting.clear();
    waiting.forEach(({ reject }) => reject(new WorkerLost(reason)));
  }

  private newWorker(): Worker {
    const address = URL.createObjectURL(this.script);
    const worker = new Worker(workerAddress(address) as string);
    worker.onmessage = ({ data }: MessageEvent<Answered>) => {
      const waiting = this.waiting.get(data.id);
      this.waiting.delete(data.id);
      if (data.failure !== undefined) {
        waiting?.reject(new Error(data.failure));
      } else {
        waiting?.resolve(data.answer as never);
      }
    };
    worker.onerror = (event) => {
      event.preventDefault();
      this.lose(event.message === "" ? "the worker ended" : event.message);
    };
    return worker;
  }
}

const rules = {
  createScriptURL: (url: string) => {
    if (!url.startsWith("blob:")) {
      throw new TypeError(`${url} is not the worker's.`);
    }
    return url;
  },
};

/** An address that the policy of the page takes for a worker's. */
const policy = window.trustedTypes?.createPolicy("torvel-worker", rules) ?? rules;
const workerAddress = (url: string): unknown => policy.createScriptURL(url);
