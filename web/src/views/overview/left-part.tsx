// What is left, by what is to be done.

import { addressOf } from "../../app/address.ts";
import { useReport } from "../../app/context.ts";
import { outputStates, severities, todos } from "../../data/format.ts";
import { at } from "../../data/report.ts";
import type { Count, Work } from "../../data/totals.ts";
import { counted, grouped, outputNames, severityNames, todoNames } from "../../data/wording.ts";
import { TodoSign } from "../../parts/work-signs.tsx";

export function LeftPart({ work }: { work: Work }) {
  return (
    <section>
      <h2>Left to do</h2>
      <table class="numbers">
        <thead>
          <tr>
            <th scope="col">To do</th>
            <th scope="col">in sources</th>
            <th scope="col">in outputs</th>
            <th scope="col">finished</th>
          </tr>
        </thead>
        <tbody>
          {todos.map((todo, index) => (
            <tr key={todo}>
              <th scope="row">
                <TodoSign todo={todo} />{" "}
                <a href={addressOf("work", { todo, state: "open" })}>{todoNames[todo].title}</a>
              </th>
              <td>{grouped(work.open[index]!.places)}</td>
              <td>{grouped(work.open[index]!.inOutputs)}</td>
              <td>{grouped(work.finished[index]!.inOutputs)}</td>
            </tr>
          ))}
        </tbody>
      </table>
      <SeverityTable />
      <p class="hint">
        A line of an included file is one place in the sources, and stands in the output of each
        program that includes it.
      </p>
      <OutputLinks />
    </section>
  );
}

/** Of the lines to look at, those that a check found. */
function SeverityTable() {
  const { report } = useReport();
  const { findings, placeFinding, placeOpen } = report;
  const counts: { places: number; inOutputs: number }[] = severities.map(() => ({
    places: 0,
    inOutputs: 0,
  }));
  findings.severity.forEach((severity, i) => {
    counts[severity]!.inOutputs += at(findings.open, i);
  });
  placeFinding.forEach((finding, place) => {
    if (finding !== -1) {
      counts[at(findings.severity, finding)]!.places += at(placeOpen, place);
    }
  });
  return (
    <table class="numbers">
      <caption>Converted lines that may do something else than before</caption>
      <thead>
        <tr>
          <th scope="col">Severity</th>
          <th scope="col">in sources</th>
          <th scope="col">in outputs</th>
        </tr>
      </thead>
      <tbody>
        {severities.map((severity, index) =>
          severity === "" ? null : (
            <SeverityRow key={severity} severity={severity} count={counts[index]!} />
          ),
        )}
      </tbody>
    </table>
  );
}

function SeverityRow({ severity, count }: { severity: keyof typeof severityNames; count: Count }) {
  const { title, meaning } = severityNames[severity];
  return (
    <tr>
      <th scope="row">
        <a href={addressOf("work", { severity, state: "open" })}>{title}</a>{" "}
        <span class="quiet">{meaning}</span>
      </th>
      <td>{grouped(count.places)}</td>
      <td>{grouped(count.inOutputs)}</td>
    </tr>
  );
}

/** Outputs that are not as they were generated. */
function OutputLinks() {
  const { programs } = useReport().report.summary;
  const counts = outputStates.map((_, state) =>
    programs.outputState.filter((one) => one === state),
  );
  const shown = outputStates.filter(
    (name, state) => name !== "none" && name !== "as-generated" && counts[state]!.length > 0,
  );
  if (shown.length === 0) {
    return null;
  }
  return (
    <ul class="outputs">
      {shown.map((name) => (
        <li key={name}>
          <a href={addressOf("program", { status: name })}>
            {counted(counts[outputStates.indexOf(name)]!.length, "program")}
          </a>
          : {outputNames[name]}
        </li>
      ))}
    </ul>
  );
}
