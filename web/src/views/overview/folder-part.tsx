// A bar for each folder by what is left in its outputs.

import { addressOf } from "../../app/address.ts";
import { usePage } from "../../app/context.ts";
import { todos } from "../../data/format.ts";
import type { FolderWork } from "../../data/totals.ts";
import { grouped, share, todoNames } from "../../data/wording.ts";
import { Path } from "../../parts/text.tsx";
import { TodoSign, WorkBar } from "../../parts/work-signs.tsx";

const mostRows = 20;

export function FolderPart({ folders }: { folders: readonly FolderWork[] }) {
  const { address, change } = usePage();
  const most = Math.max(1, folders[0]?.left ?? 1);
  const isWhole = address.parameters["folders"] === "all";
  const shown = isWhole ? folders : folders.slice(0, mostRows);
  return (
    <section>
      <h2>Folders by what is left</h2>
      <table class="folders">
        <thead>
          <tr>
            <th scope="col">Folder</th>
            <th scope="col" class="number">
              Programs
            </th>
            <th scope="col" class="number">
              Lines
            </th>
            <th scope="col" class="number">
              Converted
            </th>
            <th scope="col">
              Left to do in outputs <Legend />
            </th>
          </tr>
        </thead>
        <tbody>
          {shown.map((row) => (
            <FolderRow key={row.folder} row={row} most={most} />
          ))}
        </tbody>
      </table>
      {folders.length > mostRows && (
        <button
          type="button"
          class="small"
          onClick={() => change({ folders: isWhole ? "" : "all" })}
        >
          {isWhole ? `Only the first ${mostRows}` : `All ${grouped(folders.length)} folders`}
        </button>
      )}
    </section>
  );
}

function Legend() {
  return (
    <span class="legend">
      {todos.map((todo) => (
        <span key={todo}>
          <TodoSign todo={todo} /> {todoNames[todo].title.toLowerCase()}
        </span>
      ))}
    </span>
  );
}

function FolderRow({ row, most }: { row: FolderWork; most: number }) {
  const parts = todos.flatMap((todo, index) =>
    row.open[index] === 0 ? [] : [{ todo, count: row.open[index]! }],
  );
  return (
    <tr>
      <th scope="row">
        <a href={addressOf("work", { folder: row.folder, state: "open" })}>
          <Path path={row.folder} />
        </a>
      </th>
      <td class="number">{grouped(row.programs)}</td>
      <td class="number">{grouped(row.lines)}</td>
      <td class="number">{share(row.convertedLines, row.lines)}</td>
      <td class="work">
        <WorkBar open={row.open} most={most} />
        <span class="work-text">
          <strong>{row.left === 0 ? "nothing" : grouped(row.left)}</strong>
          {parts.length > 0 && (
            <span class="quiet parts">
              {parts.map(({ todo, count }) => (
                <span key={todo}>
                  <TodoSign todo={todo} /> {grouped(count)}
                </span>
              ))}
            </span>
          )}
        </span>
      </td>
    </tr>
  );
}
