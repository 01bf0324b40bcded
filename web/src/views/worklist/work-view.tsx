// Findings by what they say.

import { useMemo } from "preact/hooks";
import { usePage } from "../../app/context.ts";
import type { Parameters } from "../../app/address.ts";
import { matchingFindings, noFilter, type Filter } from "../../data/filter.ts";
import { groupOrders, groupsOf, sortedGroups, type Group } from "../../data/groups.ts";
import { counted, grouped } from "../../data/wording.ts";
import { FilterForm } from "./filter-form.tsx";
import { GroupSection } from "./group-section.tsx";

export function filterOf(parameters: Parameters): Filter {
  const names = Object.keys(noFilter) as (keyof Filter)[];
  return Object.fromEntries(
    names.map((name) => [name, parameters[name] ?? ""]),
  ) as unknown as Filter;
}

export function WorkView() {
  const { report, address } = usePage();
  const { parameters } = address;
  const filter = filterOf(parameters);
  const order = groupOrders.find((name) => name === parameters["sort"]) ?? "outputs";
  const groups = useMemo(
    () => groupsOf(report, matchingFindings(report, filter)),
    [report, ...Object.values(filter)],
  );
  const sorted = useMemo(() => sortedGroups(report, groups, order), [report, groups, order]);
  return (
    <>
      <h1>Work list</h1>
      <FilterForm filter={filter} order={order} />
      <p role="status" class="result">
        {resultText(sorted)}
      </p>
      {sorted.map((group) => {
        const { code } = report.summary.rules[group.rule]!;
        return <GroupSection key={code} group={group} isOpen={isShown(parameters, code, sorted)} />;
      })}
    </>
  );
}

function resultText(groups: readonly Group[]): string {
  if (groups.length === 0) {
    return "Nothing passes these filters.";
  }
  const places = groups.reduce((sum, group) => sum + group.places, 0);
  const inOutputs = groups.reduce((sum, group) => sum + group.inOutputs, 0);
  return `${counted(groups.length, "code")}: ${counted(places, "place")} in sources, ${grouped(inOutputs)} in outputs.`;
}

/** A group is shown when it was opened, or when it is the only one and nothing was closed. */
function isShown(parameters: Parameters, code: string, groups: readonly Group[]): boolean {
  const shown = parameters["show"];
  return shown === undefined ? groups.length === 1 : shown === code;
}
