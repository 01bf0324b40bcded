// Wires what an editor says to the session and the features.

import { existsSync, readdirSync } from "node:fs";
import { dirname, join } from "node:path";
import { pathToFileURL } from "node:url";
import {
  type CancellationToken,
  createConnection,
  DidChangeConfigurationNotification,
  DidChangeWatchedFilesNotification,
  ErrorCodes,
  type InitializeParams,
  type InitializeResult,
  ProposedFeatures,
  ResponseError,
  TextDocumentSyncKind,
} from "vscode-languageserver/node";
import { version } from "../package.json";
import { Converter } from "./converter/converter.ts";
import { pathOfUri } from "./converter/files.ts";
import { isFault, type TablesAnswer } from "./converter/messages.ts";
import { completionAt } from "./features/completion.ts";
import { explanationOf, hoverAt } from "./features/hover.ts";
import { definitionsAt, referencesAt } from "./features/navigation.ts";
import { foldsOf, type Limited, symbolsOf } from "./features/outline.ts";
import { torvelOf } from "./features/torvel.ts";
import { Plants } from "./plants.ts";
import { Session } from "./session.ts";
import { sectionOf, settingsOf } from "./settings.ts";
import { Documents, type OpenDocument } from "./text/documents.ts";

/** `brannic.torvel` and `brannic.explain`, for editors that know no other way. */
export const commands = { torvel: "brannic.torvel", explain: "brannic.explain" } as const;

/** Files change many at once, in milliseconds. */
const pauseOfFiles = 500;

