// What can be known of the selected row: its findings, and its texts to copy.

import { addressOf } from "../../app/address.ts";
import { useReport } from "../../app/context.ts";
import { outputText, sourceText } from "../../data/program-texts.ts";
import { programPath } from "../../data/report.ts";
import { at } from "../../data/report.ts";
import { rowParameters } from "../../data/row-address.ts";
import { CopyButton } from "../../parts/copy.tsx";
import { FindingCard } from "./finding-card.tsx";
import type { SheetState } from "./sheet-row.tsx";

export function RowCard({ row, state }: { row: number; state: SheetState }) {
  const { report } = useReport();
  const { sheet, detail } = state.texts;
  const path = programPath(report, state.program);
  const link = () =>
    location.href.replace(/#.*$/, addressOf("program", { path, ...rowParameters(sheet, row) }));
  return (
    <span role="cell" class="card">
      {(state.found.byRow.get(row) ?? []).map((finding) => (
        <FindingCard key={finding} finding={finding} detail={detail} />
      ))}
      <span class="card-actions">
        {at(sheet.line, row) > 0 && (
          <CopyButton what="Copy the Brannic line" text={() => sourceText(state.texts, row)} />
        )}
        {at(sheet.current, row) > 0 && (
          <CopyButton what="Copy the Torvel line" text={() => outputText(state.texts, row)} />
        )}
        <CopyButton what="Copy a link to this line" text={link} />
      </span>
    </span>
  );
}
