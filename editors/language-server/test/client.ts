// A client over standard input and output, as an editor has one.

import { type ChildProcess, spawn } from "node:child_process";
import { mkdirSync, mkdtempSync, realpathSync, rmSync, writeFileSync } from "node:fs";
import { tmpdir } from "node:os";
import { dirname, join } from "node:path";
import { after } from "node:test";
import { pathToFileURL } from "node:url";
import {
  createMessageConnection,
  type MessageConnection,
  StreamMessageReader,
  StreamMessageWriter,
} from "vscode-jsonrpc/node.js";
import type { Diagnostic, PublishDiagnosticsParams, Range } from "vscode-languageserver";

const patience = 20_000;

/** The file that is tested. */
export const serverFile =
  process.env["TORVEL_LANGUAGE_SERVER"] ?? "build/editors/language-server/server.cjs";

/** A folder with files that goes when the test ends. */
export class Folder {
  readonly path = realpathSync(mkdtempSync(join(tmpdir(), "language-server-")));

  file(name: string): string {
    return join(this.path, name);
  }
  uri(name: string): string {
    return pathToFileURL(this.file(name)).href;
  }
  write(name: string, text: string | Uint8Array): string {
    mkdirSync(dirname(this.file(name)), { recursive: true });
    writeFileSync(this.file(name), text);
    return this.uri(name);
  }
  remove(): void {
    rmSync(this.path, { recursive: true, force: true });
  }
}

interface Waiting {
  readonly uri: string;
  readonly fits: (published: PublishDiagnosticsParams) => boolean;
  readonly resolve: (diagnostics: Diagnostic[]) => void;
}

/** A test that failed leaves no server behind. */
const running: ChildProcess[] = [];
after(() => running.forEach((server) => server.kill()));

export class Client {
  readonly published = new Map<string, PublishDiagnosticsParams>();
  readonly log: string[] = [];
  private waiting: Waiting[] = [];
  private readonly versions = new Map<string, number>();

  private constructor(
    readonly server: ChildProcess,
    readonly connection: MessageConnection,
  ) {}

  static async start(
    root: string | null,
    options: unknown = undefined,
    capabilities: object = {},
    configuration: unknown = null,
  ): Promise<Client> {
    const server = spawn(process.execPath, [serverFile, "--stdio"], {
      stdio: ["pipe", "pipe", "inherit"],
    });
    running.push(server);
    const { stdout, stdin } = server;
    const connection = createMessageConnection(
      new StreamMessageReader(stdout),
      new StreamMessageWriter(stdin),
    );
    const client = new Client(server, connection);
    connection.onNotification("textDocument/publishDiagnostics", (params) =>
      client.take(params as PublishDiagnosticsParams),
    );
    connection.onNotification("window/logMessage", ({ message }: { message: string }) =>
      client.log.push(message),
    );
    connection.onRequest("workspace/configuration", ({ items }: { items: unknown[] }) =>
      items.map(() => configuration),
    );
    connection.onRequest("client/registerCapability", () => null);
    connection.listen();
    await client.request("initialize", {
      processId: process.pid,
      rootUri: root === null ? null : pathToFileURL(root).href,
      initializationOptions: options,
      capabilities,
    });
    client.notify("initialized", {});
    return client;
  }

  async stop(): Promise<number | null> {
    const ended = new Promise<number | null>((resolve) => this.server.on("exit", resolve));
    await this.request("shutdown", null);
    this.notify("exit", null);
    const status = await within(ended, "the server did not end");
    this.connection.dispose();
    return status;
  }

  request<Answer>(method: string, params: unknown): Promise<Answer> {
    return within(
      this.connection.sendRequest<Answer>(method, params),
      `${method} was not answered`,
    );
  }
  notify(method: string, params: unknown): void {
    void this.connection.sendNotification(method, params as object);
  }

  open(uri: string, text: string): void {
    this.versions.set(uri, 1);
    this.notify("textDocument/didOpen", {
      textDocument: { uri, languageId: "brannic", version: 1, text },
    });
  }
  /** Replaces a range, or the whole text. */
  change(uri: string, text: string, range?: Range): void {
    const version = (this.versions.get(uri) ?? 0) + 1;
    this.versions.set(uri, version);
    this.notify("textDocument/didChange", {
      textDocument: { uri, version },
      contentChanges: [range === undefined ? { text } : { range, text }],
    });
  }
  close(uri: string): void {
    this.versions.delete(uri);
    this.notify("textDocument/didClose", { textDocument: { uri } });
  }

  /** The first that are published for the newest version of a document and fit. */
  diagnostics(
    uri: string,
    fits: (diagnostics: Diagnostic[]) => boolean = () => true,
  ): Promise<Diagnostic[]> {
    const isNew = (published: PublishDiagnosticsParams) =>
      (published.version === undefined || published.version === this.versions.get(uri)) &&
      fits(published.diagnostics);
    const known = this.published.get(uri);
    if (known !== undefined && isNew(known)) {
      return Promise.resolve(known.diagnostics);
    }
    const waiting = new Promise<Diagnostic[]>((resolve) =>
      this.waiting.push({ uri, fits: isNew, resolve }),
    );
    return within(waiting, `no such diagnostics of ${uri}: ${JSON.stringify(known)}`);
  }

  at(uri: string, line: number, character: number) {
    return { textDocument: { uri }, position: { line, character } };
  }
  hover(uri: string, line: number, character: number): Promise<string> {
    return this.request<{ contents: { value: string } } | null>(
      "textDocument/hover",
      this.at(uri, line, character),
    ).then((hover) => hover?.contents.value ?? "");
  }
  command<Answer>(command: string, ...given: unknown[]): Promise<Answer> {
    return this.request<Answer>("workspace/executeCommand", { command, arguments: given });
  }

  private take(params: PublishDiagnosticsParams): void {
    this.published.set(params.uri, params);
    const fitting = this.waiting.filter(({ uri, fits }) => uri === params.uri && fits(params));
    this.waiting = this.waiting.filter((waiting) => !fitting.includes(waiting));
    fitting.forEach(({ resolve }) => resolve(params.diagnostics));
  }
}

export function within<Result>(promise: Promise<Result>, otherwise: string): Promise<Result> {
  let timer: NodeJS.Timeout | undefined;
  const late = new Promise<Result>((_, reject) => {
    timer = setTimeout(() => reject(new Error(otherwise)), patience);
  });
  return Promise.race([promise, late]).finally(() => clearTimeout(timer));
}

/** "line:first-last code" of each, in order. */
export function shown(diagnostics: readonly Diagnostic[]): string[] {
  return diagnostics
    .map(
      ({ range: { start, end }, code }) =>
        `${start.line}:${start.character}-${end.character} ${code}`,
    )
    .sort();
}

export function rangeAt(line: number, first: number, last: number, lastLine = line): Range {
  return { start: { line, character: first }, end: { line: lastLine, character: last } };
}
