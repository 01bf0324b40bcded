// A finding with what to do about it.

import { addressOf } from "../../app/address.ts";
import { useReport } from "../../app/context.ts";
import { severities, todos, type ProgramDetail } from "../../data/format.ts";
import { at, chainOf, ruleOf, textAt, type Report } from "../../data/report.ts";
import { severityNames, todoNames } from "../../data/wording.ts";
import { CopyButton } from "../../parts/copy.tsx";
import { Markdown } from "../../parts/markdown.tsx";
import { Path, Text } from "../../parts/text.tsx";
import { TodoSign } from "../../parts/work-signs.tsx";

export function FindingCard({ finding, detail }: { finding: number; detail: ProgramDetail }) {
  const { report } = useReport();
  const { findings, summary } = report;
  const rule = ruleOf(report, finding);
  const severity = severities[at(findings.severity, finding)]!;
  const todo = todos[at(findings.todo, finding)]!;
  const further = detail.furtherLines[String(finding)] ?? [];
  return (
    <div class="finding" role="group" aria-label={`Finding ${rule.code}`}>
      <p class="finding-head">
        <TodoSign todo={todo} /> <strong>{todoNames[todo].title}</strong>
        {at(findings.open, finding) === 0 && <span class="done">finished</span>}
        {severity !== "" && <span class="severity">{severityNames[severity].title}</span>}
        <a href={addressOf("work", { code: rule.code })}>
          <code>{rule.code}</code>
        </a>
        <CopyButton what="Copy the finding" text={() => findingText(report, finding)} />
      </p>
      <p>
        <Text text={textAt(summary, at(findings.text, finding))} />
      </p>
      <Inclusions finding={finding} />
      {further.length > 0 && <p class="quiet">Also in lines {further.join(", ")}.</p>}
      <details>
        <summary>What to write instead</summary>
        <Markdown text={rule.help} />
      </details>
    </div>
  );
}

function Inclusions({ finding }: { finding: number }) {
  const { report } = useReport();
  const chain = chainOf(report, finding);
  return (
    <>
      {chain.map(({ file, line }, index) => (
        <p key={index} class="quiet">
          included from <Path path={file} />:{line}
        </p>
      ))}
    </>
  );
}

/** As the log has it: file and line, the message, and the way of inclusion. */
export function findingText(report: Report, finding: number): string {
  const { findings, summary } = report;
  const line = at(findings.line, finding);
  const file = textAt(summary, at(findings.file, finding));
  const place = line === 0 ? file : `${file}:${line}`;
  const head = `${place}: ${textAt(summary, at(findings.text, finding))} [${ruleOf(report, finding).code}]`;
  const chain = chainOf(report, finding).map(
    (step, index) =>
      `${index === 0 ? "In file included from" : "                 from"} ${step.file}:${step.line}`,
  );
  return [head, textAt(summary, at(findings.lineText, finding)), ...chain]
    .filter((text) => text !== "")
    .join("\n");
}
