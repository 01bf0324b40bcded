// What was ticked off before the first motion: by machine and place, with initials and date. It is kept by the
// browser, under the project's identity, and can be saved to a file.

import type { Summary } from "./format.ts";

export interface Tick {
  readonly by: string;
  /** "2026-11-21" */
  readonly on: string;
}

/** By machine and fingerprint. */
export type Ticks = ReadonlyMap<string, Tick>;

export function tickKey(machine: string, fingerprint: string): string {
  return `${fingerprint} ${machine}`;
}

interface SavedTicks {
  readonly what: "torvel-ticks";
  readonly format: 1;
  readonly project: string;
  readonly name: string;
  readonly ticks: readonly (Tick & { readonly key: string })[];
}

export function savedTicks({ project }: Summary, ticks: Ticks): string {
  const saved: SavedTicks = {
    what: "torvel-ticks",
    format: 1,
    project: project.identity,
    name: project.name,
    ticks: [...ticks].map(([key, { by, on }]) => ({ key, by, on })),
  };
  return JSON.stringify(saved, null, 1) + "\n";
}

/** The ticks of a file. Throws an Error that says what is wrong with it. */
export function readTicks(text: string, { project }: Summary): Map<string, Tick> {
  const saved = parsed(text);
  if (saved?.what !== "torvel-ticks" || saved.format !== 1 || !Array.isArray(saved.ticks)) {
    throw new Error("This is no file of ticks.");
  }
  if (saved.project !== project.identity) {
    throw new Error(`These ticks are of another project, ${String(saved.name)}.`);
  }
  const ticks = new Map<string, Tick>();
  for (const { key, by, on } of saved.ticks) {
    if (typeof key !== "string" || typeof by !== "string" || !/^\d{4}-\d\d-\d\d$/.test(on)) {
      throw new Error("This file of ticks is damaged.");
    }
    ticks.set(key, { by, on });
  }
  return ticks;
}

function parsed(text: string): SavedTicks | null {
  try {
    return JSON.parse(text) as SavedTicks | null;
  } catch {
    return null;
  }
}

/** Both together. Of two ticks for the same line the later one is taken. */
export function mergedTicks(ticks: Ticks, others: Ticks): Map<string, Tick> {
  const merged = new Map(ticks);
  others.forEach((tick, key) => {
    const known = merged.get(key);
    if (known === undefined || known.on < tick.on) {
      merged.set(key, tick);
    }
  });
  return merged;
}

/** What the browser keeps for a project; nothing where it keeps nothing. */
export class TickStore {
  private readonly name: string;

  constructor(
    private readonly summary: Summary,
    private readonly storage: Storage | null,
  ) {
    this.name = `torvel:${summary.project.identity}:ticks`;
  }

  isOf(key: string | null): boolean {
    return key === this.name;
  }

  read(): Map<string, Tick> {
    try {
      const text = this.storage?.getItem(this.name) ?? null;
      return text === null ? new Map() : readTicks(text, this.summary);
    } catch {
      return new Map();
    }
  }

  /** False if the browser would not keep them. */
  write(ticks: Ticks): boolean {
    try {
      this.storage?.setItem(this.name, savedTicks(this.summary, ticks));
      return this.storage !== null;
    } catch {
      return false;
    }
  }
}
