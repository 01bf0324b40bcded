// One program in one call, for who has its files at hand.

import {
  convertFile,
  findingsOf,
  lineMapOf,
  logOf,
  outputOf,
  type FoundFinding,
  type LineMap,
  type Outcome,
} from "./conversion.ts";
import { Converter, type Files } from "./instance.ts";
import { openProject, type FoundFiles, type Settings } from "./project.ts";

export interface Conversion extends Outcome {
  /** Bytes with line feeds, as BrannicToTorvel64 writes them on Linux. */
  readonly outputBytes: Uint8Array;
  readonly logBytes: Uint8Array;
  readonly foundFindings: readonly FoundFinding[];
  readonly lineMap: LineMap;
  readonly found: FoundFiles;
}

/** Converts the program at the path `main` among `files`. The instance must have no other files. */
export function convertIn(
  converter: Converter,
  main: string,
  files: Files,
  settings: Settings = {},
): Conversion {
  converter.putFiles(files);
  const found = openProject(converter, settings);
  const outcome = convertFile(converter, main);
  return {
    ...outcome,
    outputBytes: outputOf(converter),
    logBytes: logOf(converter),
    foundFindings: findingsOf(converter),
    lineMap: lineMapOf(converter),
    found,
  };
}

/** The same with an instance of its own. */
export async function convert(
  wasm: Uint8Array,
  main: string,
  files: Files,
  settings: Settings = {},
): Promise<Conversion> {
  return convertIn(await Converter.of(wasm), main, files, settings);
}
