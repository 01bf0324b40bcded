// What an `#include` brought in, folded or not.

import { useReport } from "../../app/context.ts";
import { at } from "../../data/report.ts";
import type { Sheet } from "../../data/sheet.ts";
import { counted } from "../../data/wording.ts";
import { Path } from "../../parts/text.tsx";
import type { SheetState } from "./sheet-row.tsx";

export function InclusionHead({
  inclusion,
  state,
  sheet,
}: {
  inclusion: number;
  state: SheetState;
  sheet: Sheet;
}) {
  const { change } = useReport();
  const { file, first, end } = sheet.inclusions[inclusion]!;
  const isOpen = state.open.has(inclusion);
  const findings = state.found.rows.filter((row) => row >= first && row < end).length;
  const toggle = () => {
    const open = new Set(state.open);
    if (!open.delete(inclusion)) {
      open.add(inclusion);
    }
    open.delete(0);
    const isSelectedInside = state.selected >= first && state.selected < end;
    const rest = isOpen && isSelectedInside ? { line: "", out: "", now: "", finding: "" } : {};
    change({ ...rest, open: [...open].sort((a, b) => a - b).join() });
  };
  return (
    <span role="cell" class="inclusion">
      <button type="button" aria-expanded={isOpen} onClick={toggle}>
        <span class="twist" aria-hidden="true" />
        <Path path={state.texts.detail.files[file]?.path ?? ""} />{" "}
        <span class="quiet">
          {counted(sourceLines(sheet, first, end), "line")}
          {findings > 0 && `, ${counted(findings, "line with findings", "lines with findings")}`}
        </span>
      </button>
    </span>
  );
}

function sourceLines(sheet: Sheet, first: number, end: number): number {
  let count = 0;
  for (let row = first; row < end; ++row) {
    count += at(sheet.line, row) > 0 ? 1 : 0;
  }
  return count;
}
