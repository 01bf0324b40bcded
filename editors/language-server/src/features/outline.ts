// What stands in a document, and what of it can be folded.

import {
  type DocumentSymbol,
  type FoldingRange,
  FoldingRangeKind,
  SymbolKind,
} from "vscode-languageserver";
import type { Name, NameKind, Program } from "../program.ts";
import type { Session } from "../session.ts";
import type { OpenDocument } from "../text/documents.ts";
import { rangeOf } from "./place.ts";

/** Editors freeze with more of either. */
export const mostSymbols = 3000;
export const mostFolds = 5000;

const symbolKinds: Partial<Record<NameKind, SymbolKind>> = {
  define: SymbolKind.Constant,
  lostDefine: SymbolKind.Constant,
  macro: SymbolKind.Method,
  label: SymbolKind.Key,
  function: SymbolKind.Function,
  variable: SymbolKind.Variable,
};

/** What there is, as far as an editor takes it, and how much more there would be. */
export interface Limited<Item> {
  readonly items: Item[];
  readonly left: number;
}

function limited<Item>(items: Item[], most: number): Limited<Item> {
  return { items: items.slice(0, most), left: Math.max(items.length - most, 0) };
}

export function symbolsOf(session: Session, document: OpenDocument): Limited<DocumentSymbol> {
  const program = session.programsWith(document.path)[0];
  const file = program?.fileAt(document.path);
  if (program === undefined || file === undefined) {
    return { items: [], left: 0 };
  }
  const symbols: DocumentSymbol[] = [];
  let outer: DocumentSymbol | undefined;
  let count = 0;
  for (const name of program.namesOf(file)) {
    if (name.kind === "functionEnd" && outer !== undefined) {
      outer.range = { start: outer.range.start, end: rangeOf(session, program, name).end };
      outer = undefined;
      continue;
    }
    const kind = name.isDefinition ? symbolKinds[name.kind] : undefined;
    if (kind === undefined || name.range.end.character === 0) {
      continue;
    }
    if (++count > mostSymbols) {
      continue;
    }
    const range = rangeOf(session, program, name);
    const symbol: DocumentSymbol = { name: name.name, kind, range, selectionRange: range };
    if (name.value !== "") {
      symbol.detail = name.value.replaceAll("\n", " ").slice(0, 80);
    }
    if (name.kind === "function") {
      symbols.push(symbol);
      symbol.children = [];
      outer = symbol;
    } else {
      (outer?.children ?? symbols).push(symbol);
    }
  }
  return { items: symbols, left: Math.max(count - mostSymbols, 0) };
}

/** Blocks, conditionals, subroutines, and comments of several lines. */
export function foldsOf(session: Session, document: OpenDocument): Limited<FoldingRange> {
  const program = session.programsWith(document.path)[0];
  const file = program?.fileAt(document.path);
  if (program === undefined || file === undefined) {
    return { items: [], left: 0 };
  }
  const folds = [
    ...foldsBetween(program, file, "opens", "continues", "closes"),
    ...foldsBetween(
      program,
      file,
      "opensConditional",
      "continuesConditional",
      "closesConditional",
      FoldingRangeKind.Region,
    ),
  ];
  const version = program.versions.get(document.path) ?? document.version;
  const now = (line: number): number =>
    document.moves.forward(version, { line, character: 0 }).line;
  const moved = folds
    .map((fold) => ({ ...fold, startLine: now(fold.startLine), endLine: now(fold.endLine) }))
    .filter(({ startLine, endLine }) => endLine > startLine)
    .sort((a, b) => a.startLine - b.startLine);
  return limited(moved, mostFolds);
}

function foldsBetween(
  program: Program,
  file: number,
  opens: NameKind,
  continues: NameKind,
  closes: NameKind,
  kind?: FoldingRangeKind,
): FoldingRange[] {
  const folds: FoldingRange[] = [];
  const open: number[] = [];
  const close = ({ range }: Name) => {
    const startLine = open.pop();
    const endLine = range.start.line - 1;
    if (startLine !== undefined && endLine > startLine) {
      folds.push({ startLine, endLine, ...(kind === undefined ? {} : { kind }) });
    }
  };
  for (const name of program.namesOf(file)) {
    if (name.kind === closes || name.kind === continues) {
      close(name);
    }
    if (name.kind === opens || name.kind === continues) {
      open.push(name.range.start.line);
    }
  }
  return folds;
}
