// Packages as zip files: read whole, and written so that the same files give the same bytes.

import { writeFileSync } from "node:fs";
import { buffer } from "node:stream/consumers";
import { promisify } from "node:util";
import yauzl from "yauzl";
import yazl from "yazl";

/** The files of a package by their paths. */
export async function readPackage(file) {
  const zip = await promisify(yauzl.open)(file, { lazyEntries: true });
  const open = promisify(zip.openReadStream.bind(zip));
  const files = new Map();
  await new Promise((resolve, reject) => {
    zip.on("error", reject).on("end", resolve);
    zip.on("entry", (entry) => {
      open(entry)
        .then(buffer)
        .then((content) => {
          files.set(entry.fileName, content);
          zip.readEntry();
        }, reject);
    });
    zip.readEntry();
  });
  return files;
}

export async function writePackage(file, files) {
  const zip = new yazl.ZipFile();
  const mtime = new Date(Number(process.env.SOURCE_DATE_EPOCH ?? 315532800) * 1000);
  for (const path of [...files.keys()].sort()) {
    zip.addBuffer(files.get(path), path, { mtime, mode: 0o100644 });
  }
  zip.end();
  writeFileSync(file, await buffer(zip.outputStream));
}
