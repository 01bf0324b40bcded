// A place to tick off.

import { useReport } from "../../app/context.ts";
import { findingAddress } from "../../app/finding-address.ts";
import type { Place } from "../../data/groups.ts";
import { at, textAt } from "../../data/report.ts";
import { counted } from "../../data/wording.ts";
import { Path, Text } from "../../parts/text.tsx";
import { PlaceLine } from "../worklist/place-row.tsx";
import type { TickState } from "./use-ticks.ts";

export function CheckRow({
  place,
  tickKey,
  ticks,
}: {
  place: Place;
  tickKey: string;
  ticks: TickState;
}) {
  const { report } = useReport();
  const { findings, summary } = report;
  const { first } = place;
  const tick = ticks.ticks.get(tickKey);
  const file = textAt(summary, at(findings.file, first));
  const line = at(findings.line, first);
  return (
    <div class={tick === undefined ? "check-row" : "check-row ticked"}>
      <label class="tick">
        <input
          type="checkbox"
          checked={tick !== undefined}
          aria-label={`Ticked off: ${file}, line ${line}`}
          onChange={(event) => {
            ticks.toggle(tickKey);
            event.currentTarget.checked = ticks.ticks.has(tickKey);
          }}
        />
      </label>
      <span class="tick-by">
        {tick !== undefined && (
          <>
            <Text text={tick.by} /> {tick.on}
          </>
        )}
      </span>
      <a class="place-link" href={findingAddress(report, first)}>
        <Path path={file} />
        {line > 0 && `:${line}`}
      </a>
      <span class="place-line">
        <PlaceLine finding={first} />
      </span>
      <span class="place-programs quiet">
        {place.findings.length > 1 && `in ${counted(place.findings.length, "output")}`}
      </span>
    </div>
  );
}
