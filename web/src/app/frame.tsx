// What stands above and below every view.

import { dateText } from "../data/wording.ts";
import { Text } from "../parts/text.tsx";
import { addressOf, type View } from "./address.ts";
import { usePage, useReport } from "./context.ts";
import { ThemeChoice } from "./theme.tsx";

export const viewNames: Readonly<Record<View, string>> = {
  overview: "Overview",
  work: "Work list",
  program: "Programs",
  checks: "Before the first motion",
};

export function PageHead() {
  const { report, address } = usePage();
  const { project, made } = report.summary;
  const skip = (event: Event) => {
    // The address is the state of the page: it is not changed to "#main".
    event.preventDefault();
    document.getElementById("main")?.focus();
  };
  return (
    <header class="page-head">
      <a class="skip" href="#main" onClick={skip}>
        To the content
      </a>
      <p class="project">
        <strong>
          <Text text={project.name} />
        </strong>{" "}
        <span class="quiet">as of {dateText(made)}</span>
      </p>
      <nav aria-label="Views">
        {(Object.keys(viewNames) as View[]).map((view) => (
          <a
            key={view}
            href={addressOf(view)}
            {...(view === address.view ? { "aria-current": "page" as const } : {})}
          >
            {viewNames[view]}
          </a>
        ))}
      </nav>
      <ThemeChoice />
    </header>
  );
}

export function PageFoot() {
  const { report } = useReport();
  return (
    <footer class="page-foot">
      <p>
        Written by torvel-migrate {report.summary.version}, {dateText(report.summary.made)}. This
        page connects to nothing.
      </p>
    </footer>
  );
}
