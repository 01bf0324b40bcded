// Paths of this machine, of an editor's URIs, and of the converter, which knows "/" only: "C:\a" is "/C:/a" there, and
// "\\server\share\a" is "/UNC/server/share/a".

import path, { type PlatformPath } from "node:path";
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

export function converterPath(native: string, platform: PlatformPath = path): string {
  const absolute = platform.resolve(native);
  if (platform.sep === "/") {
    return absolute;
  }
  // Editors spell drives in either case.
  const slashes = absolute.replaceAll("\\", "/").replace(/^[a-z]:/, (drive) => drive.toUpperCase());
  return slashes.startsWith("//") ? `/UNC${slashes.slice(1)}` : `/${slashes}`;
}

export function nativePath(converted: string, platform: PlatformPath = path): string {
  if (platform.sep === "/") {
    return converted;
  }
  const slashes = converted.startsWith("/UNC/") ? `//${converted.slice(5)}` : converted.slice(1);
  return slashes.replaceAll("/", "\\");
}

/** The folder of this machine that the converter has to see for a path, and where it is to see it. */
export function mountOf(
  converted: string,
  platform: PlatformPath = path,
): { root: string; at: string } | undefined {
  if (!converted.startsWith("/") || converted === "/") {
    return undefined;
  }
  if (platform.sep === "/") {
    const first = converted.split("/", 2).join("/");
    return { root: first, at: first };
  }
  const { root } = platform.parse(nativePath(converted, platform));
  return root === "" ? undefined : { root, at: converterPath(root, platform).replace(/\/$/, "") };
}

/** A path of the settings: from the workspace's folder on, or absolute. */
export function settingsPath(setting: string, folder: string): string {
  return converterPath(
    path.isAbsolute(setting) ? setting : path.resolve(nativePath(folder), setting),
  );
}
