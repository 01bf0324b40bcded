// The language server, which runs beside the editor. Without it, or when it does not start, colours and snippets are
// there all the same.

import { existsSync } from "node:fs";
import * as vscode from "vscode";
import { ExecuteCommandRequest, LanguageClient, TransportKind } from "vscode-languageclient/node";
import { settingsFor } from "./settings.ts";

/** Where the server stands in the extension. */
export const serverFile = "server/server.cjs";

/** What the server says of a document: its Torvel, and for each line of it the line of the source, both from 0. */
export interface Torvel {
  readonly text: string;
  readonly lines: readonly number[];
}

function isTorvel(value: unknown): value is Torvel {
  const { text, lines } = (value ?? {}) as Partial<Torvel>;
  return (
    typeof text === "string" &&
    Array.isArray(lines) &&
    lines.every((line) => Number.isInteger(line))
  );
}

/** Settings as the server takes them: paths are whole. */
function serverSettings() {
  const { parameterFile, projectFile, referenceRows } = settingsFor(
    vscode.window.activeTextEditor?.document.uri,
  );
  return { parameterFile, projectFile, referenceRows };
}

export class LanguageServer {
  private client: LanguageClient | undefined;

  constructor(
    private readonly context: vscode.ExtensionContext,
    private readonly log: vscode.OutputChannel,
  ) {}

  async start(): Promise<void> {
    const module = this.context.asAbsolutePath(serverFile);
    if (!existsSync(module)) {
      this.log.appendLine("The language server is not in this build of the extension.");
      return;
    }
    const client = new LanguageClient(
      "brannic",
      "Brannic",
      { module, transport: TransportKind.stdio },
      {
        documentSelector: [
          { scheme: "file", language: "brannic" },
          { scheme: "untitled", language: "brannic" },
        ],
        outputChannel: this.log,
        initializationOptions: serverSettings(),
        middleware: {
          // The server asks for its settings when they change.
          workspace: {
            configuration: ({ items }) =>
              items.map(({ section }) => (section === "brannic" ? serverSettings() : null)),
          },
        },
      },
    );
    this.client = client;
    try {
      await client.start();
    } catch (error) {
      this.client = undefined;
      this.log.appendLine(`The language server did not start: ${String(error)}`);
    }
  }

  /** The Torvel of a document that is open in the editor. */
  async torvelOf(source: vscode.Uri, cancel: vscode.CancellationToken): Promise<Torvel> {
    const { client } = this;
    if (client === undefined) {
      throw new Error("The language server does not run: its output tells why.");
    }
    const answer: unknown = await client.sendRequest(
      ExecuteCommandRequest.type,
      {
        command: "brannic.torvel",
        arguments: [client.code2ProtocolConverter.asUri(source)],
      },
      cancel,
    );
    if (!isTorvel(answer)) {
      throw new Error("The language server has no Torvel for this document.");
    }
    return answer;
  }

  async stop(): Promise<void> {
    await this.client?.stop();
  }
}
