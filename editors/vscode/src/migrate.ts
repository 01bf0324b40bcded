// Runs torvel-migrate and gives what it said.

import { execFile } from "node:child_process";
import type { OutputChannel } from "vscode";

export interface Outcome {
  /** The exit status; undefined if the program did not run to its end. */
  readonly status: number | undefined;
  readonly output: string;
  readonly errors: string;
}

/** Arguments are handed over as they are: no shell reads them. */
export function runMigrate(
  program: string,
  commandLine: readonly string[],
  folder: string | undefined,
  log: OutputChannel,
): Promise<Outcome> {
  log.appendLine(`> ${[program, ...commandLine].join(" ")}`);
  return new Promise((resolve) => {
    const options = {
      maxBuffer: 64 * 1024 * 1024,
      ...(folder === undefined ? {} : { cwd: folder }),
    };
    execFile(program, [...commandLine], options, (error, output, errors) => {
      const code: unknown = error?.code;
      const status = error === null ? 0 : typeof code === "number" ? code : undefined;
      const reason = status === undefined ? `${error?.message ?? ""}\n` : "";
      log.append(output + errors + reason);
      resolve({ status, output, errors: errors + reason });
    });
  });
}

/** What is told to who has no torvel-migrate, or one that fails. */
export function failureOf({ status, errors }: Outcome, program: string): string {
  const [first = ""] = errors.trim().split("\n");
  return status === undefined
    ? `${program} could not be run; the setting brannic.migrateProgram says where it is. ${first}`
    : first || `${program} ended with status ${status}.`;
}
