// The worker of the page: it has the files, and an instance of the converter. One that has died is replaced by another
// with the same files; what was converted before is kept by the page.

import {
  convertProgram,
  logOf,
  noteFault,
  outputOf,
  recordOf,
  type Outcome,
} from "../converter/conversion.ts";
import { Converter, ConverterDied, ConverterRefused } from "../converter/instance.ts";
import { openProject, type Settings } from "../converter/project.ts";
import { detailOf, makeReport, summaryOf } from "../converter/report.ts";
import { reasonOf, type Refusal } from "./dropped-files.ts";
import type { Answered, Asked, ConvertedProgram, Question, Questions } from "./messages.ts";
import { savedFiles } from "./saved-files.ts";

/** An instance that has taken more than this is replaced when its run has ended: it gives no memory back. */
const largestKept = 128 << 20;

let wasm = new Uint8Array();
let files = new Map<string, Uint8Array>();
let settings: Settings = {};
let current: Converter | null = null;

async function converter(): Promise<Converter> {
  if (current === null) {
    current = await Converter.of(wasm);
    current.putFiles(files);
  }
  return current;
}

async function renewed(): Promise<Converter> {
  current = null;
  const instance = await converter();
  openProject(instance, settings);
  return instance;
}

async function readFiles(list: readonly (readonly [string, File])[]): Promise<Refusal[]> {
  const refused: Refusal[] = [];
  files = new Map();
  for (const [path, file] of list) {
    try {
      files.set(path, new Uint8Array(await file.arrayBuffer()));
    } catch (error) {
      const reason = `It was changed or moved since, or cannot be read: ${reasonOf(error)}`;
      refused.push({ path, reason });
    }
  }
  return refused;
}

function programOf(instance: Converter, outcome: Outcome): ConvertedProgram {
  return {
    outcome,
    output: blobOf(outputOf(instance)),
    log: blobOf(logOf(instance)),
    record: recordOf(instance) as Uint8Array<ArrayBuffer>,
  };
}

const blobOf = (bytes: Uint8Array): Blob => new Blob([bytes as Uint8Array<ArrayBuffer>]);

async function faultOf(number: number, reason: string): Promise<ConvertedProgram> {
  const instance = await renewed();
  const text = `The conversion ended before its time: ${reason}.`;
  return programOf(instance, noteFault(instance, number, text));
}

type Answers = {
  [Name in Question]: (argument: Questions[Name][0]) => Promise<Questions[Name][1]>;
};

const answers: Answers = {
  async start(given) {
    current = null;
    wasm = given.wasm as Uint8Array<ArrayBuffer>;
    return readFiles(given.files);
  },
  async open(given) {
    settings = given;
    current = null;
    return openProject(await converter(), settings);
  },
  async convert(number) {
    const instance = await converter();
    try {
      return programOf(instance, convertProgram(instance, number));
    } catch (error) {
      if (error instanceof ConverterDied || error instanceof ConverterRefused) {
        return faultOf(number, error.message);
      }
      throw error;
    }
  },
  async fault({ number, reason }) {
    return faultOf(number, reason);
  },
  async report(input) {
    const large = current !== null && current.memory > largestKept;
    const instance = large ? await renewed() : await converter();
    const run = makeReport(instance, input);
    return { run, summary: summaryOf(instance, input.ended) };
  },
  async detail(number) {
    return detailOf(await converter(), number);
  },
  async save(input) {
    return savedFiles(await converter(), input);
  },
};

self.onmessage = async ({ data }: MessageEvent<Asked>) => {
  const answer = answers[data.question] as (argument: unknown) => Promise<unknown>;
  const reply: Answered = await answer(data.argument).then(
    (value) => ({ id: data.id, answer: value }),
    (error: unknown) => ({ id: data.id, failure: reasonOf(error) }),
  );
  self.postMessage(reply);
};
