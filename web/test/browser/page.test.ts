// What people do with the page, and what it says when something is missing, refused or ends.

import assert from "node:assert/strict";
import { readFileSync, rmSync, statSync, truncateSync, writeFileSync } from "node:fs";
import { resolve } from "node:path";
import { test } from "node:test";
import type { Page } from "playwright-core";
import { browserSession } from "../e2e/opened-page.ts";
import {
  chooseFiles,
  chooseFolder,
  convert,
  folderWith,
  pageFile,
  pageUrl,
  savedZip,
  settled,
  textOf,
} from "./converter-page.ts";

const { open } = browserSession();

/** Drops files and folders of the disk, as a person does. */
async function dropPaths(page: Page, paths: readonly string[]): Promise<void> {
  await dispatchDrop(page, paths);
  await settled(page);
}

async function dispatchDrop(page: Page, paths: readonly string[]): Promise<void> {
  const client = await page.context().newCDPSession(page);
  const box = await page.getByRole("region", { name: "Files" }).boundingBox();
  assert.ok(box !== null);
  const data = { items: [], files: paths.map((path) => resolve(path)), dragOperationsMask: 1 };
  for (const type of ["dragEnter", "dragOver", "drop"] as const) {
    await client.send("Input.dispatchDragEvent", {
      type,
      x: box.x + box.width / 2,
      y: box.y + 20,
      data,
    });
  }
}

const program = 'HOME X\n#include "..\\Shared\\UNITS.PGM"\nG1 X10 F FEED\nPROBE X\nEND PROGRAM\n';
const units = "#define FEED 25.5\n";

const gantry =
  '<M><Parameters><Axes><Axis Index="0"><P n="AxisName">Gantry</P></Axis></Axes></Parameters></M>';

test("the page has less than 3 MB", () => {
  const { size } = statSync(pageFile);
  assert.ok(size < 3_000_000, `${size} bytes`);
});

