// The page: files first, then the report over what was converted. Files may be dropped at any time.

import { useEffect, useRef } from "preact/hooks";
import { render } from "preact";
import { ThemeChoice } from "../app/theme.tsx";
import { showReport } from "../app/viewer.tsx";
import type { DataSource } from "../data/source.ts";
import type { ConverterClient } from "./converter-client.ts";
import { droppedFiles } from "./dropped-files.ts";
import { ResultsBar } from "./results-bar.tsx";
import { StartView } from "./start-view.tsx";
import { useConverter } from "./state.ts";

export function App(props: { client: ConverterClient; emptyPage: Uint8Array }) {
  const [state, actions] = useConverter(props.client, props.emptyPage);
  const { results } = state;
  useEffect(() => {
    const allow = (event: DragEvent) => event.preventDefault();
    const drop = (event: DragEvent) => {
      if (!event.defaultPrevented && event.dataTransfer !== null) {
        void droppedFiles(event.dataTransfer).then(actions.add);
      }
      // Or the browser would show the file in the place of the page.
      event.preventDefault();
    };
    window.addEventListener("dragover", allow);
    window.addEventListener("drop", drop);
    return () => {
      window.removeEventListener("dragover", allow);
      window.removeEventListener("drop", drop);
    };
  });
  if (results === null) {
    return (
      <>
        <header class="page-head">
          <p class="project">
            <strong>torvel-migrate</strong> <span class="quiet">in the browser</span>
          </p>
          <div class="head-space" />
          <ThemeChoice />
        </header>
        <StartView state={state} actions={actions} />
      </>
    );
  }
  return (
    <>
      <ResultsBar state={state} results={results} actions={actions} />
      <ReportFrame source={results.source} />
    </>
  );
}

/** The viewer as the report page has it, in an element of its own. */
function ReportFrame({ source }: { source: DataSource }) {
  const place = useRef<HTMLDivElement>(null);
  useEffect(() => {
    const { current } = place;
    if (current === null) {
      return;
    }
    showReport(current, source);
    return () => render(null, current);
  }, [source]);
  return <div ref={place} />;
}
