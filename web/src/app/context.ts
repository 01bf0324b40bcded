// What every part of the page may ask for.

import { createContext } from "preact";
import { useContext, useEffect, useMemo, useState } from "preact/hooks";
import type { Report } from "../data/report.ts";
import type { DataSource } from "../data/source.ts";
import { addressOf, parsedAddress, type Address, type Parameters } from "./address.ts";

export interface Page {
  readonly report: Report;
  readonly source: DataSource;
  readonly address: Address;
  /** Changes parameters of the address; the others stay. "push" makes a step that the browser can go back. */
  readonly change: (parameters: Parameters, how?: "push" | "replace") => void;
}

export const PageContext = createContext<Page | null>(null);

export function usePage(): Page {
  return useContext(PageContext) as Page;
}

export function usePageState(report: Report, source: DataSource): Page {
  const [hash, setHash] = useState(location.hash);
  useEffect(() => {
    const follow = () => setHash(location.hash);
    window.addEventListener("hashchange", follow);
    window.addEventListener("popstate", follow);
    return () => {
      window.removeEventListener("hashchange", follow);
      window.removeEventListener("popstate", follow);
    };
  }, []);
  return useMemo(() => {
    const address = parsedAddress(hash);
    const change: Page["change"] = (parameters, how = "replace") => {
      const now = parsedAddress(location.hash);
      const next = addressOf(now.view, { ...now.parameters, ...parameters });
      if (next !== location.hash) {
        history[how === "push" ? "pushState" : "replaceState"](history.state, "", next);
        setHash(next);
      }
    };
    return { report, source, address, change };
  }, [hash, report, source]);
}
