// What stands on the printed form only.

import { usePage } from "../../app/context.ts";
import { severityNames } from "../../data/wording.ts";
import type { Option } from "../../parts/select.tsx";

export const stateOptions: readonly Option[] = [
  ["", "all"],
  ["open", "not ticked off"],
  ["done", "ticked off"],
];

/** A form of a part of the list must not be taken for the whole. */
export function PartNotice() {
  const { severity = "", state = "" } = usePage().address.parameters;
  const parts = [
    ...Object.entries(severityNames).flatMap(([name, { title }]) =>
      name === severity ? [`severity ${title}`] : [],
    ),
    ...stateOptions.flatMap(([name, text]) => (name !== "" && name === state ? [text] : [])),
  ];
  return parts.length === 0 ? null : (
    <p class="print-only part">This is a part of the list: {parts.join(", ")}.</p>
  );
}

export function Signature() {
  return (
    <div class="signature print-only">
      <p>All points were gone through on this machine.</p>
      <p class="lines">
        <span>Name</span>
        <span>Date</span>
        <span>Signature</span>
      </p>
    </div>
  );
}
