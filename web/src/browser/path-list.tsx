// Paths, each with a sentence. Long lists are shown in part, and say so.

import { useState } from "preact/hooks";
import { Text } from "../parts/text.tsx";

interface Row {
  readonly path: string;
  readonly text: string;
}

const mostShown = 20;

export function PathList(props: { title: string; kind: string; rows: readonly Row[] }) {
  const [isLong, setLong] = useState(false);
  const { title, kind, rows } = props;
  if (rows.length === 0) {
    return null;
  }
  const shown = isLong ? rows : rows.slice(0, mostShown);
  return (
    <div class={`path-list ${kind}`}>
      <h3>{title}</h3>
      <ul>
        {shown.map(({ path, text }) => (
          <li key={`${path} ${text}`}>
            {path !== "" && (
              <strong class="path">
                <Text text={path} />
              </strong>
            )}{" "}
            <Text text={text} />
          </li>
        ))}
      </ul>
      {rows.length > shown.length && (
        <button type="button" class="small" onClick={() => setLong(true)}>
          Show all {rows.length.toLocaleString("en")}
        </button>
      )}
    </div>
  );
}
