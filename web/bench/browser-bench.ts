// How long a folder of programs takes in the page torvel-migrate.html: script/bench-browser
// The folder is the argument.

import { execFileSync } from "node:child_process";
import { statSync } from "node:fs";
import type { Page } from "playwright-core";
import { startBrowser } from "../test/e2e/browser.ts";
import {
  chooseFolder,
  convert,
  pageFile,
  pageUrl,
  savedZip,
} from "../test/browser/converter-page.ts";

const folder = process.argv[2] ?? "";
/** What is promised for 1,000 programs of 20 kB. */
const most = 10;

function say(what: string, value: string): void {
  console.log(`${what.padEnd(44)} ${value}`);
}

const seconds = (since: number): string => `${((performance.now() - since) / 1000).toFixed(2)} s`;

/** The memory of the tab's process, worker and all, when what is garbage was taken away. */
async function memory(page: Page): Promise<string> {
  const session = await page.context().newCDPSession(page);
  await session.send("HeapProfiler.collectGarbage");
  await page.waitForTimeout(1000);
  const renderers = execFileSync("ps", ["-eo", "rss,args"], { encoding: "utf8" })
    .split("\n")
    .filter((line) => line.includes("--type=renderer") && line.includes("chromium"))
    .map((line) => Number.parseInt(line, 10) / 1024);
  return `${Math.round(Math.max(...renderers))} MB`;
}

/** Notes the longest time between two frames from now on. */
async function watchFrames(page: Page): Promise<() => Promise<number>> {
  await page.evaluate(() => {
    const watched = window as unknown as { longest: number };
    watched.longest = 0;
    let last = performance.now();
    const frame = (now: number) => {
      watched.longest = Math.max(watched.longest, now - last);
      last = now;
      requestAnimationFrame(frame);
    };
    requestAnimationFrame(frame);
  });
  return () => page.evaluate(() => (window as unknown as { longest: number }).longest);
}

const browser = await startBrowser();
const page = await browser.newPage({ viewport: { width: 1280, height: 900 } });
page.setDefaultTimeout(120_000);
say("torvel-migrate.html", `${statSync(pageFile).size} bytes`);
let begin = performance.now();
await page.goto(pageUrl);
await page.locator("#main h1").waitFor();
say("opened", seconds(begin));
say("  memory", await memory(page));
begin = performance.now();
await chooseFolder(page, folder);
say("files read, programs found", seconds(begin));
const longest = await watchFrames(page);
begin = performance.now();
await convert(page, 120_000);
const converted = (performance.now() - begin) / 1000;
say("converted, report shown", `${converted.toFixed(2)} s`);
say("  as the page tells it", await page.locator(".results-bar [role=status]").innerText());
say("  longest time between two frames", `${Math.round(await longest())} ms`);
say("  memory", await memory(page));
begin = performance.now();
const zip = await savedZip(page);
say("ZIP saved", seconds(begin));
say("  files", String(zip.size));
say("  memory", await memory(page));
await page.getByRole("button", { name: "Start anew" }).click();
await page.getByText("Drop programs and folders here").waitFor();
say("started anew: memory", await memory(page));
await browser.close();
if (converted > most) {
  console.error(`The conversion took more than ${most} s.`);
  process.exit(1);
}
