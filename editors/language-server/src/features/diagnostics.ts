// The findings of programs at the lines of files, as an editor shows them.

import { type Diagnostic, DiagnosticSeverity, type Range } from "vscode-languageserver";
import { uriOfPath } from "../converter/files.ts";
import type { Finding } from "../converter/messages.ts";
import type { Result } from "../result.ts";
import type { Known } from "../session.ts";
import type { Documents } from "../text/documents.ts";

export const diagnosticSource = "BrannicToTorvel64";

type AdviceUri = (code: string) => string | undefined;

/** By path of a file, also of those that are not open. A finding that several programs have at one place is shown once. */
export function diagnosticsOf(
  programs: readonly Known[],
  documents: Documents,
  adviceUri: AdviceUri,
): Map<string, Diagnostic[]> {
  const byPath = new Map<string, Map<string, Diagnostic>>();
  const add = (path: string, diagnostic: Diagnostic) => {
    const { start } = diagnostic.range;
    const key = [start.line, start.character, diagnostic.code, diagnostic.message].join(" ");
    let ofFile = byPath.get(path);
    if (ofFile === undefined) {
      ofFile = new Map();
      byPath.set(path, ofFile);
    }
    if (!ofFile.has(key)) {
      ofFile.set(key, diagnostic);
    }
  };
  for (const { result, broken } of programs) {
    for (const made of [result, broken]) {
      made?.findings.forEach((finding) =>
        add(made.pathOf(finding.file), diagnosticOf(made, finding, documents, adviceUri)),
      );
    }
    if (result !== undefined) {
      addWhatIsLeftOut(result, add);
    }
  }
  return new Map([...byPath].map(([path, diagnostics]) => [path, [...diagnostics.values()]]));
}

function diagnosticOf(
  program: Result,
  finding: Finding,
  documents: Documents,
  adviceUri: AdviceUri,
): Diagnostic {
  const path = program.pathOf(finding.file);
  const line = Math.max(finding.line - 1, 0);
  const diagnostic: Diagnostic = {
    range: rangeNow(program, path, documents, {
      start: { line, character: finding.begin },
      end: { line, character: finding.end },
    }),
    severity: severityOf(finding),
    source: diagnosticSource,
    code: finding.code,
    message: messageOf(finding),
    data: { todo: finding.todo, severity: finding.severity, program: program.path },
  };
  const advice = adviceUri(finding.code);
  if (advice !== undefined) {
    diagnostic.codeDescription = { href: advice };
  }
  if (finding.includedFrom.length > 0) {
    diagnostic.relatedInformation = finding.includedFrom.map((from) => {
      const file = program.pathOf(from.file);
      const start = { line: from.line - 1, character: 0 };
      const range = rangeNow(program, file, documents, { start, end: start });
      return { location: { uri: uriNow(file, documents), range }, message: "included from here" };
    });
  }
  return diagnostic;
}

/** A range of a file as the program has it, moved along with what was typed since. */
export function rangeNow(program: Result, path: string, documents: Documents, range: Range): Range {
  const version = program.versions.get(path);
  const document = documents.at(path);
  return version === undefined || document === undefined
    ? range
    : document.moves.forwardRange(version, range);
}

export function uriNow(path: string, documents: Documents): string {
  return documents.at(path)?.uri ?? uriOfPath(path);
}

function messageOf(finding: Finding): string {
  const { text, furtherLines } = finding;
  const others = furtherLines.filter((line) => line !== finding.line);
  if (others.length === 0) {
    return text;
  }
  const listed = others.slice(0, 20).join(", ") + (others.length > 20 ? " and others" : "");
  return `${text} (also in lines ${listed})`;
}

function severityOf({ todo, severity }: Finding): DiagnosticSeverity {
  if (todo === "fix-source" || todo === "rewrite") {
    return DiagnosticSeverity.Error;
  }
  return todo === "complete" || severity === "moves" || severity === "stops"
    ? DiagnosticSeverity.Warning
    : DiagnosticSeverity.Information;
}

function addWhatIsLeftOut(program: Result, add: (path: string, diagnostic: Diagnostic) => void) {
  const shown = new Map<number, number>();
  program.findings.forEach(({ file }) => shown.set(file, (shown.get(file) ?? 0) + 1));
  program.answer.findingCounts.forEach((count, file) => {
    const left = count - (shown.get(file) ?? 0);
    if (left > 0) {
      const start = { line: 0, character: 0 };
      add(program.pathOf(file), {
        range: { start, end: start },
        severity: DiagnosticSeverity.Information,
        source: diagnosticSource,
        message: `${left} more findings of this file are not shown here; torvel-migrate lists all.`,
      });
    }
  });
}
