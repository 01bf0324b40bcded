// Texts that a page must not take for its own, in every field that has a text.

import { ReportBuilder, type SampleReport } from "./report-builder.ts";

/** Each of them sets `window.hacked` if it is ever taken for more than text. */
export const hostileTexts = [
  "</script><script>window.hacked = 1</script>",
  "<!--<script>window.hacked = 1//",
  '"><img src=x onerror="window.hacked = 1">',
  "]]><svg onload=window.hacked=1>",
  "javascript:window.hacked=1",
  "=cmd|' /C calc'!A0",
  "{{script}} $& $1 ${window.hacked=1}",
  "\u202egnp.nekorb\u202c \u2066x\u2069 \u200b|\u200b",
  "\ufffd \u0000 \u0007 \u001b[31m \u2028 \u2029 \ufeff",
  "\ud800 half of a pair \udc00",
  "\u05d0\u05d1\u05d2 (1) \u05d3",
  "a&amp;b&lt;c \u00b0 \u00b5 \ud83d\ude00",
  "../../etc/passwd\\..\\con",
  "__proto__",
  "#/work?code=x&y=z%20+?",
];

export const halfOfPair = /[\ud800-\udbff](?![\udc00-\udfff])|(?<![\ud800-\udbff])[\udc00-\udfff]/g;

export function hostileReport(): SampleReport {
  const builder = new ReportBuilder();
  hostileTexts.forEach((text, index) =>
    builder.rule(
      `code-${index}`,
      text,
      `${text}\n\n\`${text}\`\n\n\`\`\`brannic\n${text}\n\`\`\``,
      text,
    ),
  );
  hostileTexts.forEach((text, index) => {
    // No path holds half of a pair: the program that writes the report has decoded it.
    const path = `hall ${index}/${index} ${text}.pgm`.replace(halfOfPair, "");
    const source = hostileTexts.map((line) => `MSGBOX "${line}" ; ${line}`).join("\n");
    builder.program({
      path,
      output: `out/${text}`,
      machine: text,
      outputState: "edited",
      files: [{ path, text: source }],
      lineMap: [[hostileTexts.length, 0, 0, 1, 1, 0]],
      generated: source,
      current: source.replace("MSGBOX", text.replaceAll("$", "$$$$")),
      findings: [
        {
          code: `code-${index}`,
          line: index + 1,
          origin: index % 2 === 0 ? "check" : "message",
          text,
          lineText: `MSGBOX "${text}" ; ${text}`,
          columns: [3, 9],
          chain: [{ file: text, line: 3 }],
          outputLine: index + 1,
        },
      ],
    });
  });
  builder.program({
    path: "long line.pgm",
    files: [{ path: "long line.pgm", text: `$a = 1\n${"x".repeat(1_000_000)}\n$b = 2\n` }],
    lineMap: [[3, 0, 0, 1, 1, 1]],
    generated: `$a = 1\n${"x".repeat(1_000_000)}\n$b = 2\n`,
    findings: [{ code: "code-0", line: 2, lineText: "x".repeat(1_000_000), outputLine: 2 }],
  });
  return builder.report({
    project: { identity: "ab".repeat(16), name: hostileTexts.join(" ") },
    notices: hostileTexts,
    runs: hostileTexts.slice(0, 2).map((version, index) => ({
      version,
      began: index,
      ended: index,
      programs: 1,
      converted: 1,
      lines: 1,
      convertedLines: 1,
      openFindings: 1,
    })),
  });
}