/** `script` is the file that runs, which its worker runs too. */
export function runServer(script: string): void {
  const connection = createConnection(ProposedFeatures.all);
  const tell = (sentence: string) => connection.console.warn(sentence);
  const converter = new Converter(script, tell);
  const documents = new Documents();
  const plants = new Plants(converter, "", tell);
  const pages = pagesBeside(script);
  let tables: TablesAnswer | undefined;
  const session = new Session(documents, plants, converter, {
    publish: (uri, version, diagnostics) =>
      void connection.sendDiagnostics({
        uri,
        diagnostics,
        ...(version === undefined ? {} : { version }),
      }),
    tell,
    adviceUri: (code) => {
      const page = pages.get(tables?.codes[code]?.page ?? "");
      return page === undefined ? undefined : `${page}#${code}`;
    },
  });

  /** What codes and predefined names mean, of the project that a document belongs to. */
  const readTables = async (path: string): Promise<TablesAnswer | undefined> => {
    const plant = await plants.plantOf(path);
    if (plant !== undefined) {
      const answer = await converter.tables(plant.project);
      tables = isFault(answer) ? tables : answer;
    }
    return tables;
  };

  let filesTimer: NodeJS.Timeout | undefined;
  let asksForSettings = false;
  let registersChanges = false;
  let root = "";

  connection.onInitialize((params): InitializeResult => {
    asksForSettings = params.capabilities.workspace?.configuration === true;
    registersChanges =
      params.capabilities.workspace?.didChangeWatchedFiles?.dynamicRegistration === true;
    root = rootOf(params);
    plants.start(root, settingsOf(params.initializationOptions));
    return {
      capabilities: {
        textDocumentSync: {
          openClose: true,
          change: TextDocumentSyncKind.Incremental,
          save: { includeText: false },
        },
        hoverProvider: true,
        definitionProvider: true,
        referencesProvider: true,
        documentSymbolProvider: true,
        foldingRangeProvider: true,
        completionProvider: { triggerCharacters: ["$", "#"] },
        executeCommandProvider: { commands: Object.values(commands) },
      },
      serverInfo: { name: "BrannicToTorvel64", version },
    };
  });

  const configure = (given: unknown) => {
    plants.configure(settingsOf(given));
    tables = undefined;
    session.everythingChanged();
  };
  const askForSettings = async () => {
    try {
      configure(await connection.workspace.getConfiguration("brannic"));
    } catch {
      // The editor said that it can be asked, and cannot.
    }
  };

  connection.onInitialized(() => {
    if (asksForSettings) {
      void connection.client.register(DidChangeConfigurationNotification.type, {
        section: "brannic",
      });
      void askForSettings();
    }
    if (registersChanges) {
      void connection.client.register(DidChangeWatchedFilesNotification.type, {
        watchers: [{ globPattern: "**/*" }],
      });
    }
  });
  connection.onDidChangeConfiguration(({ settings }) => {
    if (asksForSettings) {
      void askForSettings();
    } else {
      configure(sectionOf(settings));
    }
  });
  connection.onDidChangeWatchedFiles(({ changes }) => {
    // What torvel-migrate writes changes nothing.
    const isInput = (uri: string) => !/\.(torvel|log|sqlite[\w-]*|html|csv|json)$/i.test(uri);
    if (changes.some(({ uri }) => isInput(uri) && documents.get(uri) === undefined)) {
      clearTimeout(filesTimer);
      filesTimer = setTimeout(() => {
        plants.reopen();
        session.everythingChanged();
      }, pauseOfFiles);
    }
  });

  connection.onDidOpenTextDocument((params) => {
    const document = documents.open(params);
    if (document !== undefined) {
      session.opened(document);
      if (tables === undefined) {
        void readTables(document.path).then(() => session.everythingShown());
      }
    }
  });
  connection.onDidChangeTextDocument((params) => {
    const document = documents.change(params);
    if (document !== undefined) {
      session.changed(document);
    }
  });
  connection.onDidSaveTextDocument(({ textDocument }) => {
    const document = documents.get(textDocument.uri);
    if (document?.wasSaved() === true) {
      plants.reopen();
      session.everythingChanged();
    }
  });
  connection.onDidCloseTextDocument(({ textDocument }) => {
    const document = documents.close(textDocument.uri);
    if (document !== undefined) {
      session.closed(document);
    }
  });

  /** A document that is not open has no answer. */
  const withDocument = <Result>(
    uri: string,
    otherwise: Result,
    use: (document: OpenDocument) => Result,
  ): Result => {
    const document = documents.get(uri);
    return document === undefined ? otherwise : use(document);
  };
  const withNames = async <Result>(
    uri: string,
    otherwise: Result,
    use: (document: OpenDocument) => Result,
  ): Promise<Result> => {
    await session.named(uri);
    return withDocument(uri, otherwise, use);
  };
  /** What an editor does not take is left out, and it is told how much that is. */
  const told = new Set<string>();
  const limitedTo = <Item>(uri: string, what: string, { items, left }: Limited<Item>): Item[] => {
    if (left > 0 && !told.has(`${what} ${uri}`)) {
      told.add(`${what} ${uri}`);
      tell(`${left} more ${what} of ${uri} are not shown.`);
    }
    return items;
  };

  connection.onHover(({ textDocument, position }) =>
    withNames(textDocument.uri, null, (document) => hoverAt(session, tables, document, position)),
  );
  connection.onDefinition(({ textDocument, position }) =>
    withNames(textDocument.uri, [], (document) => definitionsAt(session, document, position)),
  );
  connection.onReferences(({ textDocument, position, context }) =>
    withNames(textDocument.uri, [], (document) =>
      referencesAt(session, document, position, context.includeDeclaration),
    ),
  );
  connection.onDocumentSymbol(async ({ textDocument: { uri } }) => {
    await session.firstResult(uri);
    return withDocument(uri, [], (document) =>
      limitedTo(uri, "symbols", symbolsOf(session, document)),
    );
  });
  connection.onFoldingRanges(async ({ textDocument: { uri } }) => {
    await session.firstResult(uri);
    return withDocument(uri, [], (document) => limitedTo(uri, "folds", foldsOf(session, document)));
  });
  connection.onCompletion(({ textDocument, position }) =>
    withNames(textDocument.uri, null, (document) =>
      completionAt(session, tables, document, position),
    ),
  );

  const textArgument = (value: unknown): string => {
    if (typeof value !== "string") {
      throw new ResponseError(ErrorCodes.InvalidParams, "The argument has to be a text.");
    }
    return value;
  };
  const torvel = (uri: unknown, token: CancellationToken) =>
    torvelOf(session, textArgument(uri)).then((text) =>
      token.isCancellationRequested ? null : text,
    );
  const explain = async (code: unknown) => {
    const of = textArgument(code);
    tables ??= await readTables(root);
    return explanationOf(of, tables) ?? null;
  };
  connection.onExecuteCommand(({ command, arguments: given }, token) => {
    switch (command) {
      case commands.torvel:
        return torvel(given?.[0], token);
      case commands.explain:
        return explain(given?.[0]);
      default:
        throw new ResponseError(ErrorCodes.InvalidParams, `There is no command ${command}.`);
    }
  });
  connection.onRequest(commands.torvel, (params: unknown, token: CancellationToken) =>
    torvel((params as { uri?: unknown } | null)?.uri, token),
  );

  connection.onShutdown(async () => {
    clearTimeout(filesTimer);
    session.stop();
    await converter.stop();
  });
  connection.listen();
}

function rootOf({ workspaceFolders, rootUri, rootPath }: InitializeParams): string {
  const uri = workspaceFolders?.[0]?.uri ?? rootUri ?? undefined;
  if (uri !== undefined) {
    return pathOfUri(uri) ?? "";
  }
  return typeof rootPath === "string" && rootPath !== ""
    ? (pathOfUri(pathToFileURL(rootPath).href) ?? "")
    : "";
}

/** The addresses of the pages of advice that lie beside the server. */
function pagesBeside(script: string): ReadonlyMap<string, string> {
  const folder = join(dirname(script), "docs");
  const names = existsSync(folder) ? readdirSync(folder) : [];
  return new Map(names.map((name) => [name, pathToFileURL(join(folder, name)).href]));
}
