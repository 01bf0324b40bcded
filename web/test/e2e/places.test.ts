import assert from "node:assert/strict";
import {
  createReadStream,
  existsSync,
  mkdirSync,
  readFileSync,
  rmSync,
  writeFileSync,
} from "node:fs";
import { createServer } from "node:http";
import type { AddressInfo } from "node:net";
import { test } from "node:test";
import { pathToFileURL } from "node:url";
import { smallReport } from "../sample/small-report.ts";
import { writeFolder, writePage } from "../sample/written-page.ts";
import { browserSession, type OpenedPage } from "./opened-page.ts";

const { open } = browserSession();
const folder = "build/web/pages/Halle 2 #Süd % 100";
const program = "#/program?path=mill/main.pgm";

async function seesProgram({ page, close }: OpenedPage): Promise<void> {
  await page.locator(".row", { hasText: "HOME X Y" }).waitFor();
  await close();
}

test("from a disk, under a path with blanks, # and umlauts", async () => {
  mkdirSync(folder, { recursive: true });
  writePage(`${folder}/Bericht äöü.html`, smallReport());
  await seesProgram(await open(pathToFileURL(`${folder}/Bericht äöü.html`).href + program));
  writeFolder(folder, smallReport());
  await seesProgram(await open(pathToFileURL(`${folder}/index.html`).href + program));
});

test("over HTTP, both forms", async () => {
  writePage(`${folder}/page.html`, smallReport());
  writeFolder(folder, smallReport());
  const server = createServer((request, response) => {
    const file = `${folder}${(request.url ?? "").replace(/[?#].*/, "")}`;
    const type = file.endsWith(".js") ? "text/javascript" : "text/html";
    response.writeHead(existsSync(file) ? 200 : 404, { "Content-Type": type });
    existsSync(file) ? createReadStream(file).pipe(response) : response.end();
  });
  await new Promise<void>((resolve) => server.listen(0, "127.0.0.1", resolve));
  const host = `http://127.0.0.1:${(server.address() as AddressInfo).port}`;
  await seesProgram(await open(`${host}/page.html${program}`));
  await seesProgram(await open(`${host}/index.html${program}`));
  server.close();
});

test("a program's file that is missing, damaged or newer is told", async () => {
  const broken = "build/web/pages/broken";
  rmSync(broken, { recursive: true, force: true });
  writeFolder(broken, smallReport());
  const file = `${broken}/programs/1.js`;
  const text = readFileSync(file, "utf8");
  const url = pathToFileURL(`${broken}/index.html`).href + program;
  const saysFor = async (content: string | null, expected: string) => {
    if (content === null) {
      rmSync(file);
    } else {
      writeFileSync(file, content);
    }
    const { page } = await open(url);
    await page.getByText(`The program cannot be shown. ${expected}`).waitFor();
    await page.context().close();
  };
  await saysFor(text.replace(/"\d+"\);/, '"7");'), "A newer report was written in the place");
  await saysFor(
    text.replace("torvelProgram(1", "torvelProgram(2"),
    "The file programs/1.js holds another",
  );
  await saysFor(null, "The file programs/1.js beside this page cannot be read.");
});

test("data that this page does not know is refused with a word", async () => {
  const sample = smallReport();
  const newer = { ...sample, summary: { ...sample.summary, format: 2 } };
  writePage("build/web/pages/newer.html", newer);
  const { page, close } = await open(pathToFileURL("build/web/pages/newer.html").href);
  await page.getByText("The data has format 2, and this page reads format 1.").waitFor();
  await close();
  writeFileSync("build/web/pages/empty.html", readFileSync("build/web/report-page.html"));
  const empty = await open(pathToFileURL("build/web/pages/empty.html").href);
  await empty.page.getByText("There is no report in this page.").waitFor();
  assert.equal(await empty.page.getByRole("alert").count(), 1);
  await empty.close();
});
