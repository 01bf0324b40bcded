// What axe finds wrong with a page as it is.

import { readFileSync } from "node:fs";
import { createRequire } from "node:module";
import type { Page } from "playwright-core";

const axe = readFileSync(createRequire(import.meta.url).resolve("axe-core"), "utf8");

interface AxeResult {
  readonly violations: readonly {
    readonly id: string;
    readonly nodes: readonly { readonly html: string; readonly failureSummary?: string }[];
  }[];
}

export async function axeViolations(page: Page): Promise<string[]> {
  // Not as a script of the page: its policy would refuse it.
  await page.evaluate(axe);
  const result = (await page.evaluate("axe.run()")) as AxeResult;
  return result.violations.map(
    ({ id, nodes }) =>
      `${id}: ${nodes.map((node) => `${node.html}\n${node.failureSummary}`).join("\n")}`,
  );
}
