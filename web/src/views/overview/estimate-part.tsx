// How long the rest may take, with its arithmetic and factors that can be changed.

import { useState } from "preact/hooks";
import { usePage, useReport } from "../../app/context.ts";
import { estimateOf, parsedRange, type Counting, type EstimateRow } from "../../data/estimate.ts";
import { todos, type Effort, type Todo } from "../../data/format.ts";
import type { Count } from "../../data/totals.ts";
import { durationText, grouped, rangeText, todoNames } from "../../data/wording.ts";

export function EstimatePart({ open }: { open: readonly Count[] }) {
  const { report, address, change } = usePage();
  const { parameters } = address;
  const counting: Counting = parameters["count"] === "outputs" ? "outputs" : "places";
  const effort = effortOf(report.summary.effort, parameters);
  const { rows, sum } = estimateOf(open, effort, counting);
  const isChanged = todos.some((todo) => parameters[minutesName(todo)] !== undefined);
  const reset = () => change(Object.fromEntries(todos.map((todo) => [minutesName(todo), ""])));
  return (
    <section>
      <h2>How long it may take</h2>
      <fieldset class="choice">
        <legend>Lines of included files are finished</legend>
        <Choice name="once, in the sources" value="places" counting={counting} />
        <Choice name="in each output" value="outputs" counting={counting} />
      </fieldset>
      <table class="numbers estimate">
        <thead>
          <tr>
            <th scope="col">To do</th>
            <th scope="col">number</th>
            <th scope="col">× minutes each</th>
            <th scope="col">= minutes</th>
          </tr>
        </thead>
        <tbody>
          {rows.map((row) => (
            <FactorRow key={row.todo} row={row} />
          ))}
        </tbody>
        <tfoot>
          <tr>
            <th scope="row">Together</th>
            <td>{grouped(rows.reduce((all, row) => all + row.count, 0))}</td>
            <td />
            <td>{rangeText(sum)}</td>
          </tr>
        </tfoot>
      </table>
      <p>
        <strong class="sum">{durationText(sum)}</strong>
      </p>
      {isChanged && (
        <p>
          The minutes are not those of the project.{" "}
          <button type="button" class="small" onClick={reset}>
            Take the project's
          </button>
        </p>
      )}
    </section>
  );
}

/** The factors of the project, or those that were typed in their place. */
function effortOf(effort: Effort, parameters: Readonly<Record<string, string>>): Effort {
  return Object.fromEntries(
    todos.map((todo) => [todo, parsedRange(parameters[minutesName(todo)] ?? "") ?? effort[todo]]),
  ) as unknown as Effort;
}

function minutesName(todo: Todo): string {
  return `minutes-${todo}`;
}

function Choice({ name, value, counting }: { name: string; value: Counting; counting: Counting }) {
  const { change } = useReport();
  return (
    <label>
      <input
        type="radio"
        name="count"
        value={value}
        checked={value === counting}
        onChange={() => change({ count: value === "places" ? "" : value })}
      />{" "}
      {name}
    </label>
  );
}

function FactorRow({ row }: { row: EstimateRow }) {
  const { change } = useReport();
  const [typed, setTyped] = useState<string | null>(null);
  const { title } = todoNames[row.todo];
  const text =
    typed ?? (row.minutes[0] === row.minutes[1] ? `${row.minutes[0]}` : row.minutes.join("-"));
  const isWrong = parsedRange(text) === null;
  const take = (value: string) => {
    setTyped(value);
    const range = parsedRange(value);
    if (range !== null) {
      change({ [minutesName(row.todo)]: range.join("-") });
    }
  };
  return (
    <tr>
      <th scope="row">{title}</th>
      <td>{grouped(row.count)}</td>
      <td>
        <input
          type="text"
          class="minutes"
          inputMode="numeric"
          value={text}
          aria-label={`Minutes for one: ${title}`}
          aria-invalid={isWrong}
          title="Minutes, or a range such as 10-40"
          onInput={(event) => take(event.currentTarget.value)}
          onBlur={() => setTyped(null)}
        />
      </td>
      <td>{rangeText(row.product)}</td>
    </tr>
  );
}
