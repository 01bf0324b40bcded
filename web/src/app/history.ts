// Where the reader was: a view that a link leads to begins at its top, one that is gone back to stands as it was left.

import { useEffect, useLayoutEffect, useRef } from "preact/hooks";
import type { Address } from "./address.ts";

export function usePlaceInHistory({ view, parameters }: Address): void {
  const shown = `${view} ${parameters["path"] ?? ""}`;
  const before = useRef<string | null>(null);
  const left = useRef(new Map<string, number>());
  useEffect(() => {
    history.scrollRestoration = "manual";
    const keep = () => left.current.set(before.current ?? "", window.scrollY);
    window.addEventListener("scroll", keep, { passive: true });
    return () => window.removeEventListener("scroll", keep);
  }, []);
  useLayoutEffect(() => {
    const isFirst = before.current === null;
    const isOther = before.current !== shown;
    before.current = shown;
    // An entry that was seen before has a state.
    const isReturn = history.state !== null;
    history.replaceState("seen", "");
    if (isOther && !isFirst) {
      window.scrollTo(0, isReturn ? (left.current.get(shown) ?? 0) : 0);
      document.getElementById("main")?.focus({ preventScroll: true });
    }
  }, [shown]);
}
