// What is known of a program beside its texts.

import { addressOf } from "../../app/address.ts";
import { useReport } from "../../app/context.ts";
import { outputStates, programStatuses, todos } from "../../data/format.ts";
import { at, machineOf, programPath, textAt } from "../../data/report.ts";
import { counted, machineName, outputNames, share, statusNames } from "../../data/wording.ts";
import { Path } from "../../parts/text.tsx";
import { TodoSign, workText } from "../../parts/work-signs.tsx";

export function ProgramHead({ program }: { program: number }) {
  const { report } = useReport();
  const { programs } = report.summary;
  const lines = at(programs.lines, program);
  const status = programStatuses[at(programs.status, program)]!;
  const output = outputStates[at(programs.outputState, program)]!;
  return (
    <div class="program-head">
      <p class="crumbs">
        <a href={addressOf("program")}>Programs</a>
      </p>
      <h1>
        <Path path={programPath(report, program)} />
      </h1>
      <p class="facts">
        <span class={`status status-${status}`}>{statusNames[status]}</span>
        <span>
          {counted(lines, "line")} of code, {share(at(programs.convertedLines, program), lines)}{" "}
          converted
        </span>
        <span>
          <Path path={textAt(report.summary, at(programs.output, program))} />:{" "}
          <span class={`output output-${output}`}>{outputNames[output]}</span>
        </span>
        <span>
          machine: <Path path={machineName(machineOf(report, program))} />
        </span>
      </p>
      <LeftHere program={program} />
    </div>
  );
}

function LeftHere({ program }: { program: number }) {
  const { report } = useReport();
  const { findings, firstFinding } = report;
  const open = todos.map(() => 0);
  for (let i = at(firstFinding, program); i < at(firstFinding, program + 1); ++i) {
    open[at(findings.todo, i)]! += at(findings.open, i);
  }
  const parts = todos.filter((_, index) => open[index] !== 0);
  return (
    <p class="facts">
      {parts.length === 0
        ? "Nothing is left to do."
        : parts.map((todo) => (
            <span key={todo}>
              <TodoSign todo={todo} /> {workText(todo, open[todos.indexOf(todo)]!)}
            </span>
          ))}
    </p>
  );
}
