// A field to search by.

import { useEffect, useState } from "preact/hooks";

interface SearchFieldProps {
  readonly value: string;
  readonly hint: string;
  readonly onChange: (value: string) => void;
}

/** Waits for a pause in typing before it changes the address, which browsers count. */
export function SearchField({ value, hint, onChange }: SearchFieldProps) {
  const [typed, setTyped] = useState(value);
  useEffect(() => setTyped(value), [value]);
  useEffect(() => {
    const timer = setTimeout(() => {
      if (typed !== value) {
        onChange(typed);
      }
    }, 120);
    return () => clearTimeout(timer);
  }, [typed]);
  return (
    <label class="field search">
      <span>Search</span>
      <input
        type="search"
        value={typed}
        placeholder={hint}
        onInput={(event) => setTyped(event.currentTarget.value)}
      />
    </label>
  );
}
