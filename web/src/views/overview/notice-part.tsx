// What there is to know about the files as a whole.

import { useReport } from "../../app/context.ts";
import { todos } from "../../data/format.ts";
import type { Count, Work } from "../../data/totals.ts";
import { todoNames } from "../../data/wording.ts";
import { Text } from "../../parts/text.tsx";

export function NoticePart({ work }: { work: Work }) {
  const { notices } = useReport().report.summary;
  const differences = useDifferences(work);
  return (
    <>
      {differences.length > 0 && (
        <section class="warning" role="alert">
          <h2>The counts do not agree</h2>
          <p>
            This page counts otherwise than torvel-migrate did. Do not rely on its numbers before it
            is known why: {differences.join("; ")}.
          </p>
        </section>
      )}
      {notices.length > 0 && (
        <section>
          <h2>To be known</h2>
          <ul class="notices">
            {notices.map((notice) => (
              <li>
                <Text text={notice} />
              </li>
            ))}
          </ul>
        </section>
      )}
    </>
  );
}

/** Where what the page counts is not what the report says. */
function useDifferences(work: Work): string[] {
  const { totals } = useReport().report.summary;
  const compared = (state: string, here: readonly Count[], there: typeof totals.open) =>
    todos.flatMap((todo, index) => {
      const { places, inOutputs } = here[index]!;
      const [toldPlaces, toldInOutputs] = there[index]!;
      return places === toldPlaces && inOutputs === toldInOutputs
        ? []
        : [
            `${todoNames[todo].title} ${state}: ${places} in sources and ${inOutputs} in outputs here,` +
              ` ${toldPlaces} and ${toldInOutputs} there`,
          ];
    });
  return [
    ...compared("open", work.open, totals.open),
    ...compared("finished", work.finished, totals.finished),
  ];
}
