// The ticks of the browser, and what changes them.

import { useEffect, useMemo, useState } from "preact/hooks";
import { useReport } from "../../app/context.ts";
import { browserStorage } from "../../app/storage.ts";
import { mergedTicks, readTicks, savedTicks, TickStore, type Ticks } from "../../data/ticks.ts";
import { counted } from "../../data/wording.ts";

export interface TickState {
  readonly ticks: Ticks;
  readonly initials: string;
  readonly message: string;
  readonly setInitials: (initials: string) => void;
  /** Ticks a place off, or takes the tick away. */
  readonly toggle: (key: string) => void;
  readonly saved: () => string;
  readonly load: (text: string) => void;
}

const initialsName = "torvel:initials";

export function useTicks(): TickState {
  const { summary } = useReport().report;
  const store = useMemo(() => new TickStore(summary, browserStorage()), [summary]);
  const [ticks, setTicks] = useState<Ticks>(() => store.read());
  const [initials, setInitials] = useState(() => browserStorage()?.getItem(initialsName) ?? "");
  const [message, setMessage] = useState("");
  useEffect(() => {
    // Another window of this browser has ticked.
    const follow = ({ key }: StorageEvent) => store.isOf(key) && setTicks(store.read());
    window.addEventListener("storage", follow);
    return () => window.removeEventListener("storage", follow);
  }, [store]);
  const keep = (next: Ticks, said: string) => {
    setTicks(next);
    setMessage(store.write(next) ? said : "This browser keeps no ticks: save them to a file.");
  };
  return {
    ticks,
    initials,
    message,
    setInitials(value) {
      setInitials(value);
      try {
        browserStorage()?.setItem(initialsName, value);
      } catch {
        // They are typed again the next time.
      }
    },
    toggle(key) {
      const by = initials.trim();
      if (!ticks.has(key) && by === "") {
        setMessage("Type your initials first: they stand beside every tick.");
        document.getElementById("initials")?.focus();
        return;
      }
      const next = new Map(ticks);
      if (!next.delete(key)) {
        next.set(key, { by, on: today() });
      }
      keep(next, "");
    },
    saved: () => savedTicks(summary, ticks),
    load(text) {
      try {
        const read = readTicks(text, summary);
        keep(mergedTicks(ticks, read), `${counted(read.size, "tick")} read.`);
      } catch (error) {
        setMessage(error instanceof Error ? error.message : String(error));
      }
    },
  };
}

/** The day where the reader is. */
function today(): string {
  const now = new Date();
  const two = (value: number) => String(value).padStart(2, "0");
  return `${now.getFullYear()}-${two(now.getMonth() + 1)}-${two(now.getDate())}`;
}