test("the page's policy lets nothing in and nothing out but its worker", () => {
  const policy = /Content-Security-Policy" content="([^"]*)"/.exec(
    readFileSync(pageFile, "utf8"),
  )?.[1];
  assert.match(
    policy ?? "",
    /^default-src 'none'; script-src 'sha256-[\w+/]+=*' 'wasm-unsafe-eval'; style-src 'sha256-[\w+/]+=*'; worker-src blob:; form-action 'none'; base-uri 'none'; trusted-types torvel-programs torvel-worker; require-trusted-types-for 'script'$/,
  );
});

test("the page and its worker can connect to nothing", async () => {
  const { page, complaints } = await open(pageUrl);
  await chooseFolder(page, folderWith("policy", [["a.pgm", "HOME X\n"]]));
  const tried = async () => {
    const outcomes = await Promise.all(
      ["http://127.0.0.1:9/", "file:///etc/hostname"].map((url) =>
        fetch(url).then(
          () => "connected",
          () => "refused",
        ),
      ),
    );
    return outcomes.join();
  };
  assert.equal(await page.evaluate(tried), "refused,refused");
  const [worker] = page.workers();
  assert.equal(await worker!.evaluate(tried), "refused,refused");
  assert.deepEqual(
    complaints.filter((text) => !/Content Security Policy|Fetch API cannot load/.test(text)),
    [],
  );
  assert.ok(complaints.length >= 2);
  await page.context().close();
});

test("dropped folders have their includes, whatever the case and the slashes", async () => {
  const { page, close } = await open(pageUrl);
  const folder = folderWith("folders", [
    ["mill/main.pgm", program],
    ["shared/units.pgm", units],
  ]);
  await dropPaths(page, [`${folder}/mill`, `${folder}/shared`]);
  await page.getByText("1 program, 1 file that others include").waitFor();
  await convert(page);
  const zip = await savedZip(page);
  assert.match(textOf(zip.get("converted/mill/main.torvel")), /^Home\(X\)|^Home\(\[X\]\)/);
  assert.match(textOf(zip.get("converted/mill/main.torvel")), /G1 X10 F25\.5\n/);
  await page.getByLabel("Line ends").selectOption("windows");
  const windows = textOf((await savedZip(page)).get("converted/mill/main.torvel"));
  assert.equal(windows, textOf(zip.get("converted/mill/main.torvel")).replaceAll("\n", "\r\n"));
  assert.equal(
    textOf(zip.get("converted/mill/main.log")),
    "main.pgm:4: PROBE is no longer supported.\n\n",
  );
  await close();
});

test("missing files are asked for by name, and can be dropped behind", async () => {
  const { page, close } = await open(pageUrl);
  const folder = folderWith("missing", [
    ["mill/main.pgm", program],
    ["late/shared/units.pgm", units],
  ]);
  await dropPaths(page, [`${folder}/mill`]);
  await page.getByText("1 file is missing: drop what you have of them").waitFor();
  await page.getByText("included in main.pgm:2").waitFor();
  await dropPaths(page, [`${folder}/late/shared`]);
  await page.getByText("1 program, 1 file that others include").waitFor();
  assert.equal(await page.getByText("is missing").count(), 0);
  await convert(page);
  await page.getByText(/^1 program converted/).waitFor();
  await close();
});

test("outputs of one name are told, and kept apart by their extensions", async () => {
  const { page, close } = await open(pageUrl);
  await chooseFolder(
    page,
    folderWith("collide", [
      ["part.pgm", "HOME X\n"],
      ["part.prg", "HOME Y\n"],
    ]),
  );
  await convert(page);
  await page.getByText(/^0 programs converted in .*; 2 were not/).waitFor();
  await page.getByRole("button", { name: "Back to the files" }).click();
  await page.getByLabel("part.pgm becomes part.pgm.torvel").check();
  await page.getByRole("button", { name: "Convert 2 programs" }).waitFor();
  await convert(page);
  const zip = await savedZip(page);
  assert.equal(textOf(zip.get("converted/part.pgm.torvel")), "Home(X)\n\n");
  assert.equal(textOf(zip.get("converted/part.prg.torvel")), "Home(Y)\n\n");
  await close();
});

test("what is dropped while programs are converted is refused, and told", async () => {
  const { page, close } = await open(pageUrl);
  await chooseFolder(page, folderWith("busy", manyPrograms(100, 300_000)));
  await page.getByRole("button", { name: "Convert 100 programs" }).click();
  await page.getByText(/^[1-9]\d* of 100 programs/).waitFor();
  const late = folderWith("late", [["late.pgm", "HOME X\n"]]);
  await dispatchDrop(page, [`${late}/late.pgm`]);
  await page.getByText("Nothing was added: wait until this is done").waitFor();
  await page.getByText(/^100 programs converted/).waitFor({ timeout: 60_000 });
  await close();
});

test("a parameter file names the axes", async () => {
  const { page, close } = await open(pageUrl);
  const folder = folderWith("axes", [
    ["main.pgm", "HOME Gantry\n"],
    ["machine.xml", gantry],
  ]);
  await chooseFolder(page, folder);
  assert.equal(await page.getByLabel("Parameter file").inputValue(), "axes/machine.xml");
  await convert(page);
  assert.equal(textOf((await savedZip(page)).get("converted/main.torvel")), "Home(Gantry)\n\n");
  await page.getByRole("button", { name: "Back to the files" }).click();
  await page.getByLabel("Parameter file").selectOption("");
  await page.getByText("Looking for programs").waitFor({ state: "detached" });
  await convert(page);
  assert.match(
    textOf((await savedZip(page)).get("converted/main.torvel")),
    /#error_unconvertible \(main\.pgm:1\): HOME Gantry/,
  );
  await close();
});

test("a changed source is dropped again, and the report has both runs", async () => {
  const { page, close } = await open(pageUrl);
  const folder = folderWith("changed", [
    ["main.pgm", "PROBE X\nHOME X\n"],
    ["other.pgm", "HOME Y\n"],
  ]);
  await chooseFolder(page, folder);
  await convert(page);
  assert.match(textOf((await savedZip(page)).get("converted/main.torvel")), /#error_unconvertible/);
  await page.getByRole("button", { name: "Back to the files" }).click();
  writeFileSync(`${folder}/main.pgm`, "HOME Z\nHOME X\n");
  await page.getByLabel("Choose a folder").setInputFiles(resolve(folder));
  await page.getByText("0 files added, 2 replaced.").waitFor();
  await convert(page);
  const zip = await savedZip(page);
  assert.doesNotMatch(textOf(zip.get("converted/main.torvel")), /#error_unconvertible/);
  assert.equal(JSON.parse(textOf(zip.get("report/report.json"))).runs.length, 2);
  await close();
});

test("files that are too large or gone are told by name", async () => {
  const { page, close } = await open(pageUrl);
  const folder = folderWith("refused", [
    ["huge.pgm", ""],
    ["small.pgm", "HOME X\n"],
  ]);
  truncateSync(`${folder}/huge.pgm`, 65 * 2 ** 20);
  await chooseFolder(page, folder);
  await page.getByText("1 file was not taken").waitFor();
  await page.getByText("It is larger than a tab takes.").waitFor();
  await convert(page);
  await page.getByRole("button", { name: "Back to the files" }).click();
  rmSync(`${folder}/small.pgm`);
  await chooseFiles(page, [folderWith("refused-2", [["a.pgm", "HOME X\n"]]) + "/a.pgm"]);
  await page.getByText("2 files were not taken").waitFor();
  await page.getByText("It was changed or moved since, or cannot be read").waitFor();
  await close();
});

test("programs without any, and a project file that is broken, are told", async () => {
  const { page, close } = await open(pageUrl);
  await chooseFolder(page, folderWith("none", [["readme.txt", "nothing"]]));
  await page.getByText("No programs were found in the sources").waitFor();
  assert.ok(await page.getByRole("button", { name: "Convert 0 programs" }).isDisabled());
  await page.getByRole("button", { name: "Start anew" }).click();
  const broken = folderWith("broken", [["migration.toml", "sources = [\n"]]);
  await page.getByLabel("Choose a folder").setInputFiles(resolve(broken));
  await page.getByRole("alert").filter({ hasText: "migration.toml" }).waitFor();
  await close();
});

function* manyPrograms(count: number, bytes: number): Iterable<readonly [string, string]> {
  const body = "G1 X10 Y5 F25.5 ; a cut\n$a = 0.1 * 3 // far\n".repeat(bytes / 45);
  for (let i = 0; i < count; ++i) {
    yield [`folder${i % 10}/p${i}.pgm`, `; program ${i}\n${body}`];
  }
}

test("a run can be stopped, and keeps what it has", async () => {
  const { page, close } = await open(pageUrl);
  await chooseFolder(page, folderWith("many", manyPrograms(300, 300_000)));
  await page.getByRole("button", { name: "Convert 300 programs" }).click();
  await page.getByText(/^[1-9]\d* of 300 programs/).waitFor();
  await page.getByRole("button", { name: "Stop" }).click();
  await page.getByText(/^Stopped\. \d+ programs? converted/).waitFor();
  const zip = await savedZip(page);
  const outputs = [...zip.keys()].filter((path) => path.endsWith(".torvel")).length;
  assert.ok(outputs > 0 && outputs < 300, `${outputs} outputs`);
  await page.getByRole("button", { name: "Start anew" }).click();
  await page.getByText("Drop programs and folders here").waitFor();
  assert.equal(page.workers().length, 0);
  await close();
});

test("a worker that dies is replaced, and the others are converted", async () => {
  const { page, close } = await open(pageUrl);
  await chooseFolder(page, folderWith("dies", manyPrograms(60, 300_000)));
  await page.getByRole("button", { name: "Convert 60 programs" }).click();
  await page.getByText(/^[1-9]\d* of 60 programs/).waitFor();
  await page.workers()[0]!.evaluate(() => {
    setTimeout(() => {
      throw new Error("the worker was ended by a test");
    });
  });
  await page.getByText(/^59 programs converted in .*; 1 was not/).waitFor({ timeout: 60_000 });
  const zip = await savedZip(page);
  const findings = textOf(zip.get("report/findings.csv"));
  assert.match(findings, /conversion-ended/);
  assert.match(findings, /The conversion ended before its time/);
  assert.equal([...zip.keys()].filter((path) => path.endsWith(".torvel")).length, 59);
  await page.getByRole("link", { name: "1 was not converted" }).waitFor();
  await close();
});
