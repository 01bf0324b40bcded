// Source and Torvel side by side.

import { useEffect, useMemo, useRef } from "preact/hooks";
import { usePage } from "../../app/context.ts";
import { rowWithText } from "../../data/find-text.ts";
import { inclusionHeads, openInclusions, visibleRows } from "../../data/folding.ts";
import type { ProgramDetail } from "../../data/format.ts";
import { findingRows, programTexts, type FindingRows } from "../../data/program-texts.ts";
import { fingerprintOf } from "../../data/report.ts";
import { rowOfParameters, rowParameters } from "../../data/row-address.ts";
import { commentStates } from "../../language/tokens.ts";
import { brannicLanguage, torvelLanguage } from "../../language/words.ts";
import { Blocks } from "../../parts/blocks.tsx";
import { FindingCard } from "./finding-card.tsx";
import { useRowKeys } from "./row-keys.ts";
import { SheetRow, type SheetState } from "./sheet-row.tsx";
import { SheetTools } from "./sheet-tools.tsx";

export function ProgramSheet({ program, detail }: { program: number; detail: ProgramDetail }) {
  const { report, address, change } = usePage();
  const { parameters } = address;
  const isGeneratedAsked = parameters["output"] === "generated";
  const texts = useMemo(() => programTexts(detail, isGeneratedAsked), [detail, isGeneratedAsked]);
  const found = useMemo(() => findingRows(report, program, texts), [report, program, texts]);
  const { sheet } = texts;
  const fixed = useMemo(
    () => ({
      program,
      texts,
      found,
      heads: inclusionHeads(sheet),
      sourceComments: texts.sources.map((lines) => commentStates(lines, brannicLanguage)),
      outputComments: commentStates(texts.current, torvelLanguage),
    }),
    [program, texts, found],
  );
  const asked = rowOfParameters(sheet, parameters);
  const selected =
    asked === -1
      ? rowOfFinding(found, (i) => fingerprintOf(report, i), parameters["finding"])
      : asked;
  const openKey = parameters["open"] ?? "";
  // Rows around the selected one stay as they are while it moves within them.
  const openList = [...openInclusions(sheet, openKey, selected)].sort((a, b) => a - b).join();
  const open = useMemo(() => new Set(openList.split(",").map(Number)), [openList]);
  const rows = useMemo(() => visibleRows(sheet, open), [sheet, open]);
  const select = (row: number) => change(rowParameters(sheet, row));
  const findText = (text: string) => rowWithText(texts, text, selected);
  const state: SheetState = { ...fixed, selected, open, select, findText };
  const target = useMemo(() => rows.indexOf(selected), [rows, selected]);
  useRowKeys({ found, rows, selected, select });
  const top = useRef<HTMLDivElement>(null);
  useStickyHeight(top);
  if (detail.files.length === 0) {
    return (
      <>
        {found.withoutRow.map((finding) => (
          <FindingCard key={finding} finding={finding} detail={detail} />
        ))}
        <p>The report has no text of this program: its conversion was not begun.</p>
      </>
    );
  }
  return (
    <>
      <div class="sheet-top" ref={top}>
        <SheetTools state={state} />
        <div class="sheet-head" aria-hidden="true">
          <span>Brannic</span>
          <span>{sheetTitle(detail, isGeneratedAsked)}</span>
        </div>
      </div>
      {found.withoutRow.map((finding) => (
        <FindingCard key={finding} finding={finding} detail={detail} />
      ))}
      <div class="sheet" role="table" aria-label="Source and output">
        <Blocks
          count={rows.length}
          rowHeight={19}
          role="rowgroup"
          target={target}
          dependencies={[rows, fixed]}
          row={(index) => <SheetRow key={rows[index]} row={rows[index]!} state={state} />}
        />
      </div>
    </>
  );
}

function sheetTitle({ current }: ProgramDetail, isGeneratedAsked: boolean): string {
  if (current === null) {
    return "Torvel";
  }
  return isGeneratedAsked ? "Torvel, as generated" : "Torvel, as it is now";
}

function rowOfFinding(
  { rows, byRow }: FindingRows,
  fingerprint: (finding: number) => string,
  asked: string | undefined,
): number {
  return asked === undefined
    ? -1
    : (rows.find((row) => byRow.get(row)?.some((i) => fingerprint(i) === asked)) ?? -1);
}

/** Rows that are gone to must not stand below what sticks to the top. */
function useStickyHeight(top: { current: HTMLElement | null }) {
  useEffect(() => {
    const height = top.current?.offsetHeight ?? 0;
    document.documentElement.style.scrollPaddingTop = `${height + 8}px`;
    return () => {
      document.documentElement.style.scrollPaddingTop = "";
    };
  });
}
