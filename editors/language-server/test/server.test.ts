// Every request, by a client over standard input and output.

import assert from "node:assert/strict";
import { after, before, describe, test } from "node:test";
import type { CompletionList, DocumentSymbol, FoldingRange, Location } from "vscode-languageserver";
import { Client, Folder, rangeAt, shown } from "./client.ts";

interface Torvel {
  readonly program: string;
  readonly text: string;
  readonly lines: number[];
}

const places = (locations: Location[]) =>
  locations
    .map(
      ({ uri, range: { start } }) => `${uri.replace(/.*\//, "")}:${start.line}:${start.character}`,
    )
    .sort();

describe("a program without a project", () => {
  const folder = new Folder();
  let client: Client;
  let main: string;
  let part: string;
  const mainText = [
    "#define FEED 25.5", // 0
    "#define OFFSET -2.5",
    '#include "inc/part.pgm"', // 2
    "#macro CUT($d) MOVEINC X $d 5",
    "DVAR $hole, $depth", // 4
    "again: HOME X Y",
    "FOR $hole = 0 TO 3", // 6
    "  G1 X($hole * 10) F FEED",
    "  PROBE X", // 8
    "NEXT $hole",
    "CUT(1)", // 10
    "IF $depth == 1 THEN",
    "  GOTO again", // 12
    "  CALL drill",
    "ENDIF", // 14
    "$a = $PAXIS[11].X",
    "DFS drill", // 16
    "  HOME OFFSET",
    "ENDDFS", // 18
    "$b = AXISSTATUS_Homed",
    "",
  ].join("\n");

  before(async () => {
    main = folder.write("main.pgm", mainText);
    part = folder.write("inc/part.pgm", "RAMP RATE ACCEL 100\nPROBE Y\n");
    client = await Client.start(folder.path);
    client.open(main, mainText);
    await client.diagnostics(main, (all) => all.length > 0);
  });
  after(async () => {
    assert.equal(await client.stop(), 0);
    folder.remove();
  });

  test("textDocument/publishDiagnostics: messages with codes, severities and the advice", async () => {
    const all = await client.diagnostics(main, (list) =>
      list.every(({ codeDescription }) => codeDescription !== undefined),
    );
    const probe = all.find(({ code }) => code === "probe-unsupported");
    assert.deepEqual(probe?.range, rangeAt(8, 2, 9));
    assert.equal(probe.severity, 1);
    assert.equal(probe.message, "PROBE is no longer supported.");
    assert.match(
      probe.codeDescription?.href ?? "",
      /^file:.*\/docs\/messages\.md#probe-unsupported$/,
    );
    const lost = all.find(({ code }) => code === "define-not-kept");
    assert.equal(lost?.range.start.line, 1);
  });

  test("textDocument/publishDiagnostics: findings of an included file with the way to it", async () => {
    const all = await client.diagnostics(part, (list) => list.length > 0);
    const probe = all.find(({ code }) => code === "probe-unsupported");
    assert.equal(probe?.range.start.line, 1);
    assert.deepEqual(probe.relatedInformation, [
      { location: { uri: main, range: rangeAt(2, 0, 0) }, message: "included from here" },
    ]);
  });

  test("textDocument/hover: what a define stands for, and what the line becomes", async () => {
    const hover = await client.hover(main, 7, 22);
    assert.match(hover, /#define FEED 25\.5/);
    assert.match(hover, /main\.pgm:1/);
    assert.match(hover, /Becomes\n```torvel\nG1 X\(\$hole \* 10\) F25\.5\n```/);
  });

  test("textDocument/hover: a define that Torvel does not take", async () => {
    assert.match(
      await client.hover(main, 17, 9),
      /#define OFFSET -2\.5[^]*Torvel does not take it/,
    );
  });

  test("textDocument/hover: the form of the statement", async () => {
    assert.match(
      await client.hover(main, 6, 1),
      /`FOR variable = value1 TO value2` → `for variable = value1 to value2`/,
    );
  });

  test("textDocument/hover: a macro, a label, a subroutine, a variable", async () => {
    assert.match(await client.hover(main, 10, 1), /#macro CUT\(\$d\)/);
    assert.match(await client.hover(main, 12, 9), /Label `again`: main\.pgm:6/);
    assert.match(await client.hover(main, 13, 9), /Subroutine `drill`: main\.pgm:17/);
    assert.match(await client.hover(main, 6, 6), /Variable `\$hole`: main\.pgm:5/);
  });

  test("textDocument/hover: a parameter's Torvel name", async () => {
    assert.match(await client.hover(main, 15, 8), /is `AxisParameter\.\w+` in Torvel/);
  });

  test("textDocument/hover: a predefined name", async () => {
    const names = (
      await client.request<CompletionList>("textDocument/completion", client.at(main, 19, 21))
    ).items.map(({ label }) => label);
    assert.ok(names.length > 0, "there are predefined names that begin so");
    const hover = await client.hover(main, 19, 12);
    assert.match(hover, /Becomes|Predefined/);
  });

  test("textDocument/hover: the advice on a finding", async () => {
    assert.match(
      await client.hover(main, 8, 4),
      /\*\*PROBE is no longer supported\.\*\* \(probe-unsupported\)/,
    );
  });

  test("textDocument/definition: defines, macros, labels, subroutines, variables, includes", async () => {
    const at = async (line: number, character: number) =>
      places(await client.request("textDocument/definition", client.at(main, line, character)));
    assert.deepEqual(await at(7, 22), ["main.pgm:0:8"]);
    assert.deepEqual(await at(10, 1), ["main.pgm:3:7"]);
    assert.deepEqual(await at(12, 9), ["main.pgm:5:0"]);
    assert.deepEqual(await at(13, 9), ["main.pgm:16:4"]);
    assert.deepEqual(await at(7, 8), ["main.pgm:4:5"]);
    assert.deepEqual(await at(2, 14), ["part.pgm:0:0"]);
    assert.deepEqual(await at(20, 0), []);
  });

  test("textDocument/references: with and without the definitions", async () => {
    const at = async (line: number, character: number, includeDeclaration: boolean) =>
      places(
        await client.request("textDocument/references", {
          ...client.at(main, line, character),
          context: { includeDeclaration },
        }),
      );
    assert.deepEqual(await at(4, 6, true), [
      "main.pgm:4:5",
      "main.pgm:6:4",
      "main.pgm:7:7",
      "main.pgm:9:5",
    ]);
    assert.deepEqual(await at(4, 6, false), ["main.pgm:6:4", "main.pgm:7:7", "main.pgm:9:5"]);
    assert.deepEqual(await at(0, 9, false), ["main.pgm:7:21"]);
    assert.deepEqual(await at(5, 1, false), ["main.pgm:12:7"]);
    assert.deepEqual(await at(16, 5, false), ["main.pgm:13:7"]);
    assert.deepEqual(await at(2, 14, true), ["main.pgm:2:10"]);
    assert.deepEqual(await at(5, 8, true), []);
  });

  test("textDocument/documentSymbol: what the file defines", async () => {
    const symbols = await client.request<DocumentSymbol[]>("textDocument/documentSymbol", {
      textDocument: { uri: main },
    });
    assert.deepEqual(
      symbols.map(({ name, range }) => `${name} ${range.start.line}-${range.end.line}`),
      ["FEED 0-0", "OFFSET 1-1", "CUT 3-3", "$hole 4-4", "$depth 4-4", "again 5-5", "drill 16-18"],
    );
  });

  test("textDocument/foldingRange: blocks", async () => {
    const folds = await client.request<FoldingRange[]>("textDocument/foldingRange", {
      textDocument: { uri: main },
    });
    assert.deepEqual(
      folds.map(({ startLine, endLine }) => `${startLine}-${endLine}`),
      ["6-8", "11-13", "16-17"],
    );
  });

  test("textDocument/completion: what may stand there", async () => {
    const at = async (line: number, character: number) => {
      const list = await client.request<CompletionList>(
        "textDocument/completion",
        client.at(main, line, character),
      );
      return list.items.map(({ label }) => label);
    };
    assert.ok((await at(8, 4)).includes("PROBE"));
    assert.deepEqual(await at(0, 4), ["#define"]);
    assert.deepEqual(await at(12, 7), ["again"]);
    assert.deepEqual(await at(13, 7), ["drill"]);
    const values = await at(7, 21);
    for (const name of ["FEED", "OFFSET", "X", "$hole"]) {
      assert.ok(values.includes(name), name);
    }
    assert.ok((await at(11, 15)).includes("THEN"));
  });

  test("brannic.torvel: the Torvel of the document with the lines that it came from", async () => {
    const asked = await client.request<Torvel>("brannic.torvel", { uri: main });
    const commanded = await client.command<Torvel>("brannic.torvel", main);
    assert.deepEqual(asked, commanded);
    const lines = asked.text.split("\n");
    assert.equal(lines[0], "#define FEED 25.5");
    assert.equal(asked.lines.length, lines.length - 1);
    const probe = lines.findIndex((line) => line.includes("(main.pgm:9): PROBE X"));
    assert.equal(asked.lines[probe], 8);
    const included = lines.findIndex((line) => line.includes("(part.pgm:2): PROBE Y"));
    assert.equal(asked.lines[included], -1);
  });

  test("brannic.explain: the advice on a code", async () => {
    assert.match((await client.command<string>("brannic.explain", "value-cut")) ?? "", /\*\*/);
    assert.equal(await client.command("brannic.explain", "no-such-code"), null);
  });
});

describe("labels", () => {
  test("of one name in several subroutines, and spelled in another case", async () => {
    const folder = new Folder();
    const text = [
      "again: HOME X",
      "GOTO again",
      "DFS one",
      "again: HOME Y",
      "GOTO again",
      "ENDDFS",
      "GOTO again",
      "Ready: HOME Z",
      "GOTO ready",
      "",
    ].join("\n");
    const uri = folder.write("labels.pgm", text);
    const client = await Client.start(folder.path);
    client.open(uri, text);
    await client.diagnostics(uri);
    const at = async (line: number) =>
      places(await client.request("textDocument/definition", client.at(uri, line, 6)));
    assert.deepEqual(await at(1), ["labels.pgm:0:0"]);
    assert.deepEqual(await at(4), ["labels.pgm:3:0"]);
    assert.deepEqual(await at(6), ["labels.pgm:0:0"]);
    assert.deepEqual(await at(8), ["labels.pgm:7:0"]);
    await client.stop();
    folder.remove();
  });
});

describe("while somebody types", () => {
  const folder = new Folder();
  let client: Client;
  before(async () => {
    client = await Client.start(folder.path);
  });
  after(async () => {
    await client.stop();
    folder.remove();
  });

  test("findings follow what is typed", async () => {
    const uri = folder.write("typed.pgm", "HOME X\n");
    client.open(uri, "HOME X\n");
    assert.deepEqual(await client.diagnostics(uri), []);
    client.change(uri, "PROBE X\n", rangeAt(1, 0, 0));
    assert.deepEqual(shown(await client.diagnostics(uri, (all) => all.length > 0)), [
      "1:0-7 probe-unsupported",
    ]);
    client.change(uri, "", rangeAt(1, 0, 0, 2));
    assert.deepEqual(await client.diagnostics(uri, (all) => all.length === 0), []);
  });

  test("a half typed line leaves the others, moved along, beside the one error", async () => {
    const uri = folder.write("half.pgm", "HOME X\nPROBE X\nagain: HOME Y\nGOTO again\n");
    client.open(uri, "HOME X\nPROBE X\nagain: HOME Y\nGOTO again\n");
    await client.diagnostics(uri, (all) => all.length === 1);
    client.change(uri, 'HOME Z\nMSGDISPLAY 1, "half\n', rangeAt(0, 0, 0));
    const all = await client.diagnostics(uri, (list) => list.length === 2);
    assert.deepEqual(shown(all), ["1:0-19 string-not-terminated", "3:0-7 probe-unsupported"]);
    const found = await client.request<Location[]>("textDocument/definition", client.at(uri, 5, 6));
    assert.deepEqual(places(found), ["half.pgm:4:0"]);
  });

  test("an open document counts in the place of its file", async () => {
    const part = folder.write("unsaved/part.pgm", "HOME X\n");
    const main = folder.write("unsaved/main.pgm", '#include "part.pgm"\n');
    client.open(main, '#include "part.pgm"\n');
    client.open(part, "PROBE X\n");
    const all = await client.diagnostics(part, (list) => list.length === 1);
    assert.equal(all[0]?.relatedInformation?.[0]?.location.uri, main);
    client.close(part);
    await client.diagnostics(part, (list) => list.length === 0);
  });

  test("columns behind signs of one and two units, in UTF-8 and in Windows-1252", async () => {
    const text = '; 5° µ 𝄞\n$a = "°𝄞" ; ° \n#define ° 1\n  /* °µ𝄞 */ $b = $PAXIS["x"\n';
    const uri = folder.write("utf8.pgm", text);
    client.open(uri, text);
    const all = await client.diagnostics(uri, (list) => list.length > 0);
    assert.ok(
      all.every(
        ({ range }) => range.end.character <= (text.split("\n")[range.start.line] ?? "").length,
      ),
    );
    const latin = 'MSGDISPLAY 1, "5° µ", $a ; °\n$a = 1,5 ; °\n';
    const bytes = Uint8Array.from(latin, (c) => c.charCodeAt(0));
    const other = folder.write("latin.pgm", bytes);
    client.open(other, latin);
    await client.diagnostics(other, (list) => list.some(({ code }) => code === "value-cut"));
    const torvel = await client.request<Torvel>("brannic.torvel", { uri: other });
    assert.ok(torvel.text.includes("5° µ"), torvel.text);
    const found = await client.request<Location[]>("textDocument/references", {
      ...client.at(other, 0, latin.indexOf("$a") + 1),
      context: { includeDeclaration: true },
    });
    assert.deepEqual(places(found), [`latin.pgm:0:${latin.indexOf("$a")}`, "latin.pgm:1:0"]);
  });
});

describe("settings", () => {
  const folder = new Folder();
  const machine =
    '<M><Parameters><Axes><Axis><P n="AxisName">ST</P></Axis></Axes></Parameters></M>';
  before(() => {
    folder.write("machine.xml", machine);
    folder.write("rows.toml", '[reference]\naxis_parameters = { 11 = "ServoLoopGainKp" }\n');
    folder.write("main.pgm", "HOME ST\n$a = $PAXIS[11].ST\n");
  });
  after(() => folder.remove());
  const text = "HOME ST\n$a = $PAXIS[11].ST\n";
  const torvelWith = async (client: Client) => {
    client.open(folder.uri("main.pgm"), text);
    await client.diagnostics(folder.uri("main.pgm"));
    const torvel = await client.request<Torvel>("brannic.torvel", { uri: folder.uri("main.pgm") });
    await client.stop();
    return torvel.text;
  };

  test("may be null, or missing, or of no use", async () => {
    for (const options of [null, undefined, 5, [], { parameterFile: null }]) {
      assert.match(await torvelWith(await Client.start(folder.path, options)), /#error/);
    }
  });

  test("parameter file and reference rows are given at the start", async () => {
    const client = await Client.start(folder.path, {
      parameterFile: "machine.xml",
      referenceRows: "rows.toml",
    });
    const torvel = await torvelWith(client);
    assert.equal(
      torvel,
      "Home(ST)\n$a = ParameterGetAxisValue(ST, AxisParameter.ServoLoopGainKp)\n\n",
    );
  });

  test("or asked for", async () => {
    const client = await Client.start(
      folder.path,
      null,
      { workspace: { configuration: true } },
      { parameterFile: "machine.xml" },
    );
    assert.match(await torvelWith(client), /^Home\(ST\)\n/);
  });

  test("or told later", async () => {
    const client = await Client.start(folder.path);
    client.notify("workspace/didChangeConfiguration", { settings: null });
    client.notify("workspace/didChangeConfiguration", {
      settings: { brannic: { parameterFile: folder.file("machine.xml") } },
    });
    assert.match(await torvelWith(client), /^Home\(ST\)\n/);
  });

  test("a project file is found above the document, or named", async () => {
    folder.write("plant/migration.toml", 'sources = ["."]\nparameters = "../machine.xml"\n');
    const main = folder.write("plant/one/main.pgm", '#include "part.pgm"\nHOME ST\n');
    const part = folder.write("plant/one/part.pgm", "HOME ST\nPROBE ST\n");
    for (const options of [null, { projectFile: "plant/migration.toml" }]) {
      const client = await Client.start(folder.path, options);
      // The part is seen through the program that includes it, which is not open.
      client.open(part, "HOME ST\nPROBE ST\n");
      const all = await client.diagnostics(part, (list) => list.length > 0);
      assert.deepEqual(shown(all), ["1:0-8 probe-unsupported"]);
      assert.equal(all[0]?.relatedInformation?.[0]?.location.uri, main);
      await client.stop();
    }
  });
});
