// Reports for tests, put together as torvel-migrate does it.

import {
  dataFormat,
  origins,
  outputStates,
  programStatuses,
  severities,
  todos,
  type MappedLines,
  type Origin,
  type OutputState,
  type ProgramDetail,
  type ProgramStatus,
  type Rule,
  type Severity,
  type Summary,
  type Todo,
} from "../../src/data/format.ts";

export interface SampleFinding {
  readonly code: string;
  readonly file?: string;
  readonly line: number;
  readonly columns?: readonly [number, number];
  readonly origin?: Origin;
  readonly todo?: Todo;
  readonly severity?: Severity;
  readonly open?: boolean;
  readonly text?: string;
  readonly lineText?: string;
  readonly chain?: readonly { readonly file: string; readonly line: number }[];
  readonly outputLine?: number;
  readonly furtherLines?: readonly number[];
  /** What makes it another place than one of the same file, line and code. */
  readonly place?: string;
}

export interface SampleProgram {
  readonly path: string;
  readonly output?: string;
  readonly machine?: string;
  readonly status?: ProgramStatus;
  readonly outputState?: OutputState;
  readonly lines?: number;
  readonly convertedLines?: number;
  readonly files?: readonly { readonly path: string; readonly text: string }[];
  readonly lineMap?: readonly MappedLines[];
  readonly generated?: string;
  readonly current?: string | null;
  readonly findings?: readonly SampleFinding[];
}

export interface SampleReport {
  readonly summary: Summary;
  readonly details: readonly ProgramDetail[];
}

type Mutable<T> = { -readonly [K in keyof T]: T[K] };
type Columns<T> = { -readonly [K in keyof T]: number[] };

/** Texts, each once. */
class Strings {
  readonly list: string[] = [];
  private readonly numbers = new Map<string, number>();

  numberOf(text: string): number {
    const known = this.numbers.get(text);
    if (known !== undefined) {
      return known;
    }
    this.numbers.set(text, this.list.length);
    return this.list.push(text) - 1;
  }
}

export class ReportBuilder {
  private readonly strings = new Strings();
  private readonly rules: Rule[] = [];
  private readonly ruleNumbers = new Map<string, number>();
  private readonly places = new Map<string, number>();
  private readonly chains = new Map<string, number>([["[]", 0]]);
  private readonly details: ProgramDetail[] = [];
  private readonly programs: Columns<Summary["programs"]> = {
    path: [],
    output: [],
    machine: [],
    status: [],
    outputState: [],
    lines: [],
    convertedLines: [],
  };
  private readonly findings: Columns<Summary["findings"]> = {
    program: [],
    place: [],
    rule: [],
    file: [],
    line: [],
    column: [],
    lastColumn: [],
    origin: [],
    todo: [],
    severity: [],
    open: [],
    text: [],
    lineText: [],
    chain: [],
    outputLine: [],
    outputLineCount: [],
  };

  rule(code: string, title: string, help: string, section = "Of the rules of tests."): this {
    this.ruleNumbers.set(code, this.rules.push({ code, title, help, section }) - 1);
    return this;
  }

  program(sample: SampleProgram): this {
    const { path, status = "converted", findings = [] } = sample;
    const number = this.programs.path.push(this.strings.numberOf(path)) - 1;
    const { lines = 10, convertedLines = 10, outputState = "as-generated" } = sample;
    this.programs.output.push(this.strings.numberOf(sample.output ?? `out/${path}.torvel`));
    this.programs.machine.push(this.strings.numberOf(sample.machine ?? ""));
    this.programs.status.push(programStatuses.indexOf(status));
    this.programs.outputState.push(outputStates.indexOf(outputState));
    this.programs.lines.push(lines);
    this.programs.convertedLines.push(convertedLines);
    const furtherLines: Record<string, readonly number[]> = {};
    for (const finding of findings) {
      const index = this.addFinding(number, path, finding);
      if (finding.furtherLines !== undefined) {
        furtherLines[index] = finding.furtherLines;
      }
    }
    this.details.push({
      files: sample.files ?? [{ path, text: "" }],
      lineMap: sample.lineMap ?? [],
      generated: sample.generated ?? "",
      current: sample.current ?? null,
      furtherLines,
    });
    return this;
  }

  private addFinding(program: number, path: string, sample: SampleFinding): number {
    const { code, line, file = path, columns = [0, 0], chain = [], origin = "message" } = sample;
    const place = sample.place ?? `${file}:${line}:${code}`;
    const steps = chain.flatMap((step) => [this.strings.numberOf(step.file), step.line]);
    const row: Record<keyof Summary["findings"], number> = {
      program,
      place: numberIn(this.places, place),
      rule: this.ruleNumbers.get(code) as number,
      file: this.strings.numberOf(file),
      line,
      column: columns[0],
      lastColumn: columns[1],
      origin: origins.indexOf(origin),
      todo: todos.indexOf(sample.todo ?? (origin === "check" ? "look" : "rewrite")),
      severity: severities.indexOf(sample.severity ?? (origin === "check" ? "moves" : "")),
      open: sample.open === false ? 0 : 1,
      text: this.strings.numberOf(sample.text ?? "The line cannot be converted."),
      lineText: this.strings.numberOf(sample.lineText ?? ""),
      chain: numberIn(this.chains, JSON.stringify(steps)),
      outputLine: sample.outputLine ?? 0,
      outputLineCount: sample.outputLine === undefined ? 0 : 1,
    };
    (Object.keys(row) as (keyof typeof row)[]).forEach((name) =>
      this.findings[name].push(row[name]),
    );
    return this.findings.program.length - 1;
  }

  report(changes: Partial<Mutable<Summary>> = {}): SampleReport {
    const sum = (column: readonly number[]) => column.reduce((all, value) => all + value, 0);
    const summary: Summary = {
      format: dataFormat,
      version: "1.0.0",
      made: Date.UTC(2026, 10, 21, 18, 30) / 1000,
      project: { identity: "0123456789abcdef0123456789abcdef", name: "sample" },
      runs: [],
      notices: [],
      effort: { rewrite: [10, 40], complete: [5, 15], look: [2, 10], "fix-source": [10, 60] },
      totals: {
        programs: this.programs.path.length,
        lines: sum(this.programs.lines),
        convertedLines: sum(this.programs.convertedLines),
        ...this.counts(),
      },
      rules: this.rules,
      strings: this.strings.list,
      programs: this.programs,
      places: { fingerprint: [...this.places.values()].map(fingerprint) },
      findings: this.findings,
      chains: [...this.chains.keys()].map((text) => JSON.parse(text) as number[]),
      details: "inside",
      ...changes,
    };
    return { summary, details: this.details };
  }

  private counts(): Pick<Summary["totals"], "open" | "finished"> {
    const { open, todo, place } = this.findings;
    const isPlaceOpen = new Set(place.filter((_, i) => open[i] === 1));
    const count = (state: number) =>
      todos.map((_, index) => {
        const rows = place.filter((_, i) => todo[i] === index && open[i] === state);
        const places = new Set(
          place.filter((one, i) => todo[i] === index && isPlaceOpen.has(one) === (state === 1)),
        );
        return [places.size, rows.length] as const;
      });
    return { open: count(1), finished: count(0) };
  }
}

function numberIn(numbers: Map<string, number>, key: string): number {
  const number = numbers.get(key) ?? numbers.size;
  numbers.set(key, number);
  return number;
}

function fingerprint(number: number): string {
  return number.toString(16).padStart(32, "0");
}
