import assert from "node:assert/strict";
import { test } from "node:test";
import { addressOf } from "../../src/app/address.ts";
import { hostileReport, hostileTexts } from "../sample/hostile-report.ts";
import { browserSession, goTo } from "./opened-page.ts";
import { folderPageOf, pageOf } from "./pages.ts";

const { open } = browserSession();
const report = hostileReport();
const { strings, programs } = report.summary;

/** Every view, every code and every program. */
function everyState(): string[] {
  return [
    "#/overview",
    "#/work",
    ...hostileTexts.map((_, index) => `#/work?show=code-${index}`),
    "#/work?folder=hall+0&text=%3C%2Fscript%3E",
    "#/program",
    ...programs.path.map((path, program) =>
      addressOf("program", {
        path: strings[path]!,
        line: program < hostileTexts.length ? `${program + 1}` : "2",
      }),
    ),
    "#/checks",
  ];
}

for (const [name, url] of [
  ["in one file", pageOf("hostile", report)],
  ["in a folder", folderPageOf("hostile", report)],
] as const) {
  test(`texts that look like markup stay texts, ${name}`, async () => {
    const { page, close } = await open(url);
    for (const state of everyState()) {
      await goTo(page, state);
      await page.locator("main h1").waitFor();
      if (state.includes("path=")) {
        await page.locator(".row.selected").waitFor();
      }
      // Characters that are not seen, or turn the order of others, are shown by their names.
      const shown = await page.locator("body").innerText();
      assert.equal(/[\u202a-\u202e\u2066-\u2069\u200b\u0007\u001b]/.exec(shown), null, state);
    }
    await page.locator(".hidden-character", { hasText: "U+202E" }).first().waitFor();
    assert.equal(await page.evaluate(() => (window as { hacked?: number }).hacked), undefined);
    assert.equal(await page.locator("main :is(script, img, svg, iframe, object)").count(), 0);
    await close();
  });
}

test("a line of a megabyte is cut on the page, and copied whole", async () => {
  const { page, close } = await open(
    `${pageOf("hostile", report)}#/program?path=long+line.pgm&line=2`,
    {
      permissions: ["clipboard-read", "clipboard-write"],
    },
  );
  await page.getByText("… and 998,000 characters more").first().waitFor();
  await page.getByRole("button", { name: "Copy the Brannic line" }).click();
  await page.getByText("copied").waitFor();
  const text = await page.evaluate(() => navigator.clipboard.readText());
  assert.equal(text.length, 1_000_000);
  await close();
});
