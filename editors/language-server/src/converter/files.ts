// Paths of this machine, of an editor's URIs, and of the converter, which knows "/" only: "C:\a" is "/C:/a" there, and
// "\\server\share\a" is "/UNC/server/share/a".

import { isAbsolute, parse, resolve, sep } from "node:path";
import { fileURLToPath, pathToFileURL } from "node:url";

/** The path of a file's URI as the converter has it; undefined for any other URI. */
export function pathOfUri(uri: string): string | undefined {
  if (!uri.toLowerCase().startsWith("file:")) {
    // A document without a file has a path of its own, in a folder that there is not.
    const name = /^([a-z][\w+.-]*):(.*)$/is.exec(uri);
    return name === null ? undefined : `/${name[1]}:/${encodeURIComponent(name[2] ?? "")}`;
  }
  try {
    return converterPath(fileURLToPath(uri));
  } catch {
    return undefined;
  }
}

export function uriOfPath(path: string): string {
  return pathToFileURL(nativePath(path)).href;
}

export function converterPath(path: string): string {
  const absolute = resolve(path);
  if (sep === "/") {
    return absolute;
  }
  // Editors spell drives in either case.
  const slashes = absolute.replaceAll("\\", "/").replace(/^[a-z]:/, (drive) => drive.toUpperCase());
  return slashes.startsWith("//") ? `/UNC${slashes.slice(1)}` : `/${slashes}`;
}

export function nativePath(path: string): string {
  if (sep === "/") {
    return path;
  }
  return path.startsWith("/UNC/") ? `\\\\${path.slice(5)}`.replaceAll("/", "\\") : path.slice(1);
}

/** The folder of this machine that the converter has to see for a path, and where it is to see it. */
export function mountOf(path: string): { root: string; at: string } | undefined {
  if (!path.startsWith("/") || path === "/") {
    return undefined;
  }
  if (sep === "/") {
    const first = path.split("/", 2).join("/");
    return { root: first, at: first };
  }
  const { root } = parse(nativePath(path));
  return root === "" ? undefined : { root, at: converterPath(root).replace(/\/$/, "") };
}

/** A path of the settings: from the workspace's folder on, or absolute. */
export function settingsPath(path: string, folder: string): string {
  return converterPath(isAbsolute(path) ? path : resolve(nativePath(folder), path));
}
