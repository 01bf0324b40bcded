// Saves ticks to a file and reads them from one.

import { useRef } from "preact/hooks";
import { useReport } from "../../app/context.ts";
import type { TickState } from "./use-ticks.ts";

export function TickFiles({ ticks }: { ticks: TickState }) {
  const { project } = useReport().report.summary;
  const input = useRef<HTMLInputElement>(null);
  const save = () => {
    const url = URL.createObjectURL(new Blob([ticks.saved()], { type: "application/json" }));
    const link = document.createElement("a");
    link.href = url;
    link.download = `${project.name.replace(/[^\p{L}\p{N}._-]+/gu, "-")}-ticks.json`;
    link.click();
    setTimeout(() => URL.revokeObjectURL(url), 10_000);
  };
  const load = async (file: File | undefined) => {
    if (file !== undefined) {
      ticks.load(await file.text());
    }
    if (input.current !== null) {
      // The same file can be read once more.
      input.current.value = "";
    }
  };
  return (
    <>
      <button type="button" onClick={save}>
        Save ticks to a file
      </button>
      <button type="button" onClick={() => input.current?.click()}>
        Read ticks from a file
      </button>
      <input
        ref={input}
        type="file"
        accept=".json,application/json"
        hidden
        aria-label="A file of ticks"
        onChange={(event) => void load(event.currentTarget.files?.[0])}
      />
    </>
  );
}
