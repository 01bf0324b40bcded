// What the page knows, and what it does about it. Nothing of it draws.

import { useEffect, useRef, useState } from "preact/hooks";
import type { FoundFiles } from "../converter/project.ts";
import type { RunNumbers } from "../converter/report.ts";
import type { Summary } from "../data/format.ts";
import type { DataSource } from "../data/source.ts";
import type { ConverterClient } from "./converter-client.ts";
import { merged, reasonOf, type Choice } from "./dropped-files.ts";
import type { ConvertedProgram } from "./messages.ts";
import {
  firstWishes,
  projectOf,
  settingsOf,
  type ProjectChoice,
  type Wishes,
} from "./project-choice.ts";
import { convertAll, type Progress } from "./run.ts";

export interface Results {
  readonly programs: readonly ConvertedProgram[];
  readonly source: DataSource;
  readonly summary: Summary;
  readonly seconds: number;
  readonly stoppedAt: number | null;
}

export interface State {
  readonly choice: Choice;
  readonly project: ProjectChoice;
  readonly wishes: Wishes;
  readonly found: FoundFiles | null;
  /** What is being done; empty: nothing. */
  readonly busy: string;
  readonly progress: Progress | null;
  readonly failure: string;
  readonly told: string;
  readonly results: Results | null;
}

const noFiles: Choice = { files: new Map(), refused: [] };

const atFirst: State = {
  choice: noFiles,
  project: projectOf([]),
  wishes: firstWishes(projectOf([])),
  found: null,
  busy: "",
  progress: null,
  failure: "",
  told: "",
  results: null,
};

export interface Actions {
  add(choice: Choice): void;
  wish(wishes: Wishes): void;
  convert(): void;
  stop(): void;
  save(windowsLines: boolean): void;
  /** Back to the files, which stay. */
  back(): void;
  startAnew(): void;
}

const now = (): number => Math.floor(Date.now() / 1000);

export function useConverter(
  client: ConverterClient,
  emptyPage: Uint8Array,
): readonly [State, Actions] {
  const [state, setState] = useState(atFirst);
  // Events find the newest state here, whatever is being drawn.
  const newest = useRef(state);
  const stop = useRef({ isSet: false });
  const runs = useRef<RunNumbers[]>([]);
  const change = (changes: Partial<State>) => {
    newest.current = { ...newest.current, ...changes };
    setState(newest.current);
  };
  const doing = async (busy: string, work: () => Promise<void>) => {
    change({ busy, failure: "" });
    try {
      await work();
    } catch (error) {
      change({ failure: reasonOf(error) });
    }
    change({ busy: "", progress: null });
  };

  const look = async (choice: Choice, wishes: Wishes, isNew: boolean) => {
    const unread = isNew ? await client.start(choice.files) : [];
    const files = new Map(choice.files);
    unread.forEach(({ path }) => files.delete(path));
    const project = projectOf([...files.keys()]);
    const kept = { files, refused: [...choice.refused, ...unread] };
    change({ choice: kept, project, wishes, found: null });
    change({ found: await client.open(settingsOf(project, wishes)) });
  };

  const actions: Actions = {
    add(added) {
      if (newest.current.busy !== "") {
        change({
          failure: "Nothing was added: wait until this is done, and drop the files again.",
        });
        return;
      }
      const before = newest.current;
      const choice = merged(before.choice, added);
      const replaced = [...added.files.keys()].filter((path) => before.choice.files.has(path));
      const project = projectOf([...choice.files.keys()]);
      const isKnown =
        before.project.parameterFiles.join("\n") === project.parameterFiles.join("\n");
      const wishes = isKnown
        ? before.wishes
        : { ...before.wishes, parameters: firstWishes(project).parameters };
      const told = `${choice.files.size - before.choice.files.size} files added, ${replaced.length} replaced.`;
      change({ results: null });
      void doing("Reading the files", async () => {
        await look(choice, wishes, true);
        change({ told });
      });
    },
    wish(wishes) {
      void doing("Looking for programs", () => look(newest.current.choice, wishes, false));
    },
    convert() {
      const { found } = newest.current;
      if (found === null || newest.current.busy !== "") {
        return;
      }
      stop.current = { isSet: false };
      void doing("Converting", async () => {
        change({ results: await run(found) });
      });
    },
    stop() {
      stop.current.isSet = true;
      client.lose("it was stopped");
    },
    save(windowsLines) {
      const { results, project } = newest.current;
      if (results === null) {
        return;
      }
      void doing("Packing", async () => {
        const zip = await client.ask("save", {
          files: results.programs.flatMap(filesOf),
          emptyPage,
          made: results.summary.made,
          windowsLines,
        });
        download(zip, `${project.name}-converted.zip`);
      });
    },
    back() {
      change({ results: null, told: "" });
    },
    startAnew() {
      client.lose("it was ended");
      runs.current = [];
      newest.current = atFirst;
      setState(atFirst);
    },
  };

  const run = async (found: FoundFiles): Promise<Results | null> => {
    const began = now();
    const start = performance.now();
    let drawn = 0;
    const programs = await convertAll(client, {
      programs: found.programs,
      stop: stop.current,
      tell: (progress) => {
        const time = performance.now();
        if (time - drawn > 100) {
          drawn = time;
          change({ progress });
        }
      },
    });
    if (programs.length === 0) {
      change({ told: "Stopped: nothing was converted." });
      return null;
    }
    const { run, summary } = await client.ask("report", {
      projectName: newest.current.project.name,
      earlierRuns: runs.current,
      records: programs.map(({ record }) => record),
      began,
      ended: now(),
    });
    runs.current.push(run);
    return {
      programs,
      summary,
      source: {
        summary: () => Promise.resolve(summary),
        program: (number) => client.ask("detail", number),
      },
      seconds: (performance.now() - start) / 1000,
      stoppedAt: stop.current.isSet ? programs.length : null,
    };
  };

  useEffect(() => () => client.lose("the page was closed"), [client]);
  return [state, actions];
}

function filesOf({ outcome, output, log }: ConvertedProgram) {
  return outcome.status === "converted"
    ? [
        { path: outcome.output, bytes: output },
        { path: outcome.output.replace(/\.torvel$/, ".log"), bytes: log },
      ]
    : [];
}

function download(file: Blob, name: string): void {
  const link = document.createElement("a");
  link.href = URL.createObjectURL(file);
  link.download = name;
  document.body.append(link);
  link.click();
  link.remove();
  setTimeout(() => URL.revokeObjectURL(link.href), 60_000);
}
