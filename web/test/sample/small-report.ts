// Three programs for two machines: one edited by hand, one that includes the same file, one that could not be read.

import type { MappedLines } from "../../src/data/format.ts";
import { ReportBuilder, type SampleFinding, type SampleReport } from "./report-builder.ts";

const tool = { path: "mill/inc/tool.pgm", text: "; tools\n$a = 1e3\nDFS change\nENDDFS\n" };

/** `includeLine` is where the program includes the tools. */
function inTool(program: string, includeLine: number, outputLine: number): SampleFinding {
  return {
    code: "value-cut",
    file: tool.path,
    line: 2,
    columns: [7, 8],
    origin: "check",
    text: "Text behind the value of an assignment is dropped.",
    lineText: "$a = 1e3",
    chain: [{ file: program, line: includeLine }],
    outputLine,
  };
}

const mainSource = [
  "; Main program",
  '#include "inc/tool.pgm"',
  "HOME X Y",
  "PROBE X",
  "DVAR $b, $c",
  "RAMP RATE 5",
  "END PROGRAM",
  "",
].join("\r\n");

const mainGenerated = [
  "// Main program",
  '// #include "inc/tool.pgm" // start',
  "// tools",
  "$a = 1",
  "function change()",
  "end",
  '// #include "inc/tool.pgm" // end',
  "Home([X, Y])",
  "#error_unconvertible (mill/main.pgm:4): PROBE X",
  "var $b",
  "var $c",
  "SetupCoordinatedRampValue(RampMode.Rate, 5)",
  "ProgramExit()",
  "",
].join("\n");

const mainMap: MappedLines[] = [
  [2, 0, 0, 1, 1, 1],
  [4, 1, 1, 1, 1, 1],
  [1, 1, 1, 4, 1, 1],
  [1, 0, 0, 3, 1, 1],
  [1, 0, 0, 4, 1, 0],
  [1, 0, 0, 5, 2, 1],
  [2, 0, 0, 6, 1, 1],
];

export function smallReport(): SampleReport {
  const mill = { machine: "mill" };
  return new ReportBuilder()
    .rule(
      "probe-unsupported",
      "PROBE is no longer supported.",
      "Torvel has no `PROBE`. Write:\n\n```torvel\nMoveToLimit(X)\n```\n\n- **one** item\n- another",
      "Not converted: not in Torvel.",
    )
    .rule(
      "value-cut",
      "Text behind the value of an assignment is dropped.",
      "The value ends where the next word cannot continue it.\n\n```brannic\n$a = 1e3\n```",
      "Moves: another motion, axis, value or order.",
    )
    .rule("ramp-unit", "`RAMP TIME` and `RAMP RATE` become the same call.", "Look at the unit.")
    .rule("string-not-terminated", "Unterminated string literal.", "Close the string.")
    .program({
      path: "laser/broken.pgm",
      machine: "laser",
      status: "unreadable",
      outputState: "none",
      lines: 0,
      convertedLines: 0,
      files: [{ path: "laser/broken.pgm", text: 'HOME X\nMSGBOX "open\n' }],
      findings: [
        {
          code: "string-not-terminated",
          line: 2,
          todo: "fix-source",
          text: "Unterminated string literal.",
          lineText: 'MSGBOX "open',
        },
      ],
    })
    .program({
      path: "mill/main.pgm",
      output: "out/mill/main.torvel",
      ...mill,
      outputState: "edited",
      lines: 9,
      convertedLines: 8,
      files: [{ path: "mill/main.pgm", text: mainSource }, tool],
      lineMap: mainMap,
      generated: mainGenerated,
      current: mainGenerated.replace(/#error.*\n/, "MoveToLimit(X)\n// by hand\n"),
      findings: [
        inTool("mill/main.pgm", 2, 4),
        {
          code: "probe-unsupported",
          line: 4,
          open: false,
          text: "PROBE is no longer supported.",
          lineText: "PROBE X",
          outputLine: 9,
        },
        {
          code: "ramp-unit",
          line: 6,
          origin: "check",
          columns: [1, 9],
          text: "RAMP TIME and RAMP RATE become the same call.",
          lineText: "RAMP RATE 5",
          outputLine: 12,
        },
      ],
    })
    .program({
      path: "mill/second.pgm",
      ...mill,
      lines: 5,
      convertedLines: 4,
      files: [{ path: "mill/second.pgm", text: '#include "inc/tool.pgm"\nPROBE Y\n' }, tool],
      lineMap: [
        [1, 0, 0, 1, 1, 1],
        [4, 1, 1, 1, 1, 1],
        [1, 1, 1, 4, 1, 1],
        [1, 0, 0, 2, 1, 0],
      ],
      generated: [
        '// #include "inc/tool.pgm" // start',
        "// tools",
        "$a = 1",
        "function change()",
        "end",
        '// #include "inc/tool.pgm" // end',
        "#error_unconvertible (mill/second.pgm:2): PROBE Y",
        "",
      ].join("\n"),
      findings: [
        inTool("mill/second.pgm", 1, 3),
        {
          code: "probe-unsupported",
          line: 2,
          text: "PROBE is no longer supported.",
          lineText: "PROBE Y",
          outputLine: 7,
        },
      ],
    })
    .report({
      notices: ["mill/inc/tool.pgm: two programs include it."],
      runs: [
        {
          version: "0.9.0",
          began: Date.UTC(2026, 10, 1, 6) / 1000,
          ended: 0,
          programs: 2,
          converted: 1,
          lines: 9,
          convertedLines: 7,
          openFindings: 6,
        },
        {
          version: "1.0.0",
          began: Date.UTC(2026, 10, 21, 18, 30) / 1000,
          ended: Date.UTC(2026, 10, 21, 18, 31) / 1000,
          programs: 3,
          converted: 2,
          lines: 14,
          convertedLines: 12,
          openFindings: 4,
        },
      ],
    });
}
