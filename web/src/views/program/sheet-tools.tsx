// What can be done with a program's sheet: go to a finding or a line, fold, and choose which output is shown.

import { useState } from "preact/hooks";
import { usePage, useReport } from "../../app/context.ts";
import { rowOfParameters } from "../../data/row-address.ts";
import { counted } from "../../data/wording.ts";
import { mostWhole } from "../../parts/blocks.tsx";
import { nextFinding, previousFinding } from "./row-keys.ts";
import type { SheetState } from "./sheet-row.tsx";

export function SheetTools({ state }: { state: SheetState }) {
  const { found, selected, select } = state;
  const index = found.rows.indexOf(selected);
  const isNone = found.rows.length === 0;
  return (
    <div class="tools" role="toolbar" aria-label="Program">
      <button
        type="button"
        disabled={isNone}
        aria-keyshortcuts="p"
        onClick={() => select(previousFinding(state))}
      >
        Previous <kbd>p</kbd>
      </button>
      <button
        type="button"
        disabled={isNone}
        aria-keyshortcuts="n"
        onClick={() => select(nextFinding(state))}
      >
        Next <kbd>n</kbd>
      </button>
      <span role="status">
        {index === -1
          ? counted(found.rows.length, "line with findings", "lines with findings")
          : `${index + 1} of ${counted(found.rows.length, "line with findings", "lines with findings")}`}
      </span>
      <FindTools state={state} />
      <Folding state={state} />
      <OutputChoice state={state} />
    </div>
  );
}

/** Goes to a line by its number, and to the next row with a text. */
function FindTools({ state }: { state: SheetState }) {
  const { sheet } = state.texts;
  const [text, setText] = useState("");
  const [said, setSaid] = useState("");
  const find = (event: Event) => {
    event.preventDefault();
    const line = /^\s*\d+\s*$/.test(text) ? rowOfParameters(sheet, { line: text.trim() }) : -1;
    const row = line === -1 ? state.findText(text) : line;
    setSaid(row === -1 ? "not found" : "");
    if (row !== -1) {
      state.select(row);
    }
  };
  return (
    <form class="find" onSubmit={find}>
      <label>
        <span class="unseen">A line's number, or a text to be found</span>
        <input
          type="search"
          value={text}
          placeholder="line or text"
          onInput={(event) => setText(event.currentTarget.value)}
        />
      </label>
      <button type="submit">Go</button>
      <span role="status">
        {said}
        {said === "" && sheet.rowCount > mostWhole && (
          <span class="quiet">Long program: the browser's own search sees only what is near.</span>
        )}
      </span>
    </form>
  );
}

function Folding({ state }: { state: SheetState }) {
  const { change } = useReport();
  const { inclusions } = state.texts.sheet;
  if (inclusions.length < 2) {
    return null;
  }
  const isWhole = inclusions.every((_, inclusion) => state.open.has(inclusion));
  return (
    <button type="button" onClick={() => change({ open: isWhole ? "" : "all" })}>
      {isWhole ? "Fold includes" : "Unfold includes"}
    </button>
  );
}

function OutputChoice({ state }: { state: SheetState }) {
  const { address, change } = usePage();
  if (state.texts.detail.current === null) {
    return null;
  }
  const isGenerated = address.parameters["output"] === "generated";
  return (
    <button type="button" onClick={() => change({ output: isGenerated ? "" : "generated" })}>
      {isGenerated ? "Show the output as it is now" : "Show the output as generated"}
    </button>
  );
}
