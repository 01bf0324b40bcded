// Progress over the runs: what was open after each. After a run that was cut off that was not counted.

import { usePage } from "../../app/context.ts";
import type { Run } from "../../data/format.ts";
import { dateText, grouped, share } from "../../data/wording.ts";
import { Text } from "../../parts/text.tsx";

const mostRows = 12;

export function RunPart({ runs }: { runs: readonly Run[] }) {
  const { address, change } = usePage();
  const isWhole = address.parameters["runs"] === "all";
  const shown = isWhole ? runs : runs.slice(-mostRows);
  const most = Math.max(1, ...shown.map((run) => (run.ended === 0 ? 0 : run.openFindings)));
  return (
    <section>
      <h2>Progress over the runs</h2>
      {runs.length === 0 ? (
        <p>No run is recorded.</p>
      ) : (
        <table class="folders">
          <thead>
            <tr>
              <th scope="col">Run</th>
              <th scope="col" class="number">
                Programs
              </th>
              <th scope="col" class="number">
                of these converted anew
              </th>
              <th scope="col" class="number">
                Converted lines
              </th>
              <th scope="col">Left to do in sources</th>
            </tr>
          </thead>
          <tbody>
            {shown.map((run, index) => (
              <RunRow key={index} run={run} most={most} />
            ))}
          </tbody>
        </table>
      )}
      {runs.length > mostRows && (
        <button type="button" class="small" onClick={() => change({ runs: isWhole ? "" : "all" })}>
          {isWhole ? `Only the last ${mostRows}` : `All ${grouped(runs.length)} runs`}
        </button>
      )}
    </section>
  );
}

function RunRow({ run, most }: { run: Run; most: number }) {
  return (
    <tr>
      <th scope="row">
        {dateText(run.began)}
        <span class="quiet">
          {" "}
          version <Text text={run.version} />
          {run.ended === 0 && ", cut off"}
        </span>
      </th>
      <td class="number">{grouped(run.programs)}</td>
      <td class="number">{grouped(run.converted)}</td>
      <td class="number">
        {grouped(run.convertedLines)} of {grouped(run.lines)} (
        {share(run.convertedLines, run.lines)})
      </td>
      <td class="work">
        {run.ended === 0 ? (
          <span class="quiet">not counted</span>
        ) : (
          <>
            <span class="bar" aria-hidden="true">
              <span
                class="bar-part bar-run"
                style={{ width: `${(run.openFindings * 100) / most}%` }}
              />
            </span>
            <span class="work-text">
              <strong>{grouped(run.openFindings)}</strong>
            </span>
          </>
        )}
      </td>
    </tr>
  );
}
