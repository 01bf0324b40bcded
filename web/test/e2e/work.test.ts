import assert from "node:assert/strict";
import { test } from "node:test";
import { smallReport } from "../sample/small-report.ts";
import { browserSession } from "./opened-page.ts";
import { pageOf } from "./pages.ts";

const { open } = browserSession();
const url = `${pageOf("work", smallReport())}#/work`;

test("codes with what they count, most in outputs first", async () => {
  const { page, close } = await open(url);
  assert.deepEqual(await page.locator(".group .rule-code").allTextContents(), [
    "probe-unsupported",
    "value-cut",
    "ramp-unit",
    "string-not-terminated",
  ]);
  assert.deepEqual((await page.locator(".group-counts").allTextContents()).slice(0, 2), [
    "2 places in sources, 2 in outputs of 2 programs, 1 finished",
    "1 place in sources, 2 in outputs of 2 programs",
  ]);
  await page.getByLabel("Order").selectOption("code");
  assert.equal(await page.locator(".group .rule-code").nth(1).textContent(), "ramp-unit");
  assert.ok(page.url().endsWith("#/work?sort=code"));
  await close();
});

test("filters answer, stand in the address, and come back with it", async () => {
  const { page, close } = await open(url);
  const codes = () => page.locator(".group .rule-code").allTextContents();
  await page.getByLabel("Severity").selectOption("moves");
  assert.deepEqual(await codes(), ["value-cut", "ramp-unit"]);
  await page.getByRole("searchbox", { name: "Search" }).fill("second");
  await page.waitForURL(/text=second/);
  assert.deepEqual(await codes(), ["value-cut"]);
  await page.reload();
  await page.getByText("1 code: 1 place in sources, 1 in outputs.").waitFor();
  assert.equal(await page.getByRole("searchbox", { name: "Search" }).inputValue(), "second");
  await page.getByLabel("State").selectOption("finished");
  await page.getByText("Nothing passes these filters.").waitFor();
  await page.getByRole("button", { name: "Show all" }).click();
  assert.equal((await codes()).length, 4);
  assert.ok(page.url().endsWith("#/work"));
  await close();
});

test("a code opens: what to write instead, its places, and the programs that hold them", async () => {
  const { page, close } = await open(url);
  const group = page.getByRole("button", { name: "Text behind the value" });
  await group.focus();
  await page.keyboard.press("Enter");
  await page.getByText("The value ends where the next word cannot continue it.").waitFor();
  const places = page.getByRole("list", { name: "Places of value-cut" });
  await places.getByRole("button", { name: "in 2 outputs" }).click();
  assert.deepEqual(await places.getByRole("link").allTextContents(), [
    "mill/inc/tool.pgm:2",
    "mill/main.pgm",
    "mill/second.pgm",
  ]);
  await places.getByRole("link", { name: "mill/second.pgm" }).click();
  await page.getByRole("heading", { name: "mill/second.pgm" }).waitFor();
  await page.getByRole("group", { name: "Finding value-cut" }).waitFor();
  await page.goBack();
  await places.getByRole("link", { name: "mill/main.pgm" }).waitFor();
  await page.goBack();
  assert.equal(await group.getAttribute("aria-expanded"), "false");
  await close();
});

test("a finished place is told from an open one", async () => {
  const { page, close } = await open(`${url}?code=probe-unsupported`);
  const rows = page.getByRole("listitem").filter({ has: page.locator("code") });
  assert.equal(await rows.nth(0).getByRole("img", { name: "finished" }).count(), 1);
  assert.equal(await rows.nth(1).getByRole("img", { name: "Rewrite" }).count(), 1);
  await close();
});

test("a link to a code can be copied", async () => {
  const { page, close } = await open(`${url}?code=ramp-unit&severity=moves`, {
    permissions: ["clipboard-read", "clipboard-write"],
  });
  await page.getByRole("button", { name: "Copy a link to this code" }).click();
  await page.getByText("copied").waitFor();
  const text = await page.evaluate(() => navigator.clipboard.readText());
  assert.equal(text, `${url}?code=ramp-unit`);
  await close();
});
