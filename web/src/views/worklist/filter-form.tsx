// Filters, search and order of the work list. All of them stand in the address.

import { useReport } from "../../app/context.ts";
import { outerFolders } from "../../data/folders.ts";
import { noFilter, type Filter } from "../../data/filter.ts";
import { severities, todos } from "../../data/format.ts";
import type { GroupOrder } from "../../data/groups.ts";
import { severityNames, todoNames } from "../../data/wording.ts";
import { SearchField } from "../../parts/search-field.tsx";
import { Select, type Option } from "../../parts/select.tsx";

const orders: Readonly<Record<GroupOrder, string>> = {
  outputs: "most in outputs",
  places: "most in sources",
  programs: "most programs",
  code: "code",
};

export function FilterForm({ filter, order }: { filter: Filter; order: GroupOrder }) {
  const { report, change } = useReport();
  const set = (name: keyof Filter) => (value: string) => change({ [name]: value });
  const isFiltered = Object.values(filter).some((value) => value !== "");
  return (
    <form class="filters" role="search" onSubmit={(event) => event.preventDefault()}>
      <SearchField value={filter.text} hint="line, message, path or code" onChange={set("text")} />
      <Select
        name="Folder"
        value={filter.folder}
        options={withAll(
          "all folders",
          outerFolders(report.folders).map((name) => [name, name]),
        )}
        onChange={set("folder")}
      />
      <Select
        name="Code"
        value={filter.code}
        options={withAll(
          "all codes",
          report.summary.rules.map(({ code }): Option => [code, code]).sort(),
        )}
        onChange={set("code")}
      />
      <Select
        name="To do"
        value={filter.todo}
        options={withAll(
          "all",
          todos.map((todo) => [todo, todoNames[todo].title]),
        )}
        onChange={set("todo")}
      />
      <Select
        name="Severity"
        value={filter.severity}
        options={withAll("all", severityOptions)}
        onChange={set("severity")}
      />
      <Select
        name="State"
        value={filter.state}
        options={withAll("all", [
          ["open", "open"],
          ["finished", "finished"],
        ])}
        onChange={set("state")}
      />
      <Select
        name="Order"
        value={order}
        options={Object.entries(orders)}
        onChange={(value) => change({ sort: value === "outputs" ? "" : value })}
      />
      <button type="button" disabled={!isFiltered} onClick={() => change(noFilter as never)}>
        Show all
      </button>
    </form>
  );
}

const severityOptions: Option[] = [
  ...severities.flatMap((severity): Option[] =>
    severity === "" ? [] : [[severity, severityNames[severity].title]],
  ),
  ["message", "message of the log"],
];

function withAll(all: string, options: readonly Option[]): Option[] {
  return [["", all], ...options];
}
