// The page torvel-migrate.html as people use it: a folder is chosen, converted and saved.

import { mkdirSync, rmSync, writeFileSync } from "node:fs";
import { dirname, resolve } from "node:path";
import { pathToFileURL } from "node:url";
import { unzipSync } from "fflate";
import type { Page } from "playwright-core";
import { readFileSync } from "node:fs";

export const pageFile = "build/web/torvel-migrate.html";
export const pageUrl = pathToFileURL(resolve(pageFile)).href;

/** A folder of files for a test, written anew. */
export function folderWith(
  name: string,
  files: Iterable<readonly [string, string | Uint8Array]>,
): string {
  const folder = `build/web/dropped/${name}`;
  rmSync(folder, { recursive: true, force: true });
  for (const [path, content] of files) {
    mkdirSync(dirname(`${folder}/${path}`), { recursive: true });
    writeFileSync(`${folder}/${path}`, content, "latin1");
  }
  return folder;
}

const convertButton = /^Convert [\d,]+ programs?$/;

/** Waits until the page has read what it was given. */
export async function settled(page: Page): Promise<void> {
  await page.getByText(/ files added, \d+ replaced\./).waitFor();
}

export async function chooseFolder(page: Page, folder: string): Promise<void> {
  await page.getByLabel("Choose a folder").setInputFiles(resolve(folder));
  await settled(page);
}

export async function chooseFiles(page: Page, files: readonly string[]): Promise<void> {
  await page.getByLabel("Choose files").setInputFiles(files.map((file) => resolve(file)));
  await settled(page);
}

export async function convert(page: Page, patience = 60_000): Promise<void> {
  await page.getByRole("button", { name: convertButton }).click();
  await page.getByRole("button", { name: "Save all as ZIP" }).waitFor({ timeout: patience });
  await page.locator("#main h1").waitFor();
}

/** The files of the ZIP by their paths. */
export async function savedZip(page: Page): Promise<Map<string, Uint8Array>> {
  const [download] = await Promise.all([
    page.waitForEvent("download", { timeout: 60_000 }),
    page.getByRole("button", { name: "Save all as ZIP" }).click(),
  ]);
  return new Map(Object.entries(unzipSync(readFileSync(await download.path()))));
}

export const textOf = (bytes: Uint8Array | undefined): string =>
  Buffer.from(bytes ?? new Uint8Array()).toString("latin1");
