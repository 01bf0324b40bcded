// A row of a program: a line of the source, and what it became.

import type { ProgramTexts, FindingRows } from "../../data/program-texts.ts";
import { outputText, sourceText } from "../../data/program-texts.ts";
import { todos, type Todo } from "../../data/format.ts";
import { useReport } from "../../app/context.ts";
import { addressOf } from "../../app/address.ts";
import { at, programPath, type Report } from "../../data/report.ts";
import { rowParameters } from "../../data/row-address.ts";
import { changes } from "../../data/sheet.ts";
import { brannicLanguage, torvelLanguage } from "../../language/words.ts";
import { Code, type Columns } from "../../parts/code.tsx";
import { TodoSign } from "../../parts/work-signs.tsx";
import { InclusionHead } from "./inclusion-head.tsx";
import { RowCard } from "./row-card.tsx";

export interface SheetState {
  readonly program: number;
  readonly texts: ProgramTexts;
  readonly found: FindingRows;
  readonly heads: ReadonlyMap<number, number>;
  readonly sourceComments: readonly Uint8Array[];
  readonly outputComments: Uint8Array;
  readonly selected: number;
  readonly open: ReadonlySet<number>;
  readonly select: (row: number) => void;
  /** The next row behind the selected one that has a text, -1 if none has it. */
  readonly findText: (text: string) => number;
}

export function SheetRow({ row, state }: { row: number; state: SheetState }) {
  const { sheet } = state.texts;
  const inclusion = state.heads.get(row);
  const isSelected = row === state.selected;
  return (
    <div
      class={rowClass(row, state)}
      role="row"
      {...(isSelected ? { "aria-current": "true" as const } : {})}
    >
      <SourceCells row={row} state={state} />
      <OutputCells row={row} state={state} />
      {inclusion !== undefined && (
        <InclusionHead inclusion={inclusion} state={state} sheet={sheet} />
      )}
      {isSelected && <RowCard row={row} state={state} />}
    </div>
  );
}

function rowClass(row: number, { texts: { sheet }, selected, found }: SheetState): string {
  const names = [
    "row",
    `depth-${Math.min(sheet.inclusions[at(sheet.inclusion, row)]?.depth ?? 0, 3)}`,
  ];
  if (at(sheet.isConverted, row) === 0) {
    names.push("unconverted");
  }
  if (at(sheet.change, row) !== 0) {
    names.push(changes[at(sheet.change, row)]!);
  }
  if (row === selected) {
    names.push("selected");
  }
  if (found.byRow.has(row)) {
    names.push("found");
  }
  return names.join(" ");
}

/** Wherever a row is clicked it is selected; its number is a link to it. */
function LineNumber({ row, number, state }: { row: number; number: number; state: SheetState }) {
  const { report } = useReport();
  if (number === 0) {
    return null;
  }
  const path = programPath(report, state.program);
  const here = { path, ...rowParameters(state.texts.sheet, row) };
  const follow = (event: MouseEvent) => {
    if (!event.ctrlKey && !event.metaKey && !event.shiftKey) {
      event.preventDefault();
      state.select(row);
    }
  };
  return (
    <a class="line-number" href={addressOf("program", here)} tabIndex={-1} onClick={follow}>
      {number}
    </a>
  );
}

function SourceCells({ row, state }: { row: number; state: SheetState }) {
  const { report } = useReport();
  const { sheet } = state.texts;
  const line = at(sheet.line, row);
  const findings = state.found.byRow.get(row) ?? [];
  return (
    <span role="cell" class="source">
      <LineNumber row={row} number={line} state={state} />
      <Margin row={row} findings={findings} state={state} />
      {line > 0 && (
        <Code
          text={sourceText(state.texts, row)}
          language={brannicLanguage}
          isInComment={state.sourceComments[at(sheet.file, row)]?.[line - 1] === 1}
          columns={columnsOf(report, findings)}
        />
      )}
    </span>
  );
}

/** The place of the first finding that has one. */
function columnsOf({ findings }: Report, here: readonly number[]): Columns {
  const placed = here.find((finding) => at(findings.column, finding) > 0);
  return placed === undefined
    ? [0, 0]
    : [at(findings.column, placed), at(findings.lastColumn, placed)];
}

function Margin({
  row,
  findings,
  state,
}: {
  row: number;
  findings: readonly number[];
  state: SheetState;
}) {
  const { report } = useReport();
  if (findings.length === 0) {
    return null;
  }
  const kinds: Todo[] = findings.map((finding) => todos[at(report.findings.todo, finding)]!);
  const isOpen = findings.some((finding) => at(report.findings.open, finding) === 1);
  return (
    <button
      type="button"
      class={isOpen ? "margin" : "margin finished"}
      tabIndex={-1}
      aria-label={`Findings of this line: ${findings.length}`}
      onClick={() => state.select(row)}
    >
      {isOpen ? <TodoSign todo={worst(kinds)} /> : <span class="sign sign-finished">✓</span>}
      {findings.length > 1 && <small>{findings.length}</small>}
    </button>
  );
}

const byWeight: readonly Todo[] = ["fix-source", "rewrite", "complete", "look"];

function worst(kinds: readonly Todo[]): Todo {
  return byWeight.find((todo) => kinds.includes(todo)) as Todo;
}

function OutputCells({ row, state }: { row: number; state: SheetState }) {
  const { sheet } = state.texts;
  const current = at(sheet.current, row);
  const change = changes[at(sheet.change, row)];
  const isThere = current > 0 || change === "removed";
  return (
    <span role="cell" class="output-line">
      <LineNumber row={row} number={current} state={state} />
      <ChangeSign change={change} />
      {isThere && (
        <Code
          text={outputText(state.texts, row)}
          language={torvelLanguage}
          isInComment={current > 0 && state.outputComments[current - 1] === 1}
        />
      )}
    </span>
  );
}

function ChangeSign({ change }: { change: (typeof changes)[number] | undefined }) {
  if (change === "added") {
    return (
      <span class="change" role="img" aria-label="added by hand" title="added by hand">
        +
      </span>
    );
  }
  return change === "removed" ? (
    <span class="change" role="img" aria-label="taken out by hand" title="taken out by hand">
      −
    </span>
  ) : null;
}
