// The example plant through the page: what is saved is what torvel-migrate writes.

import assert from "node:assert/strict";
import { execFileSync } from "node:child_process";
import { copyFileSync, cpSync, mkdirSync, readdirSync, readFileSync, rmSync } from "node:fs";
import { resolve } from "node:path";
import { before, test } from "node:test";
import { pathToFileURL } from "node:url";
import { gunzipSync } from "node:zlib";
import { axeViolations } from "../e2e/axe.ts";
import { browserSession } from "../e2e/opened-page.ts";
import { chooseFolder, convert, pageFile, savedZip, textOf } from "./converter-page.ts";

const migrate = process.env["TORVEL_MIGRATE"] ?? "";
const skip = migrate === "" ? "torvel-migrate is not built" : false;
const odd = "build/web/pages/a share #1, äöü & 100%";
const plant = "build/web/dropped/plant";
const pictures = "build/web/pictures";
const { open } = browserSession();

before(() => {
  mkdirSync(odd, { recursive: true });
  mkdirSync(pictures, { recursive: true });
  copyFileSync(pageFile, `${odd}/torvel-migrate.html`);
  rmSync(plant, { recursive: true, force: true });
  cpSync("examples/plant", plant, {
    recursive: true,
    filter: (path) => !path.endsWith("/converted"),
  });
});

const oddUrl = pathToFileURL(resolve(`${odd}/torvel-migrate.html`)).href;

/** Times of runs, which are all that differs. */
const withoutTimes = (text: string): string =>
  text.replace(/"(began|ended|made)": ?\d+/g, '"$1": 0');

function summaryOf(page: string): string {
  const base64 = /id="summary">([^<]*)</.exec(page)?.[1] ?? "";
  return withoutTimes(gunzipSync(Buffer.from(base64, "base64")).toString("utf8"));
}

/** What torvel-migrate writes for the plant, by the paths that the ZIP has. */
function writtenByProgram(): Map<string, string> {
  const project = ["--project", `${plant}/migration.toml`];
  execFileSync(migrate, ["convert", "--quiet", ...project], { stdio: "pipe" });
  const report = `${plant}/report`;
  mkdirSync(report, { recursive: true });
  const formats = [
    ["--json", "report.json"],
    ["--csv", "findings.csv"],
    ["--programs-csv", "programs.csv"],
    ["--sarif", "report.sarif"],
    ["--junit", "report-junit.xml"],
    ["--html", "report.html"],
  ].flatMap(([option, file]) => [option!, `${report}/${file}`]);
  execFileSync(migrate, ["report", ...project, ...formats], { stdio: "pipe" });
  const files = new Map<string, string>();
  for (const folder of ["converted", "report"]) {
    for (const name of readdirSync(`${plant}/${folder}`, { recursive: true, encoding: "utf8" })) {
      if (/\.(torvel|log|json|csv|sarif|xml|html)$/.test(name)) {
        files.set(`${folder}/${name}`, readFileSync(`${plant}/${folder}/${name}`, "latin1"));
      }
    }
  }
  rmSync(`${plant}/converted`, { recursive: true });
  rmSync(report, { recursive: true });
  return files;
}

test("the ZIP has what torvel-migrate writes, byte for byte", { skip }, async () => {
  const { page, close } = await open(oddUrl);
  await chooseFolder(page, plant);
  await page.getByText("40 programs, 7 files that others include, 5 other files.").waitFor();
  await convert(page);
  await page
    .getByText(/^37 programs converted in .*; 3 were not: the report says why\.$/)
    .waitFor();
  const zip = await savedZip(page);
  const expected = writtenByProgram();
  assert.deepEqual([...zip.keys()].sort(), [...expected.keys()].sort());
  assert.equal(expected.size, 37 * 2 + 6);
  for (const [path, text] of expected) {
    const saved = textOf(zip.get(path));
    if (path.endsWith(".html")) {
      // Programs stand in it packed, by the same packer; only the summary has times.
      const details = (page: string) => [...page.matchAll(/id="program-\d+">[^<]*/g)].join();
      assert.equal(details(saved), details(text));
      // What the browser calls a project is its own.
      const other = (summary: string) => summary.replace(/"identity":"\w+"/, "");
      assert.equal(other(summaryOf(saved)), other(summaryOf(text)));
    } else {
      assert.equal(withoutTimes(saved), withoutTimes(text), path);
    }
  }
  await close();
});

for (const colorScheme of ["light", "dark"] as const) {
  test(`from the drop to the ZIP, ${colorScheme}`, async () => {
    const { page, close } = await open(oddUrl, {
      colorScheme,
      viewport: { width: 1280, height: 800 },
    });
    const film = async (name: string) => {
      assert.deepEqual(await axeViolations(page), [], name);
      await page.screenshot({ path: `${pictures}/browser-${name}-${colorScheme}.png` });
    };
    await film("1-empty");
    await chooseFolder(page, plant);
    await film("2-found");
    await convert(page);
    await film("3-converted");
    await page.getByRole("link", { name: "Programs", exact: true }).click();
    await page
      .getByRole("link", { name: "programs/drilling/d1010.pgm", exact: true })
      .first()
      .click();
    await page.locator(".row").first().waitFor();
    await film("4-program");
    await savedZip(page);
    await page.getByText(/^37 programs converted/).waitFor();
    await page.setViewportSize({ width: 768, height: 900 });
    await film("5-narrow");
    await close();
  });
}
