// A run over all programs that were found.

import { WorkerLost, type ConverterClient } from "./converter-client.ts";
import { reasonOf } from "./dropped-files.ts";
import { tabLimits } from "./limits.ts";
import type { ConvertedProgram } from "./messages.ts";

export interface Progress {
  readonly done: number;
  readonly total: number;
  readonly path: string;
}

export interface RunOrder {
  readonly programs: readonly { readonly path: string }[];
  /** Set by whoever wants the run to end: what was converted until then is kept. */
  readonly stop: { isSet: boolean };
  readonly tell: (progress: Progress) => void;
}

/** Converts the programs in their order. One that ends the worker is a result too, and the next one has another. */
export async function convertAll(
  client: ConverterClient,
  { programs, stop, tell }: RunOrder,
): Promise<ConvertedProgram[]> {
  const results: ConvertedProgram[] = [];
  for (const [number, { path }] of programs.entries()) {
    if (stop.isSet) {
      break;
    }
    tell({ done: number, total: programs.length, path });
    const result = await convertOne(client, number, stop);
    if (result !== null) {
      results.push(result);
    }
  }
  if (stop.isSet) {
    await client.restart();
  }
  return results;
}

/** Nothing, if the run was stopped meanwhile. */
async function convertOne(
  client: ConverterClient,
  number: number,
  stop: { isSet: boolean },
): Promise<ConvertedProgram | null> {
  try {
    return await client.ask("convert", number, tabLimits.patience);
  } catch (error) {
    if (stop.isSet) {
      return null;
    }
    if (!(error instanceof WorkerLost)) {
      throw error;
    }
    await client.restart();
    return client.ask("fault", { number, reason: reasonOf(error) });
  }
}
