// Numbers and names as they are said on the page, the same as `torvel-migrate` says them.

import type { Range } from "./estimate.ts";
import type { OutputState, ProgramStatus, Severity, Todo } from "./format.ts";

export function grouped(number: number): string {
  return String(number).replace(/\B(?=(\d{3})+(?!\d))/g, ",");
}

/** "1 program", "2,000 programs". */
export function counted(number: number, one: string, many = one + "s"): string {
  return `${grouped(number)} ${number === 1 ? one : many}`;
}

/** Whole percent, rounded down; never 0 % of something nor 100 % of less than all. */
export function share(part: number, whole: number): string {
  if (whole === 0 || part >= whole) {
    return "100 %";
  }
  const percent = Math.floor((part * 100) / whole);
  if (percent === 0 && part > 0) {
    return "less than 1 %";
  }
  return percent >= 99 && part * 100 > whole * 99 ? "more than 99 %" : `${percent} %`;
}

/** Seconds since 1970 as "2026-11-21 17:34 UTC". */
export function dateText(seconds: number): string {
  return new Date(seconds * 1000).toISOString().slice(0, 16).replace("T", " ") + " UTC";
}

/** What numbers of this size are rounded to, so that two digits count. */
function stepFor(value: number, smallest: number): number {
  let step = value < 10 ? smallest : 1;
  while (value >= step * 100) {
    step *= 10;
  }
  return step;
}

const tolerance = 1e-6;

/** A range whose ends are rounded away from each other. */
function roundedRange([least, most]: Range, smallest: number): string {
  const down = stepFor(least, smallest);
  const up = stepFor(most, smallest);
  const lower = Math.floor(least / down + tolerance) * down;
  const upper = Math.ceil(most / up - tolerance) * up;
  if (lower === 0 && upper !== 0) {
    return `up to ${grouped(upper)}`;
  }
  return lower === upper ? grouped(lower) : `${grouped(lower)} to ${grouped(upper)}`;
}

/** "20 to 110 minutes", "3 to 12 hours (0.5 to 1.5 person-days of 8 hours)". */
export function durationText([least, most]: Range): string {
  if (most <= 120) {
    const range = roundedRange([least, most], 1);
    return range + (range === "1" || range === "up to 1" ? " minute" : " minutes");
  }
  const hours: Range = [least / 60, most / 60];
  const days: Range = [hours[0] / 8, hours[1] / 8];
  const text = roundedRange(hours, 1) + " hours";
  return hours[1] > 8 ? `${text} (${roundedRange(days, 0.5)} person-days of 8 hours)` : text;
}

/** "10 to 40", "10" if both are the same. */
export function rangeText([least, most]: Range): string {
  const number = (value: number) => grouped(Math.round(value * 100) / 100);
  return least === most ? number(least) : `${number(least)} to ${number(most)}`;
}

interface TodoName {
  readonly sign: string;
  readonly title: string;
  readonly one: string;
  readonly many: string;
}

export const todoNames: Readonly<Record<Todo, TodoName>> = {
  rewrite: { sign: "!", title: "Rewrite", one: "line to rewrite", many: "lines to rewrite" },
  complete: { sign: "…", title: "Complete", one: "line to complete", many: "lines to complete" },
  look: { sign: "?", title: "Look at", one: "line to look at", many: "lines to look at" },
  "fix-source": {
    sign: "×",
    title: "Fix the source",
    one: "source to fix",
    many: "sources to fix",
  },
};

interface SeverityName {
  readonly title: string;
  readonly meaning: string;
}

export const severityNames: Readonly<Record<Exclude<Severity, "">, SeverityName>> = {
  moves: { title: "Moves", meaning: "another motion, axis, value or order" },
  stops: { title: "Stops", meaning: "Torvel will most likely refuse the line" },
  reads: { title: "Reads", meaning: "text of the author is lost" },
};

export const statusNames: Readonly<Record<ProgramStatus, string>> = {
  converted: "converted",
  unreadable: "could not be read",
  collides: "not converted: another program has the same output",
};

export const outputNames: Readonly<Record<OutputState, string>> = {
  none: "no output",
  "as-generated": "output as generated",
  edited: "output edited by hand",
  conflict: "edits and a new output wait to be brought together",
  deleted: "output deleted by hand",
  foreign: "output of unknown origin",
  "not-written": "a new output could not be put in its place",
};

/** What the project's own machine, which has no folder, is called. */
export function machineName(folder: string): string {
  return folder === "" ? "The project's own machine" : folder;
}
