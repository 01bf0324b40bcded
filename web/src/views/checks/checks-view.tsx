// What is to be looked at before a machine moves for the first time.

import { useMemo } from "preact/hooks";
import { addressOf } from "../../app/address.ts";
import { usePage, useReport } from "../../app/context.ts";
import { checkGroups, machinesOf, type CheckGroup, type Machine } from "../../data/checks.ts";
import { fingerprintOf } from "../../data/report.ts";
import { tickKey, type Ticks } from "../../data/ticks.ts";
import { counted, machineName, severityNames } from "../../data/wording.ts";
import { Select, type Option } from "../../parts/select.tsx";
import { CheckForm } from "./check-form.tsx";
import { PartNotice, Signature, stateOptions } from "./on-paper.tsx";
import { TickFiles } from "./tick-files.tsx";
import { useTicks, type TickState } from "./use-ticks.ts";

export function ChecksView() {
  const { report, address } = usePage();
  const machines = useMemo(() => machinesOf(report), [report]);
  const asked = address.parameters["machine"];
  const machine =
    machines.find(({ folder }) => folder === (asked === "-" ? "" : asked)) ??
    machines.find(({ findings }) => findings.length > 0) ??
    machines[0];
  const groups = useMemo(
    () => (machine === undefined ? [] : checkGroups(report, machine)),
    [report, machine],
  );
  const ticks = useTicks();
  if (machine === undefined) {
    return (
      <>
        <h1>Before the first motion</h1>
        <p>There are no programs.</p>
      </>
    );
  }
  return (
    <>
      <h1>
        Before the first motion<span class="print-only">: {machineName(machine.folder)}</span>
      </h1>
      <p class="lead">
        These lines were converted and may do something else than before. Go through them for each
        machine before it moves.
      </p>
      <MachineChoice machines={machines} machine={machine} />
      <TickTools ticks={ticks} machine={machine} groups={groups} />
      <PartNotice />
      <CheckForm machine={machine} groups={groups} ticks={ticks} />
      <Signature />
    </>
  );
}

/** The project's own machine has no folder; "-" stands for it in the address. */
function MachineChoice({ machines, machine }: { machines: readonly Machine[]; machine: Machine }) {
  const { address, change } = usePage();
  const name = ({ folder, findings }: Machine) =>
    `${machineName(folder)} (${counted(findings.length, "finding")})`;
  return (
    <form class="filters" onSubmit={(event) => event.preventDefault()}>
      <Select
        name="Machine"
        value={machine.folder === "" ? "-" : machine.folder}
        options={machines.map((one): Option => [one.folder === "" ? "-" : one.folder, name(one)])}
        onChange={(folder) => change({ machine: folder })}
      />
      <Select
        name="Severity"
        value={address.parameters["severity"] ?? ""}
        options={[["", "all"], ...Object.entries(severityNames).map(titled)]}
        onChange={(severity) => change({ severity })}
      />
      <Select
        name="State"
        value={address.parameters["state"] ?? ""}
        options={stateOptions}
        onChange={(state) => change({ state })}
      />
    </form>
  );
}

function titled([name, { title }]: [string, { readonly title: string }]): Option {
  return [name, title];
}

function TickTools({
  ticks,
  machine,
  groups,
}: {
  ticks: TickState;
  machine: Machine;
  groups: readonly CheckGroup[];
}) {
  const { report } = useReport();
  const places = groups.flatMap((group) => group.places);
  const done = countTicked(
    ticks.ticks,
    machine,
    places.map(({ first }) => fingerprintOf(report, first)),
  );
  const doneText = `${done} of ${counted(places.length, "place")} ticked off.`;
  return (
    <>
      <p class="print-only">{doneText}</p>
      <TickPanel ticks={ticks} doneText={doneText} />
    </>
  );
}

function TickPanel({ ticks, doneText }: { ticks: TickState; doneText: string }) {
  return (
    <div class="tick-tools">
      <p role="status" class="result">
        {doneText}
      </p>
      <label class="field">
        <span>Your initials</span>
        <input
          type="text"
          id="initials"
          maxLength={12}
          value={ticks.initials}
          onInput={(event) => ticks.setInitials(event.currentTarget.value)}
        />
      </label>
      <TickFiles ticks={ticks} />
      <button type="button" onClick={() => window.print()}>
        Print the form
      </button>
      {ticks.message !== "" && <p role="alert">{ticks.message}</p>}
      <p class="hint">
        Ticks are kept by this browser only. Save them to a file to hand them on.{" "}
        <a href={addressOf("work", { todo: "look", severity: "message" })}>
          Messages about converted lines
        </a>{" "}
        stand in the work list.
      </p>
    </div>
  );
}

function countTicked(ticks: Ticks, { folder }: Machine, fingerprints: readonly string[]): number {
  return fingerprints.filter((fingerprint) => ticks.has(tickKey(folder, fingerprint))).length;
}
