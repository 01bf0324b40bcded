// The server's side of the worker. A worker that dies, or does not answer for too long, is replaced by another, which is
// told of all documents and projects.

import { Worker } from "node:worker_threads";
import {
  type Fault,
  type FromWorker,
  isFault,
  type Job,
  type NamesAnswer,
  type ProgramAnswer,
  type ProjectAnswer,
  type ProjectQuestion,
  type TablesAnswer,
  type ToWorker,
} from "./messages.ts";

interface Waiting {
  readonly job: Job;
  readonly resolve: (answer: unknown) => void;
}

/** No conversion takes so long: the limits of the converter see to that. */
const longestJob = 120_000;

export class Converter {
  private worker: Worker | undefined;
  private readonly waiting = new Map<number, Waiting>();
  private readonly documents = new Map<string, Uint8Array>();
  private readonly projects = new Map<number, Job>();
  private last = 0;
  private watch: NodeJS.Timeout | undefined;

  /** `script` is the file that the worker runs. */
  constructor(
    private readonly script: string,
    private readonly tell: (sentence: string) => void,
  ) {}

  setDocument(path: string, text: Uint8Array): void {
    this.documents.set(path, text);
    this.post({ kind: "document", path, text });
  }

  forgetDocument(path: string): void {
    this.documents.delete(path);
    this.post({ kind: "forget", path });
  }

  async openProject(question: ProjectQuestion): Promise<ProjectAnswer | Fault> {
    const id = ++this.last;
    const job: Job = { kind: "project", id, question };
    const answer = await this.ask(job);
    if (!isFault(answer)) {
      this.projects.set(id, job);
    }
    return answer as ProjectAnswer | Fault;
  }

  async closeProject(project: number): Promise<void> {
    this.projects.delete(project);
    await this.ask({ kind: "close", id: ++this.last, project });
  }

  convert(project: number, program: string): Promise<ProgramAnswer | Fault> {
    return this.ask({ kind: "convert", id: ++this.last, project, program }) as Promise<
      ProgramAnswer | Fault
    >;
  }

  /** Of the program that was converted last. */
  names(): Promise<NamesAnswer | Fault> {
    return this.ask({ kind: "names", id: ++this.last }) as Promise<NamesAnswer | Fault>;
  }

  tables(project: number): Promise<TablesAnswer | Fault> {
    return this.ask({ kind: "tables", id: ++this.last, project }) as Promise<TablesAnswer | Fault>;
  }

  async stop(): Promise<void> {
    clearTimeout(this.watch);
    const worker = this.worker;
    this.worker = undefined;
    await worker?.terminate();
  }

  private ask(job: Job): Promise<unknown> {
    return new Promise((resolve) => {
      this.waiting.set(job.id, { job, resolve });
      this.post(job);
      this.watchOver();
    });
  }

  private post(message: ToWorker): void {
    this.worker ??= this.freshWorker();
    this.worker.postMessage(message);
  }

  private freshWorker(): Worker {
    const worker = new Worker(this.script);
    worker.unref();
    worker.on("message", (message: FromWorker) => this.settle(message));
    const replace = (reason: string) => {
      if (this.worker === worker) {
        this.replace(reason);
      }
    };
    worker.on("error", (error) => replace(String(error)));
    worker.on("exit", () => replace("it ended"));
    this.documents.forEach((text, path) => worker.postMessage({ kind: "document", path, text }));
    this.projects.forEach((job) => worker.postMessage(job));
    return worker;
  }

  private settle({ id, answer, trap }: FromWorker): void {
    const waiting = this.waiting.get(id);
    if (waiting === undefined) {
      return;
    }
    this.waiting.delete(id);
    this.watchOver();
    if (trap !== undefined) {
      this.tell(`The converter failed and was started again: ${trap}`);
    }
    waiting.resolve(trap === undefined ? answer : { fault: `The converter failed: ${trap}` });
  }

  /** Nobody waits for ever: what was asked of the old worker has failed. */
  private replace(reason: string): void {
    this.tell(`The converter was started again: ${reason}.`);
    const worker = this.worker;
    this.worker = undefined;
    void worker?.terminate();
    for (const [id, { resolve }] of [...this.waiting]) {
      this.waiting.delete(id);
      resolve({ fault: "The converter was started again." });
    }
  }

  private watchOver(): void {
    clearTimeout(this.watch);
    if (this.waiting.size > 0) {
      this.watch = setTimeout(
        () => this.replace(`it did not answer for ${longestJob / 1000} seconds`),
        longestJob,
      );
      this.watch.unref();
    }
  }
}
