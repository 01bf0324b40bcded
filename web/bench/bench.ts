// How long large reports take in a browser: script/bench-web

import { execFileSync } from "node:child_process";
import { mkdirSync, statSync } from "node:fs";
import type { Page } from "playwright-core";
import { longProgram, manyPrograms } from "../test/sample/large-reports.ts";
import { writeFolder, writePage } from "../test/sample/written-page.ts";
import { startBrowser } from "../test/e2e/browser.ts";

const folder = "build/web/bench";
const browser = await startBrowser();

async function opened(url: string): Promise<{ page: Page; time: number }> {
  const page = await browser.newPage({ viewport: { width: 1280, height: 900 } });
  const begin = performance.now();
  await page.goto(url, { waitUntil: "commit" });
  await page.locator("#main h1 ~ *").first().waitFor();
  return { page, time: performance.now() - begin };
}

/** From an event to the next frame that shows what came of it, in the page. */
async function answerTime(page: Page, act: string): Promise<number> {
  return page.evaluate(async (code) => {
    const [name, value] = code.split("=") as [string, string];
    const begin = performance.now();
    const field = [...document.querySelectorAll("label.field")].find(
      (label) => label.firstChild?.textContent === name,
    );
    const control = field?.querySelector("select, input") as HTMLSelectElement | HTMLInputElement;
    control.value = value;
    control.dispatchEvent(new Event(name === "Search" ? "input" : "change", { bubbles: true }));
    const status = document.querySelector("[role=status]") as HTMLElement;
    const before = status.textContent;
    while (status.textContent === before && performance.now() - begin < 3000) {
      await new Promise((resolve) => requestAnimationFrame(resolve));
    }
    await new Promise((resolve) => requestAnimationFrame(resolve));
    return performance.now() - begin;
  }, act);
}

async function memory(page: Page): Promise<string> {
  const session = await page.context().newCDPSession(page);
  await session.send("HeapProfiler.collectGarbage");
  const { usedSize } = (await session.send("Runtime.getHeapUsage")) as { usedSize: number };
  const renderers = execFileSync("ps", ["-eo", "rss,args"], { encoding: "utf8" })
    .split("\n")
    .filter((line) => line.includes("--type=renderer") && line.includes("chromium"))
    .map((line) => Number.parseInt(line, 10) / 1024);
  return `heap ${Math.round(usedSize / 1e6)} MB, largest process ${Math.round(Math.max(...renderers))} MB`;
}

function say(what: string, value: string | number): void {
  const text = typeof value === "number" ? `${Math.round(value)} ms` : value;
  console.log(`${what.padEnd(58)} ${text}`);
}

async function benchMany(): Promise<void> {
  writeFolder(`${folder}/many`, manyPrograms(10_000, 100_000));
  say("10,000 programs: index.html", `${statSync(`${folder}/many/index.html`).size} bytes`);
  const url = `file://${process.cwd()}/${folder}/many/index.html`;
  for (const view of ["overview", "work", "program", "checks"]) {
    const { page, time } = await opened(`${url}#/${view}`);
    say(`10,000 programs, 100,000 findings: ${view} to be used`, time);
    if (view === "work") {
      for (const act of ["State=open", "Folder=programs/hall3", "Severity=moves", "Code=code-7"]) {
        say(`  filter ${act}`, await answerTime(page, act));
      }
      say("  search (120 ms of it are the pause in typing)", await answerTime(page, "Search=v33"));
    }
    if (view === "program") {
      for (const act of ["Folder=programs/hall3", "Folder="]) {
        say(`  filter ${act}`, await answerTime(page, act));
      }
    }
    say("  memory", await memory(page));
    await page.close();
  }
}

async function benchLong(lines: number): Promise<void> {
  const file = `${folder}/long-${lines}.html`;
  writePage(file, longProgram(lines));
  const url = `file://${process.cwd()}/${file}#/program?path=long.pgm`;
  const begin = performance.now();
  const { page } = await opened(url);
  await page.getByText("; point 1", { exact: true }).first().waitFor();
  say(`program of ${lines} lines to be seen`, performance.now() - begin);
  const jump = performance.now();
  await page.keyboard.press("p");
  await page.locator(".row.selected").waitFor();
  say("  to its last finding", performance.now() - jump);
  const scrolled = await page.evaluate(async () => {
    const begin = performance.now();
    let worst = 0;
    for (let step = 1; step <= 50; ++step) {
      const frame = performance.now();
      window.scrollTo(0, (document.documentElement.scrollHeight * step) / 50);
      await new Promise((resolve) => requestAnimationFrame(resolve));
      await new Promise((resolve) => requestAnimationFrame(resolve));
      worst = Math.max(worst, performance.now() - frame);
    }
    return { all: performance.now() - begin, worst };
  });
  say("  50 steps of scrolling, the longest of them", scrolled.worst);
  say("  memory", await memory(page));
  await page.close();
}

mkdirSync(folder, { recursive: true });
await benchMany();
await benchLong(10_000);
await benchLong(200_000);
await browser.close();
