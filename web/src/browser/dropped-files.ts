// Files and folders that are dropped or chosen, with their paths as the folders have them.

import { tabLimits } from "./limits.ts";

/** Something that is not taken, and why. */
export interface Refusal {
  readonly path: string;
  readonly reason: string;
}

export type ChosenFiles = ReadonlyMap<string, File>;

export interface Choice {
  readonly files: ChosenFiles;
  readonly refused: readonly Refusal[];
}

/** What was dropped. Has to be called while the event is handled: the list is empty afterwards. */
export function droppedFiles(data: DataTransfer): Promise<Choice> {
  const entries: FileSystemEntry[] = [];
  const single: File[] = [];
  for (const item of data.items) {
    const entry = item.kind === "file" ? item.webkitGetAsEntry() : null;
    const file = entry === null && item.kind === "file" ? item.getAsFile() : null;
    if (entry !== null) {
      entries.push(entry);
    } else if (file !== null) {
      single.push(file);
    }
  }
  return readEntries(entries, single);
}

async function readEntries(
  entries: readonly FileSystemEntry[],
  single: readonly File[],
): Promise<Choice> {
  const files = new Map(single.map((file) => [file.name, file]));
  const refused: Refusal[] = [];
  const waiting = [...entries];
  for (let entry = waiting.pop(); entry !== undefined; entry = waiting.pop()) {
    const path = entry.fullPath.replace(/^\//, "");
    try {
      if (entry.isDirectory) {
        waiting.push(...(await entriesOf(entry as FileSystemDirectoryEntry)));
      } else {
        files.set(path, await fileOf(entry as FileSystemFileEntry));
      }
    } catch (error) {
      refused.push({ path, reason: `It cannot be read: ${reasonOf(error)}` });
    }
  }
  return { files, refused };
}

const fileOf = (entry: FileSystemFileEntry): Promise<File> =>
  new Promise((resolve, reject) => entry.file(resolve, reject));

/** A reader hands over some entries at a time, and none at the end. */
async function entriesOf(folder: FileSystemDirectoryEntry): Promise<FileSystemEntry[]> {
  const reader = folder.createReader();
  const all: FileSystemEntry[] = [];
  for (;;) {
    const some = await new Promise<FileSystemEntry[]>((resolve, reject) =>
      reader.readEntries(resolve, reject),
    );
    if (some.length === 0) {
      return all;
    }
    all.push(...some);
  }
}

/** What was chosen in a dialog. */
export function chosenFiles(list: FileList): Choice {
  const files = new Map<string, File>();
  for (const file of list) {
    files.set(file.webkitRelativePath === "" ? file.name : file.webkitRelativePath, file);
  }
  return { files, refused: [] };
}

/** Adds a choice to what is there: a file of the same path takes its place. */
export function merged(before: Choice, added: Choice): Choice {
  const files = new Map(before.files);
  const isNew = (path: string) => !added.files.has(path);
  const refused = [...before.refused.filter(({ path }) => isNew(path)), ...added.refused];
  let bytes = [...files.values()].reduce((sum, file) => sum + file.size, 0);
  for (const [path, file] of [...added.files].sort(byPath)) {
    const old = files.get(path)?.size ?? 0;
    const reason = refusalOf(file, bytes - old, files.has(path) ? 0 : files.size);
    if (reason === "") {
      bytes += file.size - old;
      files.set(path, file);
    } else {
      refused.push({ path, reason });
    }
  }
  return { files, refused };
}

const byPath = ([a]: readonly [string, File], [b]: readonly [string, File]) =>
  a < b ? -1 : a > b ? 1 : 0;

/** Why a file is too much; empty: it is not. */
function refusalOf(file: File, bytes: number, count: number): string {
  if (file.size > tabLimits.fileBytes) {
    return "It is larger than a tab takes.";
  }
  return bytes + file.size > tabLimits.allBytes || count >= tabLimits.files
    ? "All files together are more than a tab takes."
    : "";
}

export function reasonOf(error: unknown): string {
  return error instanceof Error ? error.message : String(error);
}
