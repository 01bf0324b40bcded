// What the server knows: the open documents, the programs that they are seen through, and what came of converting these.
//
// After a change the programs of the document wait until nothing changes for a moment, then they are converted whole, one
// after the other, in the worker. One that changes again while it waits is converted once. A result is made of the
// documents as they were when it was begun; it never replaces one that is made of newer ones, and until the next one
// comes its places are moved along with what is typed. Its findings are told before its names are asked for, and while
// somebody types on names come once a second only.

import { setTimeout as pause } from "node:timers/promises";
import type { Diagnostic } from "vscode-languageserver";
import type { Converter } from "./converter/converter.ts";
import { uriOfPath } from "./converter/files.ts";
import { isFault } from "./converter/messages.ts";
import { diagnosticsOf } from "./features/diagnostics.ts";
import { mostPrograms, type Plant, type Plants } from "./plants.ts";
import { Program } from "./program.ts";
import { Result } from "./result.ts";
import type { Documents, OpenDocument } from "./text/documents.ts";

/** What is known of a program. */
export interface Known {
  readonly path: string;
  /** The last one that could be read; its findings are shown. */
  result: Result | undefined;
  /** The last one of which names are known; its places are shown. */
  program: Program | undefined;
  /** The last one, if it could not be read: it has the finding that says why. */
  broken: Result | undefined;
  /** Documents were changed since it was last begun. */
  isStale: boolean;
  /** How long the last conversion took, in milliseconds. */
  took: number;
  /** When names came last. */
  namedAt: number;
  /** Until those of the last result have come, or are not asked for. */
  naming: Promise<void>;
}

export interface Outside {
  publish(uri: string, version: number | undefined, diagnostics: Diagnostic[]): void;
  tell(sentence: string): void;
  /** The page of advice on a code. */
  adviceUri(code: string): string | undefined;
}

/** What was published of a file. */
interface Published {
  readonly uri: string;
  readonly text: string;
}

/** Between a change and the conversion, in milliseconds: a part of what a conversion takes, within these. */
const pausePart = 0.1;
const shortestPause = 20;
const longestPause = 250;
const longestWithoutNames = 1000;

export class Session {
  private readonly known = new Map<string, Known>();
  private published = new Map<string, Published>();
  private timer: NodeJS.Timeout | undefined;
  private isConverting = false;
  private isAsked = false;
  private idle: (() => void)[] = [];

  constructor(
    readonly documents: Documents,
    readonly plants: Plants,
    private readonly converter: Converter,
    private readonly outside: Outside,
  ) {}

  opened(document: OpenDocument): void {
    this.send(document);
    this.wake(0);
  }

  changed(document: OpenDocument): void {
    this.markStale(document.path);
    this.unsent.add(document);
    this.wake(this.pauseFor(document.path));
  }

  closed(document: OpenDocument): void {
    this.unsent.delete(document);
    this.converter.forgetDocument(document.path);
    this.markStale(document.path);
    this.wake(0);
  }

  /** Files on the disk, the settings or the project are others. */
  everythingChanged(): void {
    this.known.forEach((known) => (known.isStale = true));
    this.wake(0);
  }

  /** What is shown beside diagnostics is another. */
  everythingShown(): void {
    this.publish();
  }

  /** When there is something to tell of a document, or nothing will come of it. */
  async firstResult(uri: string): Promise<void> {
    await this.named(uri);
    const document = this.documents.get(uri);
    if (document !== undefined && this.programsWith(document.path).length === 0) {
      await this.settled();
    }
  }

  /** When names are known that belong to the findings which were told of a document, if nothing was typed since. */
  async named(uri: string): Promise<void> {
    const path = this.documents.get(uri)?.path ?? "";
    const current = [...this.known.values()].filter(
      ({ result, isStale }) => !isStale && result?.fileAt(path) !== undefined,
    );
    await Promise.all(current.map(({ naming }) => naming));
  }

  /** The programs that a document is seen through and that could be read, the document itself first. */
  programsWith(path: string): Program[] {
    const programs: Program[] = [];
    for (const { program } of this.known.values()) {
      if (program?.fileAt(path) !== undefined) {
        programs.push(program);
      }
    }
    return programs.sort((a, b) => Number(b.path === path) - Number(a.path === path));
  }

  /** When nothing is left to convert. */
  settled(): Promise<void> {
    if (!this.isConverting && this.timer === undefined) {
      return Promise.resolve();
    }
    return new Promise((resolve) => this.idle.push(resolve));
  }

  stop(): void {
    clearTimeout(this.timer);
    this.timer = undefined;
  }

  private readonly unsent = new Set<OpenDocument>();

  private send(document: OpenDocument): void {
    this.converter.setDocument(document.path, document.bytes());
    this.markStale(document.path);
  }

  private markStale(path: string): void {
    for (const known of this.known.values()) {
      const isPart = [known.result, known.broken].some(
        (made) => made?.fileAt(path) !== undefined || made?.answer.inputs.includes(path),
      );
      if (known.path === path || isPart) {
        known.isStale = true;
      }
    }
  }

  private pauseFor(path: string): number {
    let took = 0;
    for (const known of this.known.values()) {
      if (known.isStale && (known.path === path || known.result?.fileAt(path) !== undefined)) {
        took += known.took;
      }
    }
    return Math.min(Math.max(took * pausePart, shortestPause), longestPause);
  }

  private wake(pause: number): void {
    clearTimeout(this.timer);
    this.timer = setTimeout(() => {
      this.timer = undefined;
      this.isAsked = true;
      if (!this.isConverting) {
        void this.convertAll();
      }
    }, pause);
  }

