// Reports as large as the page has to bear.

import type { MappedLines } from "../../src/data/format.ts";
import { ReportBuilder, type SampleFinding, type SampleReport } from "./report-builder.ts";

const help = "The operands mean **other things** in Torvel.\n\nWrite `MoveAbsolute()` by hand:\n\n";

/** Many programs in folders, with findings of 60 codes, a third of them in files that many programs include. */
export function manyPrograms(programCount: number, findingCount: number): SampleReport {
  const builder = new ReportBuilder();
  for (let code = 0; code < 60; ++code) {
    builder.rule(`code-${code}`, `The statement number ${code} is no longer supported.`, help);
  }
  const each = findingCount / programCount;
  for (let program = 0; program < programCount; ++program) {
    const folder = `programs/hall${program % 7}/line${program % 40}`;
    const findings: SampleFinding[] = [];
    for (let i = 0; i < each; ++i) {
      const isShared = i % 3 === 0;
      const line = i * 7 + 3;
      findings.push({
        code: `code-${(program * 31 + i * 17) % 60}`,
        line,
        file: isShared ? `programs/shared/part${program % 200}.pgm` : `${folder}/p${program}.pgm`,
        origin: i % 4 === 0 ? "check" : "message",
        open: (program + i) % 5 !== 0,
        lineText: isShared ? `  G1 X${i} F100` : `  PROBE X $v${program % 500}, ${i}`,
        text: `PROBE is no longer supported, use number ${i}.`,
      });
    }
    builder.program({
      path: `${folder}/p${String(program).padStart(5, "0")}.pgm`,
      machine: `programs/hall${program % 7}`,
      lines: 120,
      convertedLines: 110,
      findings,
    });
  }
  return builder.report();
}

/** One program of many lines. */
export function longProgram(lineCount: number): SampleReport {
  const source: string[] = [];
  const output: string[] = [];
  const findings: SampleFinding[] = [];
  for (let line = 1; line <= lineCount; ++line) {
    source.push(`  G1 X${line}.25 Y$angle * 30 F140 ; point ${line}`);
    output.push(`\tG1 X${line}.25 Y($angle * 30) F140 // point ${line}`);
    if (line % 1000 === 0) {
      findings.push({ code: "far", line, outputLine: line, lineText: source.at(-1)! });
    }
  }
  const lineMap: MappedLines[] = [[lineCount, 0, 0, 1, 1, 1]];
  return new ReportBuilder()
    .rule("far", "A line that stands far down.", help)
    .program({
      path: "long.pgm",
      lines: lineCount,
      convertedLines: lineCount,
      files: [{ path: "long.pgm", text: source.join("\r\n") + "\r\n" }],
      generated: output.join("\n") + "\n",
      lineMap,
      findings,
    })
    .report();
}
