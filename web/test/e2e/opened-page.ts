// A page in a browser, with everything noted that it should not do.

import assert from "node:assert/strict";
import { after, before } from "node:test";
import type { Browser, BrowserContextOptions, Page } from "playwright-core";
import { startBrowser } from "./browser.ts";

export interface Session {
  /** Opens the page at an address, waits for its view, and fails later if it complained. */
  open(url: string, options?: BrowserContextOptions): Promise<OpenedPage>;
}

export interface OpenedPage {
  readonly page: Page;
  /** What the console, the policy and the network had to say so far. */
  readonly complaints: readonly string[];
  close(): Promise<void>;
}

/** A browser for the tests of a file. */
export function browserSession(): Session {
  let browser: Browser;
  before(async () => {
    browser = await startBrowser();
  });
  after(() => browser.close());
  return {
    async open(url, options = {}) {
      const context = await browser.newContext({
        viewport: { width: 1280, height: 900 },
        acceptDownloads: true,
        ...options,
      });
      context.setDefaultTimeout(15_000);
      const page = await context.newPage();
      const complaints: string[] = [];
      page.on("console", (message) => complaints.push(`console: ${message.text()}`));
      page.on("pageerror", (error) => complaints.push(`error: ${error.message}`));
      page.on("dialog", (dialog) => {
        complaints.push(`dialog: ${dialog.message()}`);
        void dialog.dismiss();
      });
      page.on("request", (request) => {
        if (
          !/^(file|blob):/.test(request.url()) &&
          !request.url().startsWith(new URL(url).origin)
        ) {
          complaints.push(`request: ${request.url()}`);
        }
      });
      await page.goto(url);
      await page.locator("#main h1, main.notice [role=alert]").first().waitFor();
      return {
        page,
        complaints,
        async close() {
          await context.close();
          assert.deepEqual(complaints, []);
        },
      };
    },
  };
}

/** Goes to another state of the page, as a link does. */
export async function goTo(page: Page, hash: string): Promise<void> {
  await page.evaluate((next) => {
    const link = document.createElement("a");
    link.href = next;
    document.body.append(link);
    link.click();
    link.remove();
  }, hash);
  await page.waitForFunction((next) => location.hash === next, hash);
  await page.waitForFunction(() => document.querySelector("[aria-busy=true]:not(.block)") === null);
}
