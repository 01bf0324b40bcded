import assert from "node:assert/strict";
import { test } from "node:test";
import { smallReport } from "../sample/small-report.ts";
import { axeViolations } from "./axe.ts";
import { browserSession, goTo } from "./opened-page.ts";
import { pageOf } from "./pages.ts";

const { open } = browserSession();
const url = pageOf("accessible", smallReport());
const states = [
  "#/overview?minutes-rewrite=1-2",
  "#/work",
  "#/work?show=value-cut&place=00000000000000000000000000000001",
  "#/work?text=nowhere",
  "#/program",
  "#/program?path=mill/main.pgm",
  "#/program?path=mill/main.pgm&open=all&line=6",
  "#/program?path=mill/main.pgm&line=4",
  "#/program?path=laser/broken.pgm&line=2",
  "#/program?path=nowhere",
  "#/checks",
  "#/checks?machine=laser",
];

for (const colorScheme of ["light", "dark"] as const) {
  for (const width of [1280, 768]) {
    test(`axe finds nothing, ${colorScheme}, ${width} px`, async () => {
      const { page, close } = await open(url, { colorScheme, viewport: { width, height: 900 } });
      for (const state of states) {
        await goTo(page, state);
        await page.locator("main h1").waitFor();
        assert.deepEqual(await axeViolations(page), [], state);
        const { scroll, client } = await page.evaluate(() => ({
          scroll: document.documentElement.scrollWidth,
          client: document.documentElement.clientWidth,
        }));
        assert.ok(scroll <= client, `${state} is ${scroll} px wide`);
      }
      await close();
    });
  }
}

test("the keyboard reaches everything, and shows where it is", async () => {
  const { page, close } = await open(`${url}#/checks`);
  const reached: string[] = [];
  for (let i = 0; i < 40; ++i) {
    await page.keyboard.press("Tab");
    const name = await page.evaluate(() => {
      const element = document.activeElement as HTMLElement;
      if (element === document.body) {
        return "end";
      }
      const { outlineStyle } = getComputedStyle(element);
      return `${element.getAttribute("aria-label") ?? element.textContent} ${outlineStyle}`;
    });
    if (name === "end") {
      break;
    }
    reached.push(name);
  }
  const has = (text: string) => reached.some((name) => name.includes(text));
  for (const text of [
    "To the content",
    "Overview",
    "Before the first motion",
    "Save ticks",
    "Read ticks",
    "Print the form",
    "Ticked off: mill/main.pgm, line 6",
    "Ticked off: mill/inc/tool.pgm, line 2",
    "What to do",
  ]) {
    assert.ok(has(text), `${text} in ${reached.join("\n")}`);
  }
  assert.deepEqual(
    reached.filter((name) => name.endsWith(" none")),
    [],
  );
  await close();
});

test("the first stop leads past the head of the page", async () => {
  const { page, close } = await open(`${url}#/work`);
  await page.keyboard.press("Tab");
  await page.keyboard.press("Enter");
  assert.equal(await page.evaluate(() => document.activeElement?.id), "main");
  assert.ok(page.url().endsWith("#/work"));
  await close();
});
