// Opening a project: its programs are found among the files that an instance has.

import { type Converter, projectFolder } from "./instance.ts";
import { Request } from "./request.ts";

/** What is asked for beside the files. What is not given is as `migration.toml` says, or as it is without one. */
export interface Settings {
  /** The path of the project file among the files; the project's folder is where it stands. */
  readonly projectFile?: string;
  /** The project's folder where there is no such file, seen from the folder of all files. */
  readonly folder?: string;
  /** Folders and files of the project that hold programs. */
  readonly sources?: readonly string[];
  /** Patterns of programs, "**" with all folders below: what no other file includes and is called so. */
  readonly programs?: readonly string[];
  /** The path of the parameter file among the files. */
  readonly parameters?: string;
  /** The output of part.pgm is part.pgm.torvel. */
  readonly keepExtension?: boolean;
  /** Other limits than those of the program, by the names that src/limits.h has. */
  readonly limits?: Readonly<Record<string, number>>;
}

export interface FoundProgram {
  /** Paths in the project. */
  readonly path: string;
  readonly output: string;
  readonly machine: string;
  readonly parameters: string;
}

/** What is told of the files as they were found. */
export interface FoundFiles {
  readonly programs: readonly FoundProgram[];
  /** Files that only others include. */
  readonly parts: readonly string[];
  readonly notices: readonly { readonly path: string; readonly text: string }[];
  /** Includes that lead to no file: where they stand, as they are written, where the file would be. */
  readonly missing: readonly {
    readonly file: string;
    readonly line: number;
    readonly written: string;
    readonly path: string;
  }[];
  /** Parameter files that cannot be used. */
  readonly faults: readonly { readonly path: string; readonly text: string }[];
}

/** Throws ConverterRefused with a sentence about what is wrong with the project file. */
export function openProject(converter: Converter, settings: Settings = {}): FoundFiles {
  const file = settings.projectFile ?? "";
  const limits = Object.entries(settings.limits ?? {});
  const request = new Request()
    .text(settings.folder ? `${projectFolder}/${settings.folder}` : projectFolder)
    .text(file === "" ? "" : `${projectFolder}/${file}`)
    .texts(settings.sources ?? (file === "" ? ["."] : []))
    .texts(settings.programs ?? [])
    .text(settings.parameters ?? "")
    .number(settings.keepExtension === true ? 1 : 0)
    .number(limits.length);
  for (const [name, value] of limits) {
    request.text(name).number(value);
  }
  return converter.json<FoundFiles>("OpenProject", request);
}