  private async convertAll(): Promise<void> {
    this.isConverting = true;
    try {
      // While somebody types it waits: the timer calls again.
      while (this.timer === undefined) {
        this.isAsked = false;
        const { generation } = this.plants;
        const next = await this.nextProgram();
        if (generation !== this.plants.generation) {
          continue;
        }
        if (next !== undefined) {
          await this.convert(next.known, next.plant);
          continue;
        }
        this.publish();
        if (!this.isAsked) {
          break;
        }
      }
    } finally {
      this.isConverting = false;
    }
    if (this.timer === undefined) {
      this.idle.splice(0).forEach((resolve) => resolve());
    }
  }

  /** A program that some open document needs and that is not as the documents are. Those that nobody needs are
   * forgotten. */
  private async nextProgram(): Promise<{ known: Known; plant: Plant } | undefined> {
    const needed = new Map<string, Plant>();
    for (const document of [...this.documents.all()]) {
      const plant = await this.plants.plantOf(document.path);
      if (plant !== undefined) {
        this.programsFor(document.path, plant).forEach((program) => needed.set(program, plant));
      }
    }
    for (const path of [...this.known.keys()]) {
      if (!needed.has(path)) {
        this.known.delete(path);
      }
    }
    for (const [path, plant] of needed) {
      let known = this.known.get(path);
      if (known === undefined) {
        known = {
          path,
          result: undefined,
          program: undefined,
          broken: undefined,
          isStale: true,
          took: 0,
          namedAt: -Infinity,
          naming: Promise.resolve(),
        };
        this.known.set(path, known);
      }
      if (known.isStale) {
        return { known, plant };
      }
    }
    return undefined;
  }

  private programsFor(path: string, plant: Plant): readonly string[] {
    if (plant.programs.has(path)) {
      return [path];
    }
    const reaching = plant.reached.get(path);
    if (reaching !== undefined) {
      const open = reaching.filter((program) => this.documents.at(program) !== undefined);
      return [...new Set([...open, ...reaching])].slice(0, mostPrograms);
    }
    // Without a project: the other documents that were seen to include it.
    const including = [...this.known.values()].filter(
      ({ path: other, result }) =>
        other !== path &&
        this.documents.at(other) !== undefined &&
        result?.fileAt(path) !== undefined,
    );
    return including.length > 0 ? including.map(({ path: other }) => other) : [path];
  }

  private async convert(known: Known, plant: Plant): Promise<void> {
    this.unsent.forEach((document) => this.send(document));
    this.unsent.clear();
    known.isStale = false;
    const versions = new Map<string, number>();
    for (const document of this.documents.all()) {
      versions.set(document.path, document.version);
    }
    const { generation } = this.plants;
    const began = performance.now();
    const answer = await this.converter.convert(plant.project, known.path);
    known.took = performance.now() - began;
    if (generation !== this.plants.generation) {
      known.isStale = true;
    }
    if (isFault(answer)) {
      if (!known.isStale) {
        this.outside.tell(`${known.path}: ${answer.fault}`);
      }
      return;
    }
    const result = new Result(answer, versions);
    this.take(known, result);
    if (result.isReadable) {
      known.naming = this.takeNames(known, result);
    }
    this.publish();
    await known.naming;
    this.forgetOldMoves();
  }

  private async takeNames(known: Known, result: Result): Promise<void> {
    await pause(Math.min(known.took, shortestPause));
    if (known.isStale && performance.now() - known.namedAt < longestWithoutNames) {
      return;
    }
    const names = await this.converter.names();
    known.namedAt = performance.now();
    if (!isFault(names)) {
      known.program = new Program(result, names);
    }
  }

  private take(known: Known, result: Result): void {
    if (result.isReadable) {
      known.result = result;
      known.broken = undefined;
    } else {
      known.broken = result;
    }
    if (this.isOutdated(result)) {
      known.isStale = true;
    }
  }

  /** Documents were opened, changed or closed while it was converted, when nobody knew that it has them. */
  private isOutdated({ answer, versions }: Result): boolean {
    const paths = [...answer.files.map(({ path }) => path), ...answer.inputs];
    return paths.some((path) => this.documents.at(path)?.version !== versions.get(path));
  }

  private forgetOldMoves(): void {
    for (const document of this.documents.all()) {
      let oldest = document.version;
      for (const { result, program, broken } of this.known.values()) {
        for (const made of [result, program, broken]) {
          oldest = Math.min(oldest, made?.versions.get(document.path) ?? oldest);
        }
      }
      document.moves.forgetBefore(oldest);
    }
  }

  private wasConverted(path: string): boolean {
    return [...this.known.values()].some(({ result, broken }) =>
      [result, broken].some((made) => made?.path === path || made?.fileAt(path) !== undefined),
    );
  }

  private publish(): void {
    const byPath = diagnosticsOf([...this.known.values()], this.documents, this.outside.adviceUri);
    // One without findings is told too, so that the editor knows it was looked at.
    for (const { path } of this.documents.all()) {
      if (!byPath.has(path) && this.wasConverted(path)) {
        byPath.set(path, []);
      }
    }
    const published = new Map<string, Published>();
    for (const [path, diagnostics] of byPath) {
      const document = this.documents.at(path);
      const uri = document?.uri ?? this.published.get(path)?.uri ?? uriOfPath(path);
      const told = { uri, text: JSON.stringify([document?.version, diagnostics]) };
      published.set(path, told);
      if (this.published.get(path)?.text !== told.text) {
        this.outside.publish(uri, document?.version, diagnostics);
      }
    }
    for (const [path, { uri }] of this.published) {
      if (!byPath.has(path)) {
        this.outside.publish(uri, undefined, []);
      }
    }
    this.published = published;
  }
}
