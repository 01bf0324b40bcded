// What came of converting a program: its files and its findings. The places of its names follow, in program.ts.

import type { Finding, ProgramAnswer } from "./converter/messages.ts";

export class Result {
  readonly path: string;
  readonly findings: readonly Finding[];
  private readonly fileOfPath: ReadonlyMap<string, number>;

  /** `versions` are those of the open documents that it was made of, by path. */
  constructor(
    readonly answer: ProgramAnswer,
    readonly versions: ReadonlyMap<string, number>,
  ) {
    this.path = answer.program;
    this.findings = answer.findings;
    this.fileOfPath = new Map(answer.files.map(({ path }, number) => [path, number]));
  }

  get isReadable(): boolean {
    return this.answer.status === "converted";
  }

  fileAt(path: string): number | undefined {
    return this.fileOfPath.get(path);
  }
  pathOf(file: number): string {
    return this.answer.files[file]?.path ?? this.path;
  }
  /** As messages show it. */
  shownPath(file: number): string {
    return this.answer.files[file]?.shown ?? "";
  }
}
