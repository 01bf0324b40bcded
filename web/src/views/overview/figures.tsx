// The numbers that are asked for first.

import type { ComponentChildren } from "preact";
import { addressOf } from "../../app/address.ts";
import { useReport } from "../../app/context.ts";
import { programStatuses } from "../../data/format.ts";
import type { Count, Work } from "../../data/totals.ts";
import { counted, grouped, share } from "../../data/wording.ts";

function sum(counts: readonly Count[], which: keyof Count): number {
  return counts.reduce((all, count) => all + count[which], 0);
}

function Figure({
  name,
  value,
  children,
}: {
  name: string;
  value: string;
  children?: ComponentChildren;
}) {
  return (
    <div class="figure">
      <dt>{name}</dt>
      <dd>
        <strong>{value}</strong>
        <span class="quiet">{children}</span>
      </dd>
    </div>
  );
}

export function Figures({ work }: { work: Work }) {
  const { report } = useReport();
  const { totals, programs } = report.summary;
  const withStatus = (name: (typeof programStatuses)[number]) =>
    programs.status.filter((status) => status === programStatuses.indexOf(name)).length;
  const failed = report.programCount - withStatus("converted");
  const left = sum(work.open, "inOutputs");
  const finished = sum(work.finished, "inOutputs");
  return (
    <dl class="figures">
      <Figure name="Programs" value={grouped(report.programCount)}>
        {failed === 0 ? (
          "all converted"
        ) : (
          <a href={addressOf("program", { status: "failed" })}>
            {counted(failed, "was", "were")} not converted
          </a>
        )}
      </Figure>
      <Figure name="Lines of code" value={grouped(totals.lines)}>
        {counted(report.folders.length, "folder")}
      </Figure>
      <Figure name="Converted" value={share(totals.convertedLines, totals.lines)}>
        {counted(totals.convertedLines, "line")} without a marker
      </Figure>
      <Figure name="Left to do" value={grouped(sum(work.open, "places"))}>
        places in sources, {grouped(left)} in outputs
      </Figure>
      <Figure name="Finished by hand" value={grouped(finished)}>
        of {grouped(left + finished)} in outputs
      </Figure>
    </dl>
  );
}
