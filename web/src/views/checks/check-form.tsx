// The checks of a machine as a list to tick off, and on paper as a form.

import { useMemo } from "preact/hooks";
import { usePage, useReport } from "../../app/context.ts";
import type { CheckGroup, Machine } from "../../data/checks.ts";
import type { Place } from "../../data/groups.ts";
import { inlinesOf, markdownBlocks } from "../../data/markdown.ts";
import { fingerprintOf, type Report } from "../../data/report.ts";
import { tickKey, type Ticks } from "../../data/ticks.ts";
import { counted, severityNames } from "../../data/wording.ts";
import { Blocks } from "../../parts/blocks.tsx";
import { Inlines, Markdown } from "../../parts/markdown.tsx";
import { CheckRow } from "./check-row.tsx";
import type { TickState } from "./use-ticks.ts";

/** What stands in the list: a severity, a check, or a place. */
type Item =
  | { readonly kind: "severity"; readonly group: CheckGroup; readonly count: number }
  | { readonly kind: "check"; readonly group: CheckGroup }
  | { readonly kind: "place"; readonly place: Place };

interface CheckFormProps {
  readonly machine: Machine;
  readonly groups: readonly CheckGroup[];
  readonly ticks: TickState;
}

export function CheckForm({ machine, groups, ticks }: CheckFormProps) {
  const { report, address } = usePage();
  const { severity = "", state = "" } = address.parameters;
  // Rows do not leave the list while they are ticked: what is shown is decided when it is asked for.
  const items = useMemo(
    () => itemsOf(report, machine, groups, severity, state, ticks.ticks),
    [report, machine, groups, severity, state],
  );
  if (items.length === 0) {
    return <p>{groups.length === 0 ? "No check found anything here." : "Nothing to show."}</p>;
  }
  return (
    <div class="check-form">
      <div class="check-row head" aria-hidden="true">
        <span />
        <span class="tick-by">Initials, date</span>
        <span>Place</span>
        <span class="place-line">Line</span>
        <span />
      </div>
      <Blocks
        count={items.length}
        rowHeight={38}
        dependencies={[items, ticks.ticks, ticks.initials]}
        row={(index) => (
          <FormItem key={index} item={items[index]!} machine={machine} ticks={ticks} />
        )}
      />
    </div>
  );
}

function itemsOf(
  report: Report,
  machine: Machine,
  groups: readonly CheckGroup[],
  severity: string,
  state: string,
  ticks: Ticks,
): Item[] {
  const isShown = ({ first }: Place) =>
    state === "" ||
    ticks.has(tickKey(machine.folder, fingerprintOf(report, first))) === (state === "done");
  const shown = groups
    .filter((group) => severity === "" || group.severity === severity)
    .map((group) => ({ ...group, places: group.places.filter(isShown) }))
    .filter(({ places }) => places.length > 0);
  return shown.flatMap((group, index): Item[] => [
    ...(shown[index - 1]?.severity === group.severity
      ? []
      : [{ kind: "severity", group, count: placesWith(shown, group.severity) } as const]),
    { kind: "check", group },
    ...group.places.map((place) => ({ kind: "place", place }) as const),
  ]);
}

function placesWith(groups: readonly CheckGroup[], severity: string): number {
  return groups.reduce(
    (sum, group) => sum + (group.severity === severity ? group.places.length : 0),
    0,
  );
}

function FormItem({ item, machine, ticks }: { item: Item; machine: Machine; ticks: TickState }) {
  const { report } = useReport();
  switch (item.kind) {
    case "severity": {
      const { title, meaning } = severityNames[item.group.severity];
      return (
        <h2 class={`severity-head severity-${item.group.severity}`}>
          {title}: {meaning} <span class="quiet">{counted(item.count, "place")}</span>
        </h2>
      );
    }
    case "check": {
      const { title, code, help } = report.summary.rules[item.group.rule]!;
      return (
        <div class="check-head">
          <h3>
            <Inlines inlines={inlinesOf(title)} /> <code class="rule-code">{code}</code>
          </h3>
          <p class="print-only quiet">
            <FirstParagraph markdown={help} />
          </p>
          <details>
            <summary>What to do</summary>
            <Markdown text={help} />
          </details>
        </div>
      );
    }
    case "place":
      return (
        <CheckRow
          place={item.place}
          tickKey={tickKey(machine.folder, fingerprintOf(report, item.place.first))}
          ticks={ticks}
        />
      );
  }
}

/** On paper there is room for the gist only. */
function FirstParagraph({ markdown }: { markdown: string }) {
  const first = markdownBlocks(markdown).find(({ kind }) => kind === "paragraph");
  return first?.kind === "paragraph" ? <Inlines inlines={first.text} /> : null;
}
