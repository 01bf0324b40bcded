// Above the report: what the run came to, and what can be done with it.

import { useState } from "preact/hooks";
import { Text } from "../parts/text.tsx";
import type { Actions, Results, State } from "./state.ts";
import { counted } from "./wording.ts";

export function ResultsBar(props: { state: State; results: Results; actions: Actions }) {
  const { state, results, actions } = props;
  const [windowsLines, setWindowsLines] = useState(() => navigator.userAgent.includes("Windows"));
  const isBusy = state.busy !== "";
  return (
    <section aria-label="Conversion" class="results-bar">
      <p role="status">
        {isBusy ? `${state.busy} …` : told(results)}
        {state.failure !== "" && (
          <>
            {" "}
            <strong class="failure">
              <Text text={state.failure} />
            </strong>
          </>
        )}
      </p>
      <p class="results-buttons">
        <button
          type="button"
          class="main-action"
          disabled={isBusy}
          onClick={() => actions.save(windowsLines)}
        >
          Save all as ZIP
        </button>{" "}
        <label>
          <span class="quiet">Line ends</span>{" "}
          <select
            value={windowsLines ? "windows" : "linux"}
            onChange={(event) => setWindowsLines(event.currentTarget.value === "windows")}
          >
            <option value="windows">Windows (CR LF)</option>
            <option value="linux">Linux (LF)</option>
          </select>
        </label>{" "}
        <button type="button" disabled={isBusy} onClick={actions.back}>
          Back to the files
        </button>{" "}
        <button type="button" disabled={isBusy} onClick={actions.startAnew}>
          Start anew
        </button>
      </p>
    </section>
  );
}

function told({ programs, seconds, stoppedAt }: Results): string {
  const converted = programs.filter(({ outcome }) => outcome.status === "converted").length;
  const left = programs.length - converted;
  const time = `${Math.max(seconds, 0.1).toLocaleString("en", { maximumFractionDigits: 1 })} s`;
  const stopped = stoppedAt === null ? "" : "Stopped. ";
  return (
    `${stopped}${counted(converted, "program", "programs")} converted in ${time}` +
    (left === 0 ? "." : `; ${counted(left, "was", "were")} not: the report says why.`)
  );
}
