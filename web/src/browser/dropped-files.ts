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

/** Something that was dropped, in the ways in which browsers hand it over. Chromium reads no entries for a page that lies
 * on a disk, and Firefox has no handles. */
interface Dropped {
  readonly handle: Promise<FileSystemHandle | null> | undefined;
  readonly entry: FileSystemEntry | null;
  readonly file: File | null;
}

type WithHandles = DataTransferItem & {
  getAsFileSystemHandle?: () => Promise<FileSystemHandle | null>;
};

/** What was dropped. Has to be called while the event is handled: the list is empty afterwards. */
export function droppedFiles(data: DataTransfer): Promise<Choice> {
  const dropped = [...data.items]
    .filter(({ kind }) => kind === "file")
    .map((item: WithHandles) => ({
      handle: item.getAsFileSystemHandle?.(),
      entry: item.webkitGetAsEntry(),
      file: item.getAsFile(),
    }));
  return readDropped(dropped);
}

async function readDropped(dropped: readonly Dropped[]): Promise<Choice> {
  const files = new Map<string, File>();
  const refused: Refusal[] = [];
  const taking = (path: string) => async (work: () => Promise<void>) => {
    try {
      await work();
    } catch (error) {
      refused.push({ path, reason: `It cannot be read: ${reasonOf(error)}` });
    }
  };
  for (const { handle, entry, file } of dropped) {
    const known = await handle?.catch(() => null);
    const name = known?.name ?? entry?.name ?? file?.name ?? "";
    if (known !== null && known !== undefined) {
      await takeHandle(known, name, files, taking);
    } else if (entry !== null && entry.isDirectory) {
      await takeEntry(entry, files, taking);
    } else if (file !== null) {
      files.set(name, file);
    }
  }
  return { files, refused };
}

type Taking = (path: string) => (work: () => Promise<void>) => Promise<void>;

async function takeHandle(
  handle: FileSystemHandle,
  path: string,
  files: Map<string, File>,
  taking: Taking,
): Promise<void> {
  await taking(path)(async () => {
    if (handle.kind === "file") {
      files.set(path, await (handle as FileSystemFileHandle).getFile());
      return;
    }
    for await (const [name, inside] of entriesIn(handle)) {
      await takeHandle(inside, `${path}/${name}`, files, taking);
    }
  });
}

const entriesIn = (folder: FileSystemHandle): AsyncIterable<[string, FileSystemHandle]> =>
  (folder as unknown as { entries(): AsyncIterable<[string, FileSystemHandle]> }).entries();

async function takeEntry(
  entry: FileSystemEntry,
  files: Map<string, File>,
  taking: Taking,
): Promise<void> {
  const path = entry.fullPath.replace(/^\//, "");
  await taking(path)(async () => {
    if (!entry.isDirectory) {
      files.set(path, await fileOf(entry as FileSystemFileEntry));
      return;
    }
    for (const inside of await entriesOf(entry as FileSystemDirectoryEntry)) {
      await takeEntry(inside, files, taking);
    }
  });
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
