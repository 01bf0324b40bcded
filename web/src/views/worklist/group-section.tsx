// The findings of one code: how many, what to write instead, and where they are.

import { useMemo } from "preact/hooks";
import { usePage, useReport } from "../../app/context.ts";
import { addressOf } from "../../app/address.ts";
import { inlinesOf } from "../../data/markdown.ts";
import { severities, todos } from "../../data/format.ts";
import { placesOf, type Group } from "../../data/groups.ts";
import { at } from "../../data/report.ts";
import { counted, grouped, severityNames } from "../../data/wording.ts";
import { Blocks } from "../../parts/blocks.tsx";
import { CopyButton } from "../../parts/copy.tsx";
import { Inlines, Markdown } from "../../parts/markdown.tsx";
import { Text } from "../../parts/text.tsx";
import { TodoSign } from "../../parts/work-signs.tsx";
import { PlaceRow } from "./place-row.tsx";

export function GroupSection({ group, isOpen }: { group: Group; isOpen: boolean }) {
  const { report, change } = useReport();
  const rule = report.summary.rules[group.rule]!;
  return (
    <section class={isOpen ? "group open" : "group"}>
      <h2>
        <button
          type="button"
          aria-expanded={isOpen}
          onClick={() => change({ show: isOpen ? "-" : rule.code, place: "" }, "push")}
        >
          <span class="twist" aria-hidden="true" />
          <GroupSigns group={group} />
          <span class="group-title">
            <Inlines inlines={inlinesOf(rule.title)} /> <code class="rule-code">{rule.code}</code>
          </span>
        </button>
      </h2>
      <p class="group-counts">
        {counted(group.places, "place")} in sources, {grouped(group.inOutputs)} in outputs of{" "}
        {counted(group.programs, "program")}
        {group.open < group.inOutputs && `, ${grouped(group.inOutputs - group.open)} finished`}
      </p>
      {isOpen && <GroupContent group={group} />}
    </section>
  );
}

/** What is to be done, and the severity; of the first finding, since those of a code are hardly ever different. */
function GroupSigns({ group }: { group: Group }) {
  const { findings } = useReport().report;
  const severity = severities[at(findings.severity, group.findings[0]!)]!;
  return (
    <span class="group-signs">
      {todos.map((todo, index) =>
        (group.todoBits & (1 << index)) === 0 ? null : <TodoSign key={todo} todo={todo} />,
      )}{" "}
      {severity !== "" && <span class="severity">{severityNames[severity].title}</span>}
    </span>
  );
}

function GroupContent({ group }: { group: Group }) {
  const { report, address } = usePage();
  const rule = report.summary.rules[group.rule]!;
  const places = useMemo(() => placesOf(report, group.findings), [report, group]);
  const link = () => location.href.replace(/#.*$/, addressOf("work", { code: rule.code }));
  const shown = address.parameters["place"] ?? "";
  return (
    <div class="group-content">
      <details class="help" open>
        <summary>What to write instead</summary>
        <Markdown text={rule.help} />
        <p class="quiet">
          <Text text={rule.section} />
        </p>
      </details>
      <p class="group-actions">
        <CopyButton what="Copy a link to this code" text={link} />
      </p>
      <div class="places" role="list" aria-label={`Places of ${rule.code}`}>
        <Blocks
          count={places.length}
          rowHeight={30}
          dependencies={[places, shown]}
          row={(index) => <PlaceRow key={index} place={places[index]!} shown={shown} />}
        />
      </div>
    </div>
  );
}
