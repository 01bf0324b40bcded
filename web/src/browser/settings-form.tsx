// What can be said about a project that has no project file.

import { Text } from "../parts/text.tsx";
import { usualPrograms } from "./project-choice.ts";
import type { Actions, State } from "./state.ts";

export function SettingsForm({ state, actions }: { state: State; actions: Actions }) {
  const { project, wishes } = state;
  if (project.projectFile !== "") {
    return (
      <p>
        <span class="path">
          <Text text={project.projectFile} />
        </span>{" "}
        says what is a program, and which parameter file counts for which machine.
      </p>
    );
  }
  return (
    <section aria-label="Settings" class="filters">
      <label class="field">
        <span>Parameter file</span>
        <select
          value={wishes.parameters}
          disabled={state.busy !== ""}
          onChange={(event) => actions.wish({ ...wishes, parameters: event.currentTarget.value })}
        >
          <option value="">None: axes X Y Z U A B C D</option>
          {project.parameterFiles.map((path) => (
            <option key={path} value={path}>
              {path}
            </option>
          ))}
        </select>
      </label>
      <label class="field search">
        <span>Programs are called</span>
        <input
          value={wishes.programs}
          placeholder={usualPrograms}
          disabled={state.busy !== ""}
          onChange={(event) => actions.wish({ ...wishes, programs: event.currentTarget.value })}
        />
      </label>
      <label class="check">
        <input
          type="checkbox"
          checked={wishes.keepExtension}
          disabled={state.busy !== ""}
          onChange={(event) =>
            actions.wish({ ...wishes, keepExtension: event.currentTarget.checked })
          }
        />{" "}
        part.pgm becomes part.pgm.torvel, not part.torvel
      </label>
    </section>
  );
}
