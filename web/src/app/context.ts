// What every part of the page may ask for.

import { createContext } from "preact";
import { useContext, useEffect, useMemo, useState } from "preact/hooks";
import type { Report } from "../data/report.ts";
import type { DataSource } from "../data/source.ts";
import { addressOf, parsedAddress, type Address, type Parameters } from "./address.ts";

/** What stays as it is while people go from view to view. */
export interface ReportPage {
  readonly report: Report;
  readonly source: DataSource;
  /** Changes parameters of the address; the others stay. "push" makes a step that the browser can go back. */
  readonly change: (parameters: Parameters, how?: "push" | "replace") => void;
}

export interface Page extends ReportPage {
  readonly address: Address;
}

export const ReportContext = createContext<ReportPage | null>(null);
export const AddressContext = createContext<Address | null>(null);

/** For parts that show the same wherever the address is. */
export function useReport(): ReportPage {
  return useContext(ReportContext) as ReportPage;
}

/** For parts that are shown anew whenever the address changes. */
export function usePage(): Page {
  const address = useContext(AddressContext) as Address;
  return { ...useReport(), address };
}

export function usePageState(report: Report, source: DataSource): [ReportPage, Address] {
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
  const page = useMemo((): ReportPage => {
    const change: ReportPage["change"] = (parameters, how = "replace") => {
      const now = parsedAddress(location.hash);
      const next = addressOf(now.view, { ...now.parameters, ...parameters });
      if (next !== location.hash) {
        history[how === "push" ? "pushState" : "replaceState"](history.state, "", next);
        setHash(next);
      }
    };
    return { report, source, change };
  }, [report, source]);
  const address = useMemo(() => parsedAddress(hash), [hash]);
  return [page, address];
}
