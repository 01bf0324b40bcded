import assert from "node:assert/strict";
import { test } from "node:test";
import type { Page } from "playwright-core";
import { longProgram, manyPrograms } from "../sample/large-reports.ts";
import { smallReport } from "../sample/small-report.ts";
import { browserSession, goTo } from "./opened-page.ts";
import { pageOf } from "./pages.ts";

const { open } = browserSession();
const url = pageOf("program", smallReport());
const main = `${url}#/program?path=mill/main.pgm`;

/** "source | output" of the rows that are shown. */
async function rowsOf(page: Page): Promise<string[]> {
  await page.locator(".row").first().waitFor();
  return page.evaluate(() =>
    [...document.querySelectorAll(".row")].map((row) =>
      [".source", ".output-line"]
        .map((side) => row.querySelector(`${side} code`)?.textContent ?? "-")
        .join(" | "),
    ),
  );
}

test("source and output side by side, includes folded", async () => {
  const { page, close } = await open(`${main}&output=generated`);
  assert.deepEqual(await rowsOf(page), [
    "; Main program | // Main program",
    '#include "inc/tool.pgm" | // #include "inc/tool.pgm" // start',
    "HOME X Y | Home([X, Y])",
    "PROBE X | #error_unconvertible (mill/main.pgm:4): PROBE X",
    "DVAR $b, $c | var $b",
    "- | var $c",
    "RAMP RATE 5 | SetupCoordinatedRampValue(RampMode.Rate, 5)",
    "END PROGRAM | ProgramExit()",
  ]);
  const include = page.getByRole("button", { name: "mill/inc/tool.pgm" });
  assert.equal(await include.textContent(), "mill/inc/tool.pgm 4 lines, 1 line with findings");
  await include.click();
  const rows = await rowsOf(page);
  assert.deepEqual(rows.slice(2, 7), [
    "; tools | // tools",
    "$a = 1e3 | $a = 1",
    "DFS change | function change()",
    "ENDDFS | end",
    '- | // #include "inc/tool.pgm" // end',
  ]);
  assert.ok(page.url().includes("open=1"));
  await include.click();
  assert.equal((await rowsOf(page)).length, 8);
  await close();
});

test("an edited output is shown as it is now, with what was changed", async () => {
  const { page, close } = await open(main);
  const rows = await rowsOf(page);
  assert.deepEqual(rows.slice(3, 6), [
    "PROBE X | #error_unconvertible (mill/main.pgm:4): PROBE X",
    "- | MoveToLimit(X)",
    "- | // by hand",
  ]);
  assert.equal(await page.getByRole("img", { name: "taken out by hand" }).count(), 1);
  assert.equal(await page.getByRole("img", { name: "added by hand" }).count(), 2);
  await page.getByRole("button", { name: "Show the output as generated" }).click();
  assert.equal(await page.getByRole("img", { name: "taken out by hand" }).count(), 0);
  await close();
});

test("keys go from finding to finding, and open what they are in", async () => {
  const { page, close } = await open(main);
  await page.locator(".row").first().waitFor();
  // The line is shown a moment after the key.
  const selects = (line: string) =>
    page.locator(".row.selected .source code").getByText(line, { exact: true }).waitFor();
  await page.keyboard.press("n");
  await selects("$a = 1e3");
  await page.getByText("included from mill/main.pgm:2").waitFor();
  await page.keyboard.press("n");
  await selects("PROBE X");
  await page.getByText("2 of 3 lines with findings").waitFor();
  await page.keyboard.press("p");
  await page.keyboard.press("p");
  await selects("RAMP RATE 5");
  assert.ok(page.url().endsWith("line=6"));
  // Two keys at once are two steps, though nothing was shown between them.
  await page.evaluate(() =>
    ["n", "p"].forEach((key) => window.dispatchEvent(new KeyboardEvent("keydown", { key }))),
  );
  await selects("RAMP RATE 5");
  await page.keyboard.press("j");
  await selects("END PROGRAM");
  await page.keyboard.press("k");
  await page.reload();
  await selects("RAMP RATE 5");
  // A key that is typed into a field is text.
  await page.getByRole("searchbox").fill("");
  await page.getByRole("searchbox").press("n");
  await selects("RAMP RATE 5");
  await close();
});

test("the place of a finding is marked in its line", async () => {
  const { page, close } = await open(`${main}&line=6`);
  assert.deepEqual(await page.locator(".row.selected mark").allTextContents(), [
    "RAMP",
    " ",
    "RATE",
  ]);
  await close();
});

