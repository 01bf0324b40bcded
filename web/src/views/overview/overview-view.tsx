import { useMemo } from "preact/hooks";
import { useReport } from "../../app/context.ts";
import { folderWork, workOf } from "../../data/totals.ts";
import { EstimatePart } from "./estimate-part.tsx";
import { Figures } from "./figures.tsx";
import { FolderPart } from "./folder-part.tsx";
import { LeftPart } from "./left-part.tsx";
import { NoticePart } from "./notice-part.tsx";
import { RunPart } from "./run-part.tsx";

export function OverviewView() {
  const { report } = useReport();
  const work = useMemo(() => workOf(report), [report]);
  const folders = useMemo(() => folderWork(report), [report]);
  return (
    <>
      <h1>Overview</h1>
      <Figures work={work} />
      <div class="columns">
        <LeftPart work={work} />
        <EstimatePart open={work.open} />
      </div>
      <FolderPart folders={folders} />
      <RunPart runs={report.summary.runs} />
      <NoticePart work={work} />
    </>
  );
}
