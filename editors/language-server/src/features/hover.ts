// What a line becomes, and what the names in it stand for.

import { type Hover, MarkupKind, type Position } from "vscode-languageserver";
import type { TablesAnswer } from "../converter/messages.ts";
import { formsOf } from "../language/words.ts";
import type { Name, Program } from "../program.ts";
import type { Session } from "../session.ts";
import type { OpenDocument } from "../text/documents.ts";
import { namesAt, type Place, placesAt } from "./place.ts";

const mostLines = 20;
const mostForms = 4;
const mostFindings = 3;

export function hoverAt(
  session: Session,
  tables: TablesAnswer | undefined,
  document: OpenDocument,
  position: Position,
): Hover | null {
  const place = placesAt(session, document, position)[0];
  if (place === undefined) {
    return null;
  }
  const names = namesAt(place);
  const parts = [
    ...names.map((name) => aboutName(place.program, name, tables)),
    aboutLine(place),
    aboutForm(place, names),
    ...aboutFindings(place, tables),
  ].filter((part) => part !== "");
  return parts.length === 0
    ? null
    : { contents: { kind: MarkupKind.Markdown, value: parts.join("\n\n---\n\n") } };
}

const code = (language: string, text: string) => `\`\`\`${language}\n${text}\n\`\`\``;
const inline = (text: string) =>
  text.includes("`") ? `\`\` ${text} \`\`` : `\`${text.replaceAll("\n", " ")}\``;

function whereIs(program: Program, name: Name): string {
  return `${program.shownPath(name.file)}:${name.range.start.line + 1}`;
}

function aboutName(program: Program, name: Name, tables: TablesAnswer | undefined): string {
  switch (name.kind) {
    case "define":
    case "lostDefine":
    case "macro":
    case "name":
      return aboutDefine(program, name, tables);
    case "item":
      return `${inline(name.name)} is ${inline(name.value)} in Torvel.`;
    case "include":
      return `Includes ${inline(program.shownPath(name.target))}.`;
    case "label":
      return aboutDefinitions(program, name, "Label");
    case "function":
      return aboutDefinitions(program, name, "Subroutine");
    case "variable":
      return aboutVariable(program, name);
    default:
      return "";
  }
}

function aboutDefine(program: Program, name: Name, tables: TablesAnswer | undefined): string {
  const definitions = program.definitionsOf(name);
  if (definitions.length > 0) {
    return definitions
      .slice(0, mostForms)
      .map((definition) => {
        const { kind, value } = definition;
        const head = kind === "macro" ? value : `#define ${definition.name} ${value}`.trimEnd();
        const fate =
          kind === "lostDefine" ? " Torvel does not take it; its uses are converted." : "";
        return `${code("brannic", head)}\n${whereIs(program, definition)}.${fate}`;
      })
      .join("\n\n");
  }
  const predefined = tables?.predefined[name.name];
  if (predefined === undefined) {
    return "";
  }
  const torvel = predefined.torvel === "" ? "" : ` In Torvel it is ${inline(predefined.torvel)}.`;
  const composed = predefined.isComposed
    ? " The number is composed, not known: a row of the project's `[reference]` settles it."
    : "";
  return `${code("brannic", `${name.name} = ${predefined.value}`)}\nPredefined by the controller.${torvel}${composed}`;
}

function aboutDefinitions(program: Program, name: Name, what: string): string {
  const definitions = program.definitionsOf(name);
  return definitions.length === 0
    ? `${what} ${inline(name.name)}, which the program does not have.`
    : `${what} ${inline(name.name)}: ${definitions.map((one) => whereIs(program, one)).join(", ")}.`;
}

function aboutVariable(program: Program, name: Name): string {
  const declared = program.placesOf(name).filter(({ isDefinition }) => isDefinition);
  return declared.length === 0
    ? `Variable ${inline(name.name)}, not declared in the program.`
    : `Variable ${inline(name.name)}: ${declared.map((one) => whereIs(program, one)).join(", ")}.`;
}

/** What the line became; where its file is included again, what it became first. */
function aboutLine({ program, file, position }: Place): string {
  const outputs = program.outputOf(file, position.line);
  const lines = outputs
    .slice(0, 1)
    .flatMap((output) => program.textOf(output))
    .map((line) => line.trim())
    .filter((line) => line !== "");
  if (lines.length === 0) {
    return "";
  }
  const shown = lines.slice(0, mostLines).join("\n");
  const more = lines.length > mostLines ? `\n${lines.length - mostLines} more lines.` : "";
  const again = outputs.length > 1 ? `\nThe file is included ${outputs.length} times.` : "";
  return `Becomes\n${code("torvel", shown)}${more}${again}`;
}

function aboutForm(place: Place, names: readonly Name[]): string {
  const statement = names.find(({ kind }) => kind === "statement");
  const line = place.document.line(place.line);
  const forms = statement === undefined ? [] : formsOf(statement.name, line);
  if (forms.length === 0) {
    return "";
  }
  const rows = forms.slice(0, mostForms).map(({ brannic, torvel, kind }) => {
    const becomes = torvel.length === 0 ? "" : ` → ${torvel.map(inline).join(", ")}`;
    return `- ${inline(brannic)}${becomes} (${kind})`;
  });
  const more = forms.length > mostForms ? `\n- ${forms.length - mostForms} more forms` : "";
  return `Forms of the statement:\n\n${rows.join("\n")}${more}`;
}

function aboutFindings(place: Place, tables: TablesAnswer | undefined): string[] {
  const { program, file, position } = place;
  const codes = new Set(
    program.findings
      .filter(
        (finding) =>
          finding.file === file &&
          finding.line - 1 === position.line &&
          finding.begin <= position.character &&
          position.character <= finding.end,
      )
      .map((finding) => finding.code),
  );
  return [...codes]
    .slice(0, mostFindings)
    .map((of) => explanationOf(of, tables) ?? "")
    .filter((text) => text !== "");
}

/** The advice on a code, in Markdown. */
export function explanationOf(of: string, tables: TablesAnswer | undefined): string | undefined {
  const entry = tables?.codes[of.toLowerCase()];
  return entry === undefined ? undefined : `**${entry.title}** (${of})\n\n${entry.body}`;
}