test("lines, findings and links can be copied", async () => {
  const { page, close } = await open(`${main}&out=4`, {
    permissions: ["clipboard-read", "clipboard-write"],
  });
  const copied = async (name: string) => {
    await page.getByRole("button", { name }).click();
    await page.getByText("copied").first().waitFor();
    const text = await page.evaluate(() => navigator.clipboard.readText());
    await page.getByText("copied").first().waitFor({ state: "detached" });
    return text;
  };
  assert.equal(await copied("Copy the Brannic line"), "$a = 1e3");
  assert.equal(await copied("Copy the Torvel line"), "$a = 1");
  assert.equal(await copied("Copy a link to this line"), `${main}&out=4`);
  assert.equal(
    await copied("Copy the finding"),
    "mill/inc/tool.pgm:2: Text behind the value of an assignment is dropped. [value-cut]\n" +
      "$a = 1e3\n" +
      "In file included from mill/main.pgm:2",
  );
  await close();
});

test("a line is found by its number or its text", async () => {
  const { page, close } = await open(main);
  const selected = page.locator(".row.selected .source code");
  await page.getByRole("searchbox").fill("5");
  await page.getByRole("searchbox").press("Enter");
  assert.equal(await selected.textContent(), "DVAR $b, $c");
  await page.getByRole("searchbox").fill("FUNCTION ch");
  await page.getByRole("searchbox").press("Enter");
  assert.equal(await selected.textContent(), "DFS change");
  await page.getByRole("searchbox").fill("nowhere");
  await page.getByRole("searchbox").press("Enter");
  await page.getByText("not found").waitFor();
  await close();
});

test("a program that could not be read shows its source and why", async () => {
  const { page, close } = await open(`${url}#/program?path=laser/broken.pgm&line=2`);
  assert.deepEqual(await rowsOf(page), ["HOME X | -", 'MSGBOX "open | -']);
  await page.getByText("could not be read").waitFor();
  await page.getByRole("group", { name: "Finding string-not-terminated" }).waitFor();
  await close();
});

test("the list of programs is filtered and ordered", async () => {
  const { page, close } = await open(`${url}#/program`);
  const paths = () => page.locator(".block .program-row a").allTextContents();
  assert.deepEqual(await paths(), ["laser/broken.pgm", "mill/main.pgm", "mill/second.pgm"]);
  await page.getByLabel("Order").selectOption("lines");
  assert.deepEqual(await paths(), ["mill/main.pgm", "mill/second.pgm", "laser/broken.pgm"]);
  await page.getByLabel("State").selectOption("edited");
  assert.deepEqual(await paths(), ["mill/main.pgm"]);
  await close();
});

test("far down in a long program", async () => {
  const far = pageOf("long", longProgram(200_000));
  const { page, close } = await open(`${far}#/program?path=long.pgm&line=150000`);
  await page.locator(".row.selected").waitFor();
  assert.match((await page.locator(".row.selected").textContent())!, /point 150000/);
  const box = await page.locator(".row.selected").boundingBox();
  assert.ok(box !== null && box.y > 0 && box.y < 900, JSON.stringify(box));
  await page.keyboard.press("n");
  await page.locator(".row.selected", { hasText: "point 151000" }).waitFor();
  // Far from what is seen nothing is made.
  assert.ok((await page.locator(".row").count()) < 5000);
  await goTo(page, "#/program?path=long.pgm&line=1");
  await page.locator(".row.selected", { hasText: "point 1" }).waitFor();
  await close();
});

test("a list that is too long to be made whole is made where it is seen", async () => {
  const { page, close } = await open(`${pageOf("many", manyPrograms(6_000, 6_000))}#/program`);
  const seen = () =>
    page.evaluate(() => {
      const { innerWidth, innerHeight } = window;
      const shown = document.elementFromPoint(innerWidth / 3, innerHeight / 2);
      return shown?.closest(".program-row")?.querySelector("a")?.textContent ?? "nothing";
    });
  const isSeen = async (pattern: RegExp) => {
    for (let left = 50; !pattern.test(await seen()); --left) {
      assert.ok(left > 0, `${await seen()} is no ${pattern}`);
      await page.waitForTimeout(50);
    }
  };
  await page.evaluate(() => window.scrollTo(0, document.documentElement.scrollHeight / 2));
  await isSeen(/p02\d\d\d|p03\d\d\d/);
  assert.ok((await page.locator(".block .program-row").count()) < 1500);
  // Still long, and at another place of what was seen before.
  await page.getByLabel("State").selectOption("left");
  await page.getByText("4,800 programs").waitFor();
  await page.getByRole("searchbox").fill("hall");
  await page.evaluate(() => window.scrollTo(0, document.documentElement.scrollHeight));
  await isSeen(/p05\d\d\d/);
  await page.getByRole("searchbox").fill("hall3/");
  await isSeen(/hall3/);
  // On paper all of it has to be there at once.
  await goTo(page, "#/program?sort=lines");
  const printed = await page.evaluate(() => {
    window.dispatchEvent(new Event("beforeprint"));
    return document.querySelectorAll(".block .program-row").length;
  });
  assert.equal(printed, 6000);
  await close();
});
