// A list to choose from, with its name.

import { visiblePieces } from "../data/visible.ts";

export type Option = readonly [value: string, name: string];

export function Select({
  name,
  value,
  options,
  onChange,
}: {
  name: string;
  value: string;
  options: readonly Option[];
  onChange: (value: string) => void;
}) {
  // A value of the address that the list does not have is shown all the same.
  const all = options.some(([known]) => known === value) ? options : [...options, [value, value]];
  return (
    <label class="field">
      <span>{name}</span>
      <select value={value} onChange={(event) => onChange(event.currentTarget.value)}>
        {all.map(([option, text]) => (
          <option key={option} value={option}>
            {visiblePieces(text as string).map((piece) => piece.text)}
          </option>
        ))}
      </select>
    </label>
  );
}
