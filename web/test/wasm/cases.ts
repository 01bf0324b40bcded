// The golden cases (tests/golden/README.md), as far as they are conversions of files: a case with links, or with other
// arguments than a program and its parameter file, is for the command line.

import { readdirSync, readFileSync } from "node:fs";
import type { Files } from "../../src/converter/instance.ts";

export interface Case {
  /** "subject/name" */
  readonly name: string;
  readonly files: Files;
  readonly main: string;
  readonly parameters: string;
  readonly limits: Readonly<Record<string, number>>;
  /** Bytes as characters; absent ones are not compared. */
  readonly output: string | undefined;
  readonly log: string;
  readonly status: number;
  readonly standardError: string;
}

interface Part {
  readonly name: string;
  readonly argument: string;
  readonly content: string;
}

const folder = "tests/golden";

/** All cases; null stands for one that is for the command line. */
export function goldenCases(): readonly { readonly name: string; readonly test: Case | null }[] {
  const subjects = readdirSync(folder, { withFileTypes: true }).filter((entry) =>
    entry.isDirectory(),
  );
  return subjects.flatMap(({ name: subject }) =>
    readdirSync(`${folder}/${subject}`)
      .filter((file) => file.endsWith(".case"))
      .sort()
      .map((file) => {
        const name = `${subject}/${file.slice(0, -".case".length)}`;
        return { name, test: caseOf(name, readFileSync(`${folder}/${subject}/${file}`, "latin1")) };
      }),
  );
}

function caseOf(name: string, text: string): Case | null {
  const parts = partsOf(text);
  const contentOf = (part: string) => parts.find((other) => other.name === part)?.content;
  const files = new Map<string, Uint8Array>();
  const limits: Record<string, number> = {};
  for (const part of parts) {
    if (part.name === "program" || part.name === "file") {
      files.set(part.argument, bytesOf(part.content));
    } else if (part.name === "copy") {
      copyFolder(part.argument, files);
    } else if (part.name === "options") {
      readLimits(part.content, limits);
    } else if (["link", "hard-link", "directory", "expect file"].includes(part.name)) {
      return null;
    }
  }
  const program = parts.find((part) => part.name === "program")?.argument ?? "";
  const use = argumentsOf(contentOf("arguments"), program);
  if (use === null || contentOf("expect stdout") !== undefined) {
    return null;
  }
  return {
    name,
    files,
    ...use,
    limits,
    output: contentOf("expect output"),
    log: contentOf("expect log") ?? "",
    status: Number(parts.find((part) => part.name === "expect status")?.argument ?? "0"),
    standardError: contentOf("expect stderr") ?? "",
  };
}

function partsOf(text: string): Part[] {
  const parts: Part[] = [];
  const starts = [...text.matchAll(/^--- .*\n?/gm)];
  starts.forEach((start, i) => {
    const begin = start.index + start[0].length;
    const content = text.slice(begin, starts[i + 1]?.index ?? text.length);
    parts.push(partOf(start[0].slice("--- ".length).trim(), content));
  });
  return parts;
}

function partOf(head: string, content: string): Part {
  const words = head.split(" ");
  const isEscaped = takeLast(words, "escaped");
  const isCut = takeLast(words, "no-newline");
  const name = words[0] === "expect" ? words.splice(0, 2).join(" ") : words.shift()!;
  const cut = isCut && content.endsWith("\n") ? content.slice(0, -1) : content;
  return { name, argument: words.join(" "), content: isEscaped ? decoded(cut) : cut };
}

function takeLast(words: string[], word: string): boolean {
  const has = words.at(-1) === word;
  if (has) {
    words.pop();
  }
  return has;
}

const escapes: Readonly<Record<string, string>> = { r: "\r", n: "\n", t: "\t", "\\": "\\" };

function decoded(text: string): string {
  return text.replace(/\\(?:x([0-9A-Fa-f]{2})|([rnt\\]))/g, (_, hex?: string, letter?: string) =>
    hex === undefined ? escapes[letter!]! : String.fromCharCode(parseInt(hex, 16)),
  );
}

export const bytesOf = (text: string): Uint8Array => Buffer.from(text, "latin1");

function copyFolder(path: string, files: Map<string, Uint8Array>): void {
  for (const entry of readdirSync(path, { recursive: true, withFileTypes: true })) {
    const place = `${(entry as { parentPath?: string }).parentPath ?? entry.path}/${entry.name}`;
    if (entry.isFile() && !/\.(torvel|log)$/.test(entry.name)) {
      files.set(place.slice(path.length + 1), readFileSync(place));
    }
  }
}

function readLimits(options: string, limits: Record<string, number>): void {
  for (const [, name, value] of options.matchAll(/^limit (\w+) (\d+)$/gm)) {
    limits[name!] = Number(value);
  }
}

/** A program in the case's folder, and a parameter file; null for everything else. */
function argumentsOf(
  text: string | undefined,
  program: string,
): { main: string; parameters: string } | null {
  if (text === undefined) {
    return { main: program, parameters: "" };
  }
  const match =
    /^(?:-p\n(?:\{dir\}\/)?(?<parameters>[^\n{]+)\n)?(?:-o\n[^\n]+\n)?(?:\{dir\}\/)?(?<main>[^\n{-][^\n{]*)\n$/.exec(
      text,
    );
  const { main, parameters } = match?.groups ?? {};
  return main === undefined ? null : { main, parameters: parameters ?? "" };
}
