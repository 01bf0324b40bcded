// Which project a document belongs to, and which programs it is seen through.

import { existsSync } from "node:fs";
import { posix } from "node:path";
import type { Converter } from "./converter/converter.ts";
import { nativePath, settingsPath } from "./converter/files.ts";
import { isFault, type ProjectAnswer } from "./converter/messages.ts";
import { noSettings, type Settings } from "./settings.ts";

/** A document that more programs reach is seen through the first of them. */
export const mostPrograms = 8;

const projectFileName = "migration.toml";

export interface Plant {
  readonly project: number;
  readonly folder: string;
  /** Empty: there is no project file. */
  readonly file: string;
  readonly programs: ReadonlySet<string>;
  /** By path of a part: the programs that reach it. */
  readonly reached: ReadonlyMap<string, readonly string[]>;
}

export class Plants {
  /** Counts up when what was opened before holds no more. */
  generation = 0;
  private settings: Settings = noSettings;
  /** By project file, or by folder where there is none. */
  private readonly opened = new Map<string, Promise<Plant | undefined>>();

  constructor(
    private readonly converter: Converter,
    /** Where the workspace begins; empty: nobody says. */
    private root: string,
    private readonly tell: (sentence: string) => void,
  ) {}

  start(root: string, settings: Settings): void {
    this.root = root;
    this.configure(settings);
  }

  configure(settings: Settings): void {
    this.settings = settings;
    this.reopen();
  }

  /** What was found may be another: projects are opened anew when they are asked for. */
  reopen(): void {
    ++this.generation;
    const all = [...this.opened.values()];
    this.opened.clear();
    for (const opening of all) {
      void opening.then((plant) => plant && this.converter.closeProject(plant.project));
    }
  }

  /** Undefined: its project file cannot be used, which was told. */
  plantOf(path: string): Promise<Plant | undefined> {
    const file = this.projectFileOf(path);
    const folder = posix.dirname(file === "" ? path : file);
    const key = file === "" ? `${folder}/` : file;
    let opening = this.opened.get(key);
    if (opening === undefined) {
      opening = this.open(file, folder);
      this.opened.set(key, opening);
    }
    return opening;
  }

  private projectFileOf(path: string): string {
    if (this.settings.projectFile !== "") {
      return settingsPath(this.settings.projectFile, this.rootFor(path));
    }
    let folder = posix.dirname(path);
    for (;;) {
      const file = posix.join(folder, projectFileName);
      if (existsSync(nativePath(file))) {
        return file;
      }
      const outer = posix.dirname(folder);
      if (outer === folder || folder === this.root) {
        return "";
      }
      folder = outer;
    }
  }

  private rootFor(path: string): string {
    return this.root === "" ? posix.dirname(path) : this.root;
  }

  private async open(file: string, folder: string): Promise<Plant | undefined> {
    const from = this.root === "" ? folder : this.root;
    const { parameterFile, referenceRows } = this.settings;
    // A project file says all that these could.
    const path = (setting: string) =>
      file !== "" || setting === "" ? "" : settingsPath(setting, from);
    const parameters = path(parameterFile);
    const answer = await this.converter.openProject({
      file,
      folder,
      settings: parameters === "" ? "" : `parameters = ${JSON.stringify(parameters)}\n`,
      referenceFile: path(referenceRows),
    });
    if (isFault(answer)) {
      this.tell(answer.fault);
      return undefined;
    }
    return plantOf(answer);
  }
}

function plantOf(answer: ProjectAnswer): Plant {
  const reached = new Map(
    answer.parts.map(({ path, programs }) => [
      path,
      programs.map((number) => answer.programs[number] ?? "").filter((program) => program !== ""),
    ]),
  );
  const { project, folder, file } = answer;
  return { project, folder, file, programs: new Set(answer.programs), reached };
}
