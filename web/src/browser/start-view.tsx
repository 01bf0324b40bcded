// Before the results: files are dropped, found, chosen and converted.

import { useRef } from "preact/hooks";
import { Text } from "../parts/text.tsx";
import { chosenFiles, droppedFiles } from "./dropped-files.ts";
import { limitsText } from "./limits.ts";
import { PathList } from "./path-list.tsx";
import { SettingsForm } from "./settings-form.tsx";
import type { Actions, State } from "./state.ts";
import { counted } from "./wording.ts";

export function StartView({ state, actions }: { state: State; actions: Actions }) {
  const hasFiles = state.choice.files.size + state.choice.refused.length > 0;
  return (
    <main id="main" class="start" tabIndex={-1}>
      <h1>Convert Brannic programs to Torvel</h1>
      <p>
        Drop programs, or the folder that has them, with everything that they include and the
        controller&rsquo;s parameter file. They are converted in this page: nothing is sent
        anywhere.
      </p>
      <DropZone actions={actions} isBusy={state.busy !== ""} />
      <Situation state={state} actions={actions} />
      {hasFiles && <Found state={state} actions={actions} />}
      <details class="limits">
        <summary>What a tab can hold</summary>
        <p>{limitsText}</p>
      </details>
    </main>
  );
}

function DropZone({ actions, isBusy }: { actions: Actions; isBusy: boolean }) {
  const zone = useRef<HTMLElement>(null);
  const mark = (isOver: boolean) => zone.current?.classList.toggle("over", isOver);
  const drop = (event: DragEvent) => {
    event.preventDefault();
    mark(false);
    if (event.dataTransfer !== null) {
      void droppedFiles(event.dataTransfer).then(actions.add);
    }
  };
  const choose = (event: Event) => {
    const input = event.currentTarget as HTMLInputElement;
    if (input.files !== null && input.files.length > 0) {
      actions.add(chosenFiles(input.files));
    }
    input.value = "";
  };
  return (
    <section
      ref={zone}
      class="drop-zone"
      aria-label="Files"
      onDragOver={(event) => (event.preventDefault(), mark(true))}
      onDragLeave={() => mark(false)}
      onDrop={drop}
    >
      <p class="drop-here">Drop programs and folders here</p>
      <p class="drop-buttons">
        <label class="file-button">
          Choose files
          <input type="file" multiple disabled={isBusy} onChange={choose} />
        </label>
        <label class="file-button">
          Choose a folder
          <input
            type="file"
            multiple
            disabled={isBusy}
            ref={(input) => input?.setAttribute("webkitdirectory", "")}
            onChange={choose}
          />
        </label>
      </p>
    </section>
  );
}

function Situation({ state, actions }: { state: State; actions: Actions }) {
  const { progress, busy, failure, told } = state;
  return (
    <>
      <div role="status" class="situation">
        {busy !== "" && progress === null && <p>{busy} …</p>}
        {busy === "" && told !== "" && <p>{told}</p>}
      </div>
      {progress !== null && (
        <section aria-label="Progress" class="progress">
          <progress aria-label="Programs converted" max={progress.total} value={progress.done} />
          <p>
            {progress.done.toLocaleString("en")} of {counted(progress.total, "program", "programs")}
            , now <Text text={progress.path} />
          </p>
        </section>
      )}
      {busy === "Converting" && (
        <p>
          <button type="button" onClick={actions.stop}>
            Stop
          </button>
        </p>
      )}
      {failure !== "" && (
        <p role="alert" class="failure">
          <Text text={failure} />
        </p>
      )}
    </>
  );
}

function Found({ state, actions }: { state: State; actions: Actions }) {
  const { found, choice, project } = state;
  const others = choice.files.size - (found?.programs.length ?? 0) - (found?.parts.length ?? 0);
  return (
    <>
      {found !== null && (
        <section aria-label="What was found">
          <h2>
            <Text text={project.name} />
          </h2>
          <p>
            {counted(found.programs.length, "program", "programs")},{" "}
            {counted(found.parts.length, "file that others include", "files that others include")},{" "}
            {counted(Math.max(others, 0), "other file", "other files")}.
          </p>
          <Missing state={state} />
          <Told state={state} />
        </section>
      )}
      <SettingsForm state={state} actions={actions} />
      <p class="start-buttons">
        <button
          type="button"
          class="main-action"
          disabled={state.busy !== "" || (found?.programs.length ?? 0) === 0}
          onClick={actions.convert}
        >
          Convert {counted(found?.programs.length ?? 0, "program", "programs")}
        </button>{" "}
        <button type="button" disabled={state.busy !== ""} onClick={actions.startAnew}>
          Start anew
        </button>
      </p>
    </>
  );
}

/** Files that programs include and that are not there, by name. */
function Missing({ state }: { state: State }) {
  const missing = state.found?.missing ?? [];
  const byPath = new Map<string, string[]>();
  for (const { path, file, line } of missing) {
    byPath.set(path, [...(byPath.get(path) ?? []), `${file}:${line}`]);
  }
  return (
    <PathList
      title={`${counted(byPath.size, "file is", "files are")} missing: drop what you have of them`}
      kind="missing"
      rows={[...byPath].map(([path, users]) => ({
        path,
        text: `included in ${users.slice(0, 3).join(", ")}${users.length > 3 ? ` and ${users.length - 3} more places` : ""}`,
      }))}
    />
  );
}

function Told({ state }: { state: State }) {
  const { found, choice } = state;
  return (
    <>
      <PathList
        title="The parameter file cannot be used"
        kind="missing"
        rows={found?.faults ?? []}
      />
      <PathList
        title={`${counted(choice.refused.length, "file was", "files were")} not taken`}
        kind="missing"
        rows={choice.refused.map(({ path, reason }) => ({ path, text: reason }))}
      />
      <PathList
        title="What there is to say about the files"
        kind="notices"
        rows={found?.notices ?? []}
      />
    </>
  );
}
