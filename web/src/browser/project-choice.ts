// What of the files is the project: its folder, its project file, its parameter file.

import type { Settings } from "../converter/project.ts";
import { conversionLimits } from "./limits.ts";

export interface ProjectChoice {
  /** The name of its folder, for people. */
  readonly name: string;
  /** "" for the folder of all files. */
  readonly folder: string;
  readonly projectFile: string;
  /** Files that may be a parameter file. */
  readonly parameterFiles: readonly string[];
}

/** What people choose; a project file says all of it itself. */
export interface Wishes {
  /** "" for none. */
  readonly parameters: string;
  /** Patterns with commas between them. */
  readonly programs: string;
  readonly keepExtension: boolean;
}

export const usualPrograms = "**/*.pgm, **/*.prg";

/** The project of all files: that of the migration.toml that is nearest to the top, else the folder that has them all. */
export function projectOf(paths: readonly string[]): ProjectChoice {
  const depth = (path: string) => path.split("/").length;
  const projectFile =
    paths
      .filter((path) => /(^|\/)migration\.toml$/.test(path))
      .sort((a, b) => depth(a) - depth(b) || (a < b ? -1 : 1))[0] ?? "";
  const folder = projectFile === "" ? commonFolder(paths) : folderOf(projectFile);
  return {
    name: folder.split("/").at(-1) || "programs",
    folder,
    projectFile,
    parameterFiles: paths.filter((path) => /\.xml$/i.test(path)).sort(),
  };
}

const folderOf = (path: string): string => path.slice(0, Math.max(path.lastIndexOf("/"), 0));

function commonFolder(paths: readonly string[]): string {
  const [first = "", ...others] = paths.map((path) => path.split("/")[0]!);
  const isInside = paths.every((path) => path.includes("/"));
  return isInside && others.every((other) => other === first) ? first : "";
}

/** What is chosen at first: the one parameter file that there is. */
export function firstWishes(choice: ProjectChoice): Wishes {
  const [only = "", ...others] = choice.parameterFiles;
  const parameters = choice.projectFile === "" && others.length === 0 ? only : "";
  return { parameters, programs: usualPrograms, keepExtension: false };
}

export function settingsOf(choice: ProjectChoice, wishes: Wishes): Settings {
  if (choice.projectFile !== "") {
    return { projectFile: choice.projectFile, limits: conversionLimits };
  }
  const inFolder = (path: string) =>
    choice.folder === "" ? path : path.slice(choice.folder.length + 1);
  const programs = wishes.programs
    .split(",")
    .map((pattern) => pattern.trim())
    .filter((pattern) => pattern !== "");
  return {
    folder: choice.folder,
    programs,
    keepExtension: wishes.keepExtension,
    ...(wishes.parameters === "" ? {} : { parameters: inFolder(wishes.parameters) }),
    limits: conversionLimits,
  };
}
