import assert from "node:assert/strict";
import { test } from "node:test";
import { smallReport } from "../sample/small-report.ts";
import { browserSession, goTo } from "./opened-page.ts";
import { pageOf } from "./pages.ts";

const { open } = browserSession();
const url = pageOf("overview", smallReport());

test("the numbers that are asked for first", async () => {
  const { page, close } = await open(url);
  assert.equal(await page.title(), "sample – conversion report");
  const figures = await page.locator(".figures").ariaSnapshot();
  for (const text of [
    "Programs",
    '"3"',
    "1 was not converted",
    "85 %",
    "places in sources, 5 in outputs",
  ]) {
    assert.ok(figures.includes(text.replaceAll('"', "")), `${text} in ${figures}`);
  }
  assert.equal(await page.getByText("The counts do not agree").count(), 0);
  await close();
});

test("counts that do not agree are told", async () => {
  const sample = smallReport();
  const { totals } = sample.summary;
  const wrong = { ...totals, open: [[9, 9], ...totals.open.slice(1)] as typeof totals.open };
  const file = pageOf("wrong-counts", { ...sample, summary: { ...sample.summary, totals: wrong } });
  const { page, close } = await open(file);
  await page.getByRole("heading", { name: "The counts do not agree" }).waitFor();
  await page.getByText("Rewrite open: 1 in sources and 1 in outputs here, 9 and 9 there").waitFor();
  await close();
});

test("the estimate follows its factors, which stand in the address", async () => {
  const { page, close } = await open(url);
  const sum = page.locator(".sum");
  // 1 × 10-40, 2 × 2-10, 1 × 10-60
  assert.equal(await sum.textContent(), "24 to 120 minutes");
  await page.getByRole("textbox", { name: "Minutes for one: Rewrite" }).fill("100-200");
  assert.equal(await sum.textContent(), "1 to 5 hours");
  assert.ok(page.url().endsWith("#/overview?minutes-rewrite=100-200"));
  await page.getByLabel("in each output").check();
  assert.equal(await page.locator(".estimate tfoot").textContent(), "Together5116 to 290");
  await page.reload();
  assert.equal(await page.locator(".estimate tfoot").textContent(), "Together5116 to 290");
  await page.getByRole("button", { name: "Take the project's" }).click();
  assert.equal(await page.locator(".estimate tfoot").textContent(), "Together526 to 130");
  await close();
});

test("what is no range of minutes is marked and not taken", async () => {
  const { page, close } = await open(url);
  const field = page.getByRole("textbox", { name: "Minutes for one: Rewrite" });
  await field.fill("40-10");
  assert.equal(await field.getAttribute("aria-invalid"), "true");
  assert.equal(await page.locator(".sum").textContent(), "24 to 120 minutes");
  await field.blur();
  assert.equal(await field.inputValue(), "10-40");
  await close();
});

test("folders, runs and notices", async () => {
  const { page, close } = await open(url);
  const folders = page.locator("section", { hasText: "Folders by what is left" });
  assert.deepEqual(await folders.locator("tbody th").allTextContents(), ["mill", "laser"]);
  const runs = page.locator("section", { hasText: "Progress over the runs" });
  const rows = await runs.locator("tbody tr").allTextContents();
  assert.match(
    rows[0]!,
    /2026-11-01 06:00 UTC version 0.9.0, cut off.*7 of 9 \(77 %\)not counted$/,
  );
  assert.match(rows[1]!, /2026-11-21 18:30 UTC version 1.0.0.*12 of 14 \(85 %\)4$/);
  await page.getByText("mill/inc/tool.pgm: two programs include it.").waitFor();
  await folders.getByRole("link", { name: "laser" }).click();
  await page.getByRole("heading", { name: "Work list" }).waitFor();
  assert.equal(await page.getByLabel("Folder").inputValue(), "laser");
  await close();
});

test("colours are those of the system until others are chosen", async () => {
  const { page, close } = await open(url, { colorScheme: "dark" });
  const isTheme = (theme: string) =>
    page.waitForFunction((name) => document.documentElement.dataset["theme"] === name, theme);
  await isTheme("dark");
  await page.emulateMedia({ colorScheme: "light" });
  await isTheme("light");
  await page.getByLabel("Colours").selectOption("dark");
  await isTheme("dark");
  await page.reload();
  await page.locator("main h1").waitFor();
  await isTheme("dark");
  await close();
});

test("an address that names no view leads to the overview", async () => {
  const { page, close } = await open(`${url}#/nowhere`);
  await page.getByRole("heading", { name: "Overview" }).waitFor();
  await goTo(page, "#/program?path=nowhere.pgm");
  await page.getByText("This report has no program nowhere.pgm").waitFor();
  await close();
});

test("a link leads to the top of its view, and the way back to where it was left", async () => {
  const { page, close } = await open(`${url}#/overview`, {
    viewport: { width: 1280, height: 300 },
  });
  await page.evaluate(() => window.scrollTo(0, 400));
  await page.waitForFunction(() => window.scrollY === 400);
  await page.getByRole("link", { name: "Programs", exact: true }).focus();
  await page.keyboard.press("Enter");
  await page.getByRole("heading", { name: "Programs" }).waitFor();
  assert.equal(await page.evaluate(() => window.scrollY), 0);
  assert.equal(await page.evaluate(() => document.activeElement?.id), "main");
  await page.goBack();
  await page.getByRole("heading", { name: "Overview" }).waitFor();
  // The link at the top was brought into sight before it was followed. A page is told of its new place with the next
  // frame, before what is asked for that frame.
  await page.evaluate(() => {
    window.scrollTo(0, 400);
    return new Promise((resolve) => requestAnimationFrame(resolve));
  });
  await page.goForward();
  await page.getByRole("heading", { name: "Programs" }).waitFor();
  await page.goBack();
  await page.waitForFunction(() => window.scrollY === 400);
  await close();
});
