// What may stand where somebody types.

import {
  type CompletionItem,
  CompletionItemKind,
  type CompletionList,
  type Position,
} from "vscode-languageserver";
import type { TablesAnswer } from "../converter/messages.ts";
import { tables as words, wordsBehind } from "../language/words.ts";
import type { Name, NameKind, Program } from "../program.ts";
import type { Session } from "../session.ts";
import type { OpenDocument } from "../text/documents.ts";

/** An editor gets no more at once; it asks again when more was typed. */
export const mostItems = 400;

interface Line {
  /** The word that is typed, up to the cursor. */
  readonly typed: string;
  /** What stands in front of it. */
  readonly before: string;
  /** The word that begins the statement; empty: it is the one that is typed. */
  readonly leading: string;
}

export function completionAt(
  session: Session,
  tables: TablesAnswer | undefined,
  document: OpenDocument,
  position: Position,
): CompletionList {
  const text = document.line(position.line).slice(0, position.character);
  if (isInComment(text)) {
    return { isIncomplete: false, items: [] };
  }
  const line = lineOf(text);
  const program = session.programsWith(document.path)[0];
  const items = candidates(line, program, tables).filter(({ label }) =>
    label.toLowerCase().startsWith(line.typed.toLowerCase()),
  );
  const start = { line: position.line, character: position.character - line.typed.length };
  const range = { start, end: position };
  const shown = items.slice(0, mostItems);
  return {
    isIncomplete: items.length > shown.length,
    items: shown.map((item) => ({ ...item, textEdit: { range, newText: item.label } })),
  };
}

function isInComment(text: string): boolean {
  const code = text.replace(/"[^"]*"/g, "");
  return /;|\/\/|"/.test(code.replace(/^\s*#include\s*"[^"]*$/, ""));
}

function lineOf(text: string): Line {
  const typed = /[$#]?\w*$/.exec(text)?.[0] ?? "";
  const before = text.slice(0, text.length - typed.length);
  // Block deletes, labels and N-codes stand in front of a statement.
  const statement = before.replace(/^\s*(\/\d*\s*)?((\w+\s*:|:\s*\w+|[Nn]\d+)\s*)?/, "");
  return { typed, before, leading: /^[$#]?\w+/.exec(statement)?.[0] ?? "" };
}

function candidates(
  line: Line,
  program: Program | undefined,
  tables: TablesAnswer | undefined,
): CompletionItem[] {
  const { typed, leading } = line;
  if (typed.startsWith("#") && leading === "") {
    return keywords(words.directives);
  }
  if (/^(goto)$/i.test(leading)) {
    return named(program, "label", CompletionItemKind.Reference);
  }
  if (/^(call)$/i.test(leading)) {
    return named(program, "function", CompletionItemKind.Function);
  }
  if (typed.startsWith("$")) {
    return variables(program);
  }
  if (leading === "") {
    return [...keywords([...words.control, ...words.statements]), ...macros(program)];
  }
  return [
    ...keywords(wordsBehind(leading)).map((item) => ({ ...item, sortText: `0${item.label}` })),
    ...axes(program),
    ...variables(program),
    ...defines(program),
    ...keywords(words.functions, CompletionItemKind.Function),
    ...keywords(words.operators, CompletionItemKind.Operator),
    ...predefined(tables),
  ];
}

function keywords(
  list: readonly string[],
  kind: CompletionItemKind = CompletionItemKind.Keyword,
): CompletionItem[] {
  return list.map((label) => ({ label, kind }));
}

function definitions(program: Program | undefined, wanted: readonly NameKind[]): Name[] {
  const byName = new Map<string, Name>();
  for (const name of program?.definitions() ?? []) {
    if (wanted.includes(name.kind)) {
      byName.set(name.name, name);
    }
  }
  return [...byName.values()];
}

function named(
  program: Program | undefined,
  of: NameKind,
  kind: CompletionItemKind,
): CompletionItem[] {
  return definitions(program, [of]).map(({ name }) => ({ label: name, kind }));
}

function defines(program: Program | undefined): CompletionItem[] {
  return definitions(program, ["define", "lostDefine"]).map(({ name, value }) => ({
    label: name,
    kind: CompletionItemKind.Constant,
    detail: value.replaceAll("\n", " ").slice(0, 80),
  }));
}

function macros(program: Program | undefined): CompletionItem[] {
  return definitions(program, ["macro"]).map(({ name, value }) => ({
    label: name,
    kind: CompletionItemKind.Function,
    detail: value,
  }));
}

function axes(program: Program | undefined): CompletionItem[] {
  return (program?.answer.axes ?? [])
    .filter((axis) => axis !== "")
    .map((label) => ({ label, kind: CompletionItemKind.Unit, detail: "axis" }));
}

function variables(program: Program | undefined): CompletionItem[] {
  const own = [...(program?.variableNames() ?? [])].map((label) => ({
    label,
    kind: CompletionItemKind.Variable,
  }));
  const builtIn = words.variables.map((name) => ({
    label: `$${name}`,
    kind: CompletionItemKind.Variable,
    detail: "of the controller",
  }));
  return [...own, ...builtIn];
}

function predefined(tables: TablesAnswer | undefined): CompletionItem[] {
  return Object.entries(tables?.predefined ?? {}).map(([label, { value }]) => ({
    label,
    kind: CompletionItemKind.Constant,
    detail: `${value}, predefined`,
  }));
}
