// Converts beside the server, so that requests stay answered meanwhile.

import { parentPort, type TransferListItem } from "node:worker_threads";
import { Instance } from "./instance.ts";
import type { FromWorker, Job, ToWorker } from "./messages.ts";

/** An instance of the converter, as far as jobs need it. */
export interface Answering {
  setDocument(path: string, text: Uint8Array): void;
  forgetDocument(path: string): void;
  ask(question: object, paths: readonly string[]): string;
  /** Rows of numbers of the names that were asked for last. */
  names(): Int32Array;
  lines(): Int32Array;
}

export interface Reply {
  readonly message: FromWorker;
  readonly transfer: TransferListItem[];
}

interface OpenProject {
  readonly question: Job & { kind: "project" };
  /** In the instance; -1: it could not be opened there. */
  number: number;
}

/** Runs the worker of this thread, whose instances are made of that WebAssembly. */
export function runWorker(wasm: () => Uint8Array): void {
  const port = parentPort;
  if (port === null) {
    throw new Error("This is no worker.");
  }
  const jobs = new Jobs(() => Instance.make(wasm()));
  let last = Promise.resolve();
  port.on("message", (message: ToWorker) => {
    last = last.then(async () => {
      const reply = await jobs.handle(message);
      if (reply !== undefined) {
        port.postMessage(reply.message, reply.transfer);
      }
    });
  });
}

/** Documents and projects outlive the instance: after a trap a fresh one is told of them. */
export class Jobs {
  private instance: Answering | undefined;
  private readonly documents = new Map<string, Uint8Array>();
  private readonly projects = new Map<number, OpenProject>();

  constructor(private readonly makeInstance: () => Promise<Answering>) {}

  /** Undefined: nobody waits for a reply. */
  async handle(message: ToWorker): Promise<Reply | undefined> {
    switch (message.kind) {
      case "document":
        this.documents.set(message.path, message.text);
        this.tryTelling((instance) => instance.setDocument(message.path, message.text));
        return undefined;
      case "forget":
        this.documents.delete(message.path);
        this.tryTelling((instance) => instance.forgetDocument(message.path));
        return undefined;
      default:
        return this.replyTo(message);
    }
  }

  /** A trap is of no interest here: the next job makes an instance that knows all documents. */
  private tryTelling(tell: (instance: Answering) => void): void {
    try {
      if (this.instance !== undefined) {
        tell(this.instance);
      }
    } catch {
      this.instance = undefined;
    }
  }

  private async replyTo(job: Job): Promise<Reply> {
    const { id } = job;
    try {
      this.instance ??= await this.freshInstance();
      const answer = this.answerTo(this.instance, job);
      const transfer = job.kind === "names" ? buffersOf(answer) : [];
      return { message: { id, answer }, transfer };
    } catch (error) {
      this.instance = undefined;
      return { message: { id, trap: String(error) }, transfer: [] };
    }
  }

  private async freshInstance(): Promise<Answering> {
    const instance = await this.makeInstance();
    this.documents.forEach((text, path) => instance.setDocument(path, text));
    for (const project of this.projects.values()) {
      const answer = openProject(instance, project.question);
      project.number = answer.project ?? -1;
    }
    return instance;
  }

  private answerTo(instance: Answering, job: Job): unknown {
    const ask = (question: object, paths: readonly string[]): unknown =>
      JSON.parse(instance.ask(question, paths));
    if (job.kind === "project") {
      const answer = openProject(instance, job);
      if (answer.project !== undefined) {
        this.projects.set(job.id, { question: job, number: answer.project });
      }
      return { ...answer, project: job.id };
    }
    if (job.kind === "names") {
      return {
        ...(ask({ do: "names" }, []) as object),
        names: instance.names(),
        lines: instance.lines(),
      };
    }
    const project = this.projects.get(job.project)?.number ?? -1;
    switch (job.kind) {
      case "close":
        this.projects.delete(job.project);
        return project < 0 ? {} : ask({ do: "close", project }, []);
      case "tables":
        return ask({ do: "tables", project }, []);
      case "convert":
        return ask({ do: "convert", project, program: job.program }, [job.program]);
    }
  }
}

function openProject(
  instance: Answering,
  { question }: Job & { kind: "project" },
): { project?: number } {
  const paths = [question.file, question.folder, question.referenceFile];
  return JSON.parse(instance.ask({ do: "project", ...question }, paths)) as { project?: number };
}

/** Rows of numbers are handed over without being copied. */
function buffersOf(answer: unknown): TransferListItem[] {
  return Object.values(answer as object)
    .filter((value) => value instanceof Int32Array)
    .map(({ buffer }) => buffer as ArrayBuffer);
}
