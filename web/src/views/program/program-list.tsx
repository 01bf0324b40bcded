// All programs, to choose one.

import { useMemo } from "preact/hooks";
import { addressOf } from "../../app/address.ts";
import { usePage, useReport } from "../../app/context.ts";
import { outerFolders } from "../../data/folders.ts";
import { outputStates, programStatuses, todos } from "../../data/format.ts";
import {
  chosenPrograms,
  leftByProgram,
  orderedPrograms,
  programOrders,
  type ProgramOrder,
} from "../../data/program-order.ts";
import { at, programPath, type Report } from "../../data/report.ts";
import { counted, grouped, outputNames, share, statusNames } from "../../data/wording.ts";
import { Blocks } from "../../parts/blocks.tsx";
import { SearchField } from "../../parts/search-field.tsx";
import { Select, type Option } from "../../parts/select.tsx";
import { Path } from "../../parts/text.tsx";
import { WorkBar } from "../../parts/work-signs.tsx";

const orderNames: Readonly<Record<ProgramOrder, string>> = {
  path: "path",
  left: "most left to do",
  lines: "most lines",
  share: "least converted",
};

const stateOptions: Option[] = [
  ["", "all"],
  ["left", "something left to do"],
  ["failed", "not converted"],
  ...programStatuses.map((name): Option => [name, statusNames[name]]),
  ...outputStates.slice(1).map((name): Option => [name, outputNames[name]]),
];

export function ProgramList() {
  const { report, address, change } = usePage();
  const { folder = "", status = "", text = "", sort = "path" } = address.parameters;
  const order = programOrders.find((name) => name === sort) ?? "path";
  const left = useMemo(() => leftByProgram(report), [report]);
  const rows = useMemo(
    () =>
      orderedPrograms(
        report,
        left,
        chosenPrograms(report, left, { folder, status, text }, outputStates),
        order,
      ),
    [report, left, folder, status, text, order],
  );
  const most = useMemo(() => left.reduce((all, value) => Math.max(all, value), 1), [left]);
  return (
    <>
      <h1>Programs</h1>
      <form class="filters" role="search" onSubmit={(event) => event.preventDefault()}>
        <SearchField value={text} hint="path" onChange={(value) => change({ text: value })} />
        <Select
          name="Folder"
          value={folder}
          options={[
            ["", "all folders"],
            ...outerFolders(report.folders).map((name): Option => [name, name]),
          ]}
          onChange={(value) => change({ folder: value })}
        />
        <Select
          name="State"
          value={status}
          options={stateOptions}
          onChange={(value) => change({ status: value })}
        />
        <Select
          name="Order"
          value={order}
          options={Object.entries(orderNames)}
          onChange={(value) => change({ sort: value === "path" ? "" : value })}
        />
      </form>
      <p role="status" class="result">
        {counted(rows.length, "program")}
      </p>
      <div class="program-list" role="table" aria-label="Programs">
        <div role="rowgroup">
          <div role="row" class="program-row head">
            <span role="columnheader">Program</span>
            <span role="columnheader">State</span>
            <span role="columnheader" class="number">
              Lines
            </span>
            <span role="columnheader" class="number">
              Converted
            </span>
            <span role="columnheader">Left to do</span>
          </div>
        </div>
        <Blocks
          count={rows.length}
          rowHeight={30}
          role="rowgroup"
          dependencies={[rows]}
          // Rows have no keys: what the row of another program was made of is used again.
          row={(index) => (
            <ProgramRow program={rows[index]!} left={left[rows[index]!]!} most={most} />
          )}
        />
      </div>
    </>
  );
}

function ProgramRow({ program, left, most }: { program: number; left: number; most: number }) {
  const { report } = useReport();
  const { programs } = report.summary;
  const path = programPath(report, program);
  const status = programStatuses[at(programs.status, program)]!;
  const output = outputStates[at(programs.outputState, program)]!;
  const isPlain = status === "converted" && output === "as-generated";
  const lines = at(programs.lines, program);
  return (
    <div role="row" class="program-row">
      <span role="cell">
        <a href={addressOf("program", { path })}>
          <Path path={path} />
        </a>
      </span>
      <span role="cell" class={isPlain ? "quiet" : `status status-${status} output-${output}`}>
        {status === "converted"
          ? isPlain
            ? "converted"
            : outputNames[output]
          : statusNames[status]}
      </span>
      <span role="cell" class="number">
        {grouped(lines)}
      </span>
      <span role="cell" class="number">
        {status === "converted" ? share(at(programs.convertedLines, program), lines) : "–"}
      </span>
      <span role="cell" class="work">
        <WorkBar open={openOf(report, program)} most={most} />
        <span class="work-text">{left === 0 ? "nothing" : grouped(left)}</span>
      </span>
    </div>
  );
}

function openOf({ findings, firstFinding }: Report, program: number) {
  const open = todos.map(() => 0);
  for (let i = at(firstFinding, program); i < at(firstFinding, program + 1); ++i) {
    open[at(findings.todo, i)]! += at(findings.open, i);
  }
  return open;
}
