// What is to be done, as a sign with its colour and as a bar.

import { todos, type Todo } from "../data/format.ts";
import { counted, todoNames } from "../data/wording.ts";

export function TodoSign({ todo }: { todo: Todo }) {
  const { sign, title } = todoNames[todo];
  return (
    <span class={`sign sign-${todo}`} role="img" aria-label={title} title={title}>
      {sign}
    </span>
  );
}

/** A bar of what is left by what is to be done, `most` being a full one. Its numbers stand beside it as text. */
export function WorkBar({ open, most }: { open: readonly number[]; most: number }) {
  return (
    <span class="bar" aria-hidden="true">
      {todos.map((todo, index) => {
        const count = open[index] ?? 0;
        return count === 0 ? null : (
          <span
            class={`bar-part bar-${todo}`}
            style={{ width: `${(count * 100) / most}%` }}
            title={workText(todo, count)}
          />
        );
      })}
    </span>
  );
}

export function workText(todo: Todo, count: number): string {
  const { one, many } = todoNames[todo];
  return counted(count, one, many);
}
