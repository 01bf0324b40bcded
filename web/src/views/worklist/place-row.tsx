// A line of a source with something to do, and the programs whose outputs have it.

import { useReport } from "../../app/context.ts";
import { findingAddress } from "../../app/finding-address.ts";
import { todos } from "../../data/format.ts";
import type { Place } from "../../data/groups.ts";
import { at, fingerprintOf, programPath, textAt } from "../../data/report.ts";
import { counted } from "../../data/wording.ts";
import { brannicLanguage } from "../../language/words.ts";
import { Code } from "../../parts/code.tsx";
import { Path, Text } from "../../parts/text.tsx";
import { TodoSign } from "../../parts/work-signs.tsx";

export function PlaceRow({ place, shown }: { place: Place; shown: string }) {
  const { report } = useReport();
  const { findings, summary } = report;
  const { first } = place;
  const line = at(findings.line, first);
  const isOpen = place.findings.some((finding) => at(findings.open, finding) === 1);
  const isShown = fingerprintOf(report, first) === shown;
  return (
    <div role="listitem" class={isOpen ? "place-row" : "place-row finished"}>
      <span class="place-state">
        {isOpen ? (
          <TodoSign todo={todos[at(findings.todo, first)]!} />
        ) : (
          <span class="sign sign-finished" role="img" aria-label="finished" title="finished">
            ✓
          </span>
        )}
      </span>
      <a class="place-link" href={findingAddress(report, first)}>
        <Path path={textAt(summary, at(findings.file, first))} />
        {line > 0 && `:${line}`}
      </a>
      <span class="place-line">
        <PlaceLine finding={first} />
      </span>
      <PlacePrograms place={place} isShown={isShown} />
      {isShown && <ProgramLinks place={place} />}
    </div>
  );
}

/** The line with its place marked; a finding about the file has its text in its stead. */
export function PlaceLine({ finding }: { finding: number }) {
  const { findings, summary } = useReport().report;
  const line = textAt(summary, at(findings.lineText, finding));
  if (at(findings.line, finding) === 0 || line === "") {
    return <Text text={textAt(summary, at(findings.text, finding))} />;
  }
  return (
    <Code
      text={line}
      language={brannicLanguage}
      columns={[at(findings.column, finding), at(findings.lastColumn, finding)]}
    />
  );
}

function PlacePrograms({ place, isShown }: { place: Place; isShown: boolean }) {
  const { report, change } = useReport();
  if (place.findings.length === 1) {
    return <span class="place-programs" />;
  }
  const fingerprint = fingerprintOf(report, place.first);
  return (
    <button
      type="button"
      class="small place-programs"
      aria-expanded={isShown}
      onClick={() => change({ place: isShown ? "" : fingerprint })}
    >
      in {counted(place.findings.length, "output")}
    </button>
  );
}

function ProgramLinks({ place }: { place: Place }) {
  const { report } = useReport();
  const { findings } = report;
  return (
    <ul class="program-links">
      {place.findings.map((finding) => (
        <li key={finding}>
          <a href={findingAddress(report, finding)}>
            <Path path={programPath(report, at(findings.program, finding))} />
          </a>
          {at(findings.open, finding) === 0 && <span class="quiet"> finished</span>}
        </li>
      ))}
    </ul>
  );
}
