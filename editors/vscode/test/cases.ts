// Texts of the golden cases: programs and files that they include, and what these become.

import { readdirSync, readFileSync } from "node:fs";

export interface CaseText {
  /** "comments/block: main.pgm". */
  readonly name: string;
  readonly language: "brannic" | "torvel";
  readonly text: string;
  /** The case ends with a message and no result: a comment may be open at its end. */
  readonly isRefused: boolean;
}

interface Part {
  readonly kind: string;
  readonly path: string;
  readonly content: string;
}

const escapes: Readonly<Record<string, string>> = { r: "\r", n: "\n", t: "\t", "\\": "\\" };

function unescaped(text: string): string {
  return text.replace(/\\(?:x([0-9A-Fa-f]{2})|(.))/g, (_, hex?: string, letter = "") =>
    hex === undefined ? (escapes[letter] ?? letter) : String.fromCharCode(parseInt(hex, 16)),
  );
}

/** The parts of a case as tests/golden/README.md tells them. */
export function partsOf(text: string): Part[] {
  const [, ...parts] = `\n${text}`.split(/\n--- /);
  return parts.map((part) => {
    const [head = "", ...lines] = part.split("\n");
    const words = head.split(" ");
    const kind = words[0] === "expect" ? words.splice(0, 2).join(" ") : (words.shift() ?? "");
    const isLast = parts.at(-1) === part;
    const content = lines.join("\n") + (isLast || words.includes("no-newline") ? "" : "\n");
    return {
      kind,
      path: words[0] ?? "",
      content: words.includes("escaped") ? unescaped(content) : content,
    };
  });
}

export function goldenCases(): { name: string; parts: Part[] }[] {
  const folder = "tests/golden";
  return readdirSync(folder, { withFileTypes: true })
    .filter((entry) => entry.isDirectory())
    .flatMap(({ name }) =>
      readdirSync(`${folder}/${name}`)
        .filter((file) => file.endsWith(".case"))
        .map((file) => ({
          name: `${name}/${file.replace(/\.case$/, "")}`,
          parts: partsOf(readFileSync(`${folder}/${name}/${file}`, "latin1")),
        })),
    );
}

const isProgram = ({ kind, path }: Part) =>
  kind === "program" || (kind === "file" && !/\.(?:xml|torvel|log)$/i.test(path));

/** Programs of a folder and of those in it. */
function programsBelow(folder: string): CaseText[] {
  return readdirSync(folder, { withFileTypes: true }).flatMap((entry) => {
    const name = `${folder}/${entry.name}`;
    if (entry.isDirectory()) {
      return programsBelow(name);
    }
    return /\.(?:pgm|prg)$/i.test(name)
      ? [{ name, language: "brannic", text: readFileSync(name, "latin1"), isRefused: false }]
      : [];
  });
}

/** All of the golden cases, and the examples. */
export function caseTexts(): CaseText[] {
  const ofCases = goldenCases().flatMap(({ name, parts }): CaseText[] => {
    const isRefused = parts.some(({ kind, path }) => kind === "expect status" && path !== "0");
    return parts.flatMap((part): CaseText[] => {
      const language = isProgram(part)
        ? "brannic"
        : part.kind === "expect output"
          ? "torvel"
          : undefined;
      return language === undefined
        ? []
        : [{ name: `${name}: ${part.kind} ${part.path}`, language, text: part.content, isRefused }];
    });
  });
  return [...ofCases, ...programsBelow("examples")];
}

/** Lines as the converter takes them: CR LF, CR and LF end one. */
export const linesOf = (text: string): string[] => text.split(/\r\n|\r|\n/);
