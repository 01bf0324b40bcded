// The grammars as VS Code runs them.

import { readFileSync } from "node:fs";
import oniguruma from "vscode-oniguruma";
import textmate from "vscode-textmate";
import { extensionFiles } from "../../grammar/generate.mjs";

const wasm = readFileSync("editors/vscode/node_modules/vscode-oniguruma/release/onig.wasm");
await oniguruma.loadWASM(
  wasm.buffer.slice(wasm.byteOffset, wasm.byteOffset + wasm.byteLength) as ArrayBuffer,
);

const files: ReadonlyMap<string, string> = extensionFiles();
const registry = new textmate.Registry({
  onigLib: Promise.resolve({
    createOnigScanner: (patterns) => new oniguruma.OnigScanner(patterns),
    createOnigString: (text) => new oniguruma.OnigString(text),
  }),
  loadGrammar: async (scope) => {
    const path = `syntaxes/${scope.replace("source.", "")}.tmLanguage.json`;
    return textmate.parseRawGrammar(files.get(path) ?? "", path);
  },
});

export async function grammarOf(language: "brannic" | "torvel"): Promise<textmate.IGrammar> {
  const grammar = await registry.loadGrammar(`source.${language}`);
  if (grammar === null) {
    throw new Error(`There is no grammar of ${language}.`);
  }
  return grammar;
}

export interface Token {
  readonly text: string;
  /** The scope below that of the language, which the token has itself; empty if it has none. */
  readonly scope: string;
}

/** The tokens of each line, and how many rules are open behind the last one. */
export function tokensOf(
  grammar: textmate.IGrammar,
  lines: readonly string[],
): { lines: Token[][]; open: number } {
  let state = textmate.INITIAL;
  const tokens = lines.map((line) => {
    const result = grammar.tokenizeLine(line, state);
    state = result.ruleStack;
    return result.tokens.map(({ startIndex, endIndex, scopes }) => ({
      text: line.slice(startIndex, endIndex),
      scope: scopes[1] ?? "",
    }));
  });
  return { lines: tokens, open: state.depth - 1 };
}
