/** The folders and those around them, in the order of their names. */
export function outerFolders(folders: readonly string[]): string[] {
  const all = new Set<string>();
  for (const folder of folders) {
    for (let path = folder; path !== "" && !all.has(path);) {
      all.add(path);
      const slash = path.lastIndexOf("/");
      path = slash === -1 ? "" : path.slice(0, slash);
    }
  }
  return [...all].sort();
}
