// What the browser keeps. Some keep nothing for pages from a disk, and throw.

export function browserStorage(): Storage | null {
  try {
    const storage = window.localStorage;
    storage.getItem("torvel");
    return storage;
  } catch {
    return null;
  }
}
