import assert from "node:assert/strict";
import { readFileSync, writeFileSync } from "node:fs";
import { test } from "node:test";
import { smallReport } from "../sample/small-report.ts";
import { browserSession, goTo } from "./opened-page.ts";
import { pageOf } from "./pages.ts";

const { open } = browserSession();
const url = `${pageOf("checks", smallReport())}#/checks`;

test("a tick has initials and a day, and stays", async () => {
  const { page, close } = await open(url);
  await page.getByRole("status").filter({ hasText: "0 of 2 places ticked off." }).waitFor();
  const box = page.getByRole("checkbox", { name: "mill/main.pgm, line 6" });
  await box.click();
  await page.getByText("Type your initials first").waitFor();
  assert.equal(await box.isChecked(), false);
  // The field has the focus.
  await page.keyboard.type("kb");
  await box.check();
  await page.getByRole("status").filter({ hasText: "1 of 2 places ticked off." }).waitFor();
  const day = await page.evaluate(() => new Date().toLocaleDateString("sv"));
  await page.locator(".check-row.ticked", { hasText: `kb ${day}` }).waitFor();
  await page.reload();
  await page.getByRole("status").filter({ hasText: "1 of 2 places ticked off." }).waitFor();
  await page.getByLabel("State").selectOption("open");
  assert.equal(await page.getByRole("checkbox").count(), 1);
  await page.getByLabel("State").selectOption("");
  await box.uncheck();
  await page.getByRole("status").filter({ hasText: "0 of 2 places ticked off." }).waitFor();
  await close();
});

test("ticks are saved to a file and read from it elsewhere", async () => {
  const first = await open(url);
  await first.page.getByLabel("Your initials").fill("ab");
  await first.page.getByRole("checkbox").first().check();
  const [download] = await Promise.all([
    first.page.waitForEvent("download"),
    first.page.getByRole("button", { name: "Save ticks to a file" }).click(),
  ]);
  assert.equal(download.suggestedFilename(), "sample-ticks.json");
  const file = "build/web/pages/sample-ticks.json";
  await download.saveAs(file);
  await first.close();

  const { page, close } = await open(url);
  const read = page.locator("input[type=file]");
  await read.setInputFiles(file);
  await page.getByText("1 tick read.").waitFor();
  await page.locator(".check-row.ticked", { hasText: "ab" }).waitFor();
  const other = readFileSync(file, "utf8").replace(/"project": "[^"]*"/, '"project": "other"');
  writeFileSync(`${file}.other`, other);
  await read.setInputFiles(`${file}.other`);
  await page.getByText("These ticks are of another project, sample.").waitFor();
  await read.setInputFiles("package.json".replace(/^/, "web/"));
  await page.getByText("This is no file of ticks.").waitFor();
  assert.equal(await page.locator(".check-row.ticked").count(), 1);
  await close();
});

test("each machine has its own list", async () => {
  const { page, close } = await open(url);
  assert.equal(await page.getByLabel("Machine").inputValue(), "mill");
  await page.getByLabel("Machine").selectOption("laser");
  await page.getByText("No check found anything here.").waitFor();
  assert.ok(page.url().endsWith("#/checks?machine=laser"));
  await close();
});

test("on paper it is a form to sign", async () => {
  const { page, close } = await open(url);
  await page.emulateMedia({ media: "print" });
  await page.getByText("All points were gone through on this machine.").waitFor();
  assert.equal(await page.getByRole("button", { name: "Print the form" }).isVisible(), false);
  assert.equal(await page.getByRole("navigation").isVisible(), false);
  assert.equal(await page.getByRole("checkbox").first().isVisible(), true);
  await page.getByRole("heading", { name: "Before the first motion: mill" }).waitFor();
  assert.equal(await page.getByText("This is a part of the list").count(), 0);
  await goTo(page, "#/checks?severity=moves&state=open");
  await page.getByText("This is a part of the list: severity Moves, not ticked off.").waitFor();
  await close();
});
