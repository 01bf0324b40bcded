// The packed extension, not the folder that it is made from.

import assert from "node:assert/strict";
import { execFileSync, spawn } from "node:child_process";
import {
  cpSync,
  existsSync,
  mkdirSync,
  mkdtempSync,
  readdirSync,
  readFileSync,
  rmSync,
  statSync,
  writeFileSync,
} from "node:fs";
import { tmpdir } from "node:os";
import { dirname } from "node:path";
import { after, test } from "node:test";
import { pathToFileURL } from "node:url";
import { createMessageConnection } from "vscode-jsonrpc/node.js";
import { readPackage } from "../zip.mjs";

interface Manifest {
  readonly name: string;
  readonly version: string;
  readonly main: string;
  readonly engines: Readonly<Record<string, string>>;
  readonly contributes: {
    readonly languages: readonly { id: string; extensions: string[]; configuration: string }[];
    readonly grammars: readonly { language: string; scopeName: string; path: string }[];
    readonly snippets: readonly { language: string; path: string }[];
    readonly commands: readonly { command: string }[];
    readonly menus: Readonly<Record<string, readonly { command: string }[]>>;
    readonly configuration: { readonly properties: Readonly<Record<string, unknown>> };
  };
}

const source = JSON.parse(readFileSync("editors/vscode/package.json", "utf8")) as Manifest;
const files: ReadonlyMap<string, Buffer> = await readPackage(
  `build/editors/${source.name}-${source.version}.vsix`,
);
const unpacked = mkdtempSync(`${tmpdir()}/extension-`);
for (const [path, content] of files) {
  mkdirSync(dirname(`${unpacked}/${path}`), { recursive: true });
  writeFileSync(`${unpacked}/${path}`, content);
}
after(() => rmSync(unpacked, { recursive: true }));

const extension = `${unpacked}/extension`;
const manifest = JSON.parse(readFileSync(`${extension}/package.json`, "utf8")) as Manifest;
const { contributes } = manifest;
const contentOf = (path: string) => JSON.parse(readFileSync(`${extension}/${path}`, "utf8"));

test("the package has what the manifest names, and nothing of the workshop", () => {
  const named = [
    manifest.main,
    ...contributes.languages.map(({ configuration }) => configuration),
    ...contributes.grammars.map(({ path }) => path),
    ...contributes.snippets.map(({ path }) => path),
  ].map((path) => path.replace(/^\.\//, "extension/"));
  const others = [
    "extension/package.json",
    "extension/README.md",
    "extension/LICENSE.txt",
    "extension/THIRD-PARTY-NOTICES.txt",
    "extension.vsixmanifest",
    "[Content_Types].xml",
  ];
  const outsideOfServer = [...files.keys()].filter((path) => !path.startsWith("extension/server/"));
  assert.deepEqual(outsideOfServer.sort(), [...named, ...others].sort());
  assert.deepEqual(Object.keys(manifest.engines), ["vscode"]);
  assert.equal("devDependencies" in manifest, false);
});

test("grammars, snippets and configurations are read as the manifest says", () => {
  for (const { scopeName, path, language } of contributes.grammars) {
    assert.equal(contentOf(path).scopeName, scopeName);
    assert.ok(contributes.languages.some(({ id }) => id === language));
  }
  for (const { path } of contributes.snippets) {
    assert.ok(Object.keys(contentOf(path)).length > 250);
  }
  for (const { configuration, id } of contributes.languages) {
    assert.equal(contentOf(configuration).comments.lineComment, id === "torvel" ? "//" : ";");
  }
});

test("the version is the project's", () => {
  const [, version] =
    /^project\(\w+ VERSION ([0-9.]+)/m.exec(readFileSync("CMakeLists.txt", "utf8")) ?? [];
  assert.equal(manifest.version, version);
});

test("the notices name every package that the program holds", () => {
  const notices = readFileSync(`${extension}/THIRD-PARTY-NOTICES.txt`, "utf8");
  for (const name of ["vscode-languageclient", "vscode-jsonrpc", "semver", "minimatch"]) {
    assert.match(notices, new RegExp(`^${name} [0-9.]+ \\((?:MIT|ISC)\\)$`, "m"));
  }
});

test("the program loads and registers the commands of the manifest", () => {
  mkdirSync(`${extension}/node_modules/vscode`, { recursive: true });
  cpSync("editors/vscode/test/stub/vscode.cjs", `${extension}/node_modules/vscode/index.js`);
  const printed = execFileSync(
    process.execPath,
    ["editors/vscode/test/stub/activate.cjs", extension],
    { encoding: "utf8", timeout: 30_000 },
  );
  rmSync(`${extension}/node_modules`, { recursive: true });
  const commands = contributes.commands.map(({ command }) => command).sort();
  assert.deepEqual((JSON.parse(printed) as string[]).sort(), commands);
  for (const entries of Object.values(contributes.menus)) {
    for (const { command } of entries) {
      assert.ok(commands.includes(command), command);
    }
  }
});

const built = "build/editors/language-server";
const withServer = { skip: !existsSync(built) && "the language server is not built" };

const serverOptions = { ...withServer, timeout: 60_000 };

test("the language server is in the package, with all that it reads", withServer, () => {
  const names = readdirSync(built, { recursive: true, encoding: "utf8" });
  for (const name of names.filter((path) => statSync(`${built}/${path}`).isFile())) {
    const packed = files.get(`extension/server/${name}`);
    assert.ok(packed?.equals(readFileSync(`${built}/${name}`)), name);
  }
  assert.ok(files.has("extension/server/server.cjs"));
});

test("the packed server gives the Torvel of a document", serverOptions, async () => {
  const server = spawn(process.execPath, [`${extension}/server/server.cjs`, "--stdio"], {
    cwd: unpacked,
    stdio: ["pipe", "pipe", "inherit"],
  });
  const connection = createMessageConnection(server.stdout, server.stdin);
  connection.listen();
  const uri = pathToFileURL(`${unpacked}/part.pgm`).href;
  const text = "DVAR $a\n; two\nPROBE X\n";
  writeFileSync(`${unpacked}/part.pgm`, text);
  try {
    await connection.sendRequest("initialize", {
      processId: process.pid,
      rootUri: pathToFileURL(unpacked).href,
      capabilities: {},
      initializationOptions: { parameterFile: "", projectFile: "", referenceRows: "" },
    });
    await connection.sendNotification("initialized", {});
    await connection.sendNotification("textDocument/didOpen", {
      textDocument: { uri, languageId: "brannic", version: 1, text },
    });
    const answer = await connection.sendRequest("workspace/executeCommand", {
      command: "brannic.torvel",
      arguments: [uri],
    });
    const { text: torvel, lines } = answer as { text: string; lines: number[] };
    assert.equal(torvel, "var $a\n// two\n#error_unconvertible (part.pgm:3): PROBE X\n\n");
    assert.deepEqual(lines.slice(0, 3), [0, 1, 2]);
  } finally {
    connection.dispose();
    server.kill();
  }
});
