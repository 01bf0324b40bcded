// The whole page: head, the four views, and what is said while the data is read.

import { render } from "preact";
import { useEffect, useState } from "preact/hooks";
import { reportOf, type Report } from "../data/report.ts";
import type { DataSource } from "../data/source.ts";
import { visiblePieces } from "../data/visible.ts";
import { ChecksView } from "../views/checks/checks-view.tsx";
import { OverviewView } from "../views/overview/overview-view.tsx";
import { ProgramView } from "../views/program/program-view.tsx";
import { WorkView } from "../views/worklist/work-view.tsx";
import type { View } from "./address.ts";
import { AddressContext, ReportContext, usePageState } from "./context.ts";
import { PageFoot, PageHead } from "./frame.tsx";
import { usePlaceInHistory } from "./history.ts";

/** Shows a report. Where its data comes from is the caller's business. */
export function showReport(root: HTMLElement, source: DataSource): void {
  render(<Viewer source={source} />, root);
}

function Viewer({ source }: { source: DataSource }) {
  const [report, setReport] = useState<Report | null>(null);
  const [failure, setFailure] = useState("");
  useEffect(() => {
    source.summary().then(
      (summary) => {
        document.title = `${visibleName(summary.project.name)} – conversion report`;
        setReport(reportOf(summary));
      },
      (error: unknown) => setFailure(error instanceof Error ? error.message : String(error)),
    );
  }, [source]);
  if (failure !== "") {
    return (
      <main class="notice">
        <h1>The report cannot be shown</h1>
        <p role="alert">{failure}</p>
      </main>
    );
  }
  return report === null ? (
    <main class="notice" aria-busy="true">
      <h1>Conversion report</h1>
      <p>Reading the data …</p>
    </main>
  ) : (
    <ReportPage report={report} source={source} />
  );
}

const viewOf: Readonly<Record<View, () => preact.JSX.Element>> = {
  overview: OverviewView,
  work: WorkView,
  program: ProgramView,
  checks: ChecksView,
};

function visibleName(name: string): string {
  return visiblePieces(name)
    .map(({ text }) => text)
    .join("");
}

function ReportPage({ report, source }: { report: Report; source: DataSource }) {
  const [page, address] = usePageState(report, source);
  usePlaceInHistory(address);
  const Shown = viewOf[address.view];
  return (
    <ReportContext.Provider value={page}>
      <AddressContext.Provider value={address}>
        <PageHead />
        <main id="main" tabIndex={-1} class={`view-${address.view}`}>
          <Shown />
        </main>
        <PageFoot />
      </AddressContext.Provider>
    </ReportContext.Provider>
  );
}
