// Where the viewer has its data from: the page that it stands in, or whoever calls it.

import { dataFormat, type ProgramDetail, type Summary } from "./format.ts";
import { unpacked } from "./unpack.ts";

export interface DataSource {
  summary(): Promise<Summary>;
  /** The texts of a program by its number in the summary. */
  program(number: number): Promise<ProgramDetail>;
}

/** The data of a page that `torvel-migrate` wrote. */
export function pageSource(page: Document): DataSource {
  const detail = programLoader(page);
  let made = "";
  return {
    async summary() {
      const summary = await unpacked<Summary>(textOf(page, "summary"));
      if (summary.format !== dataFormat) {
        throw new Error(
          `The data has format ${summary.format}, and this page reads format ${dataFormat}.`,
        );
      }
      made = String(summary.made);
      return summary;
    },
    async program(number) {
      const inside = page.getElementById(`program-${number}`)?.textContent;
      return unpacked<ProgramDetail>(inside ?? (await detail(number, made)));
    },
  };
}

function textOf(page: Document, id: string): string {
  const text = page.getElementById(id)?.textContent;
  if (text === undefined || text === null) {
    throw new Error("There is no report in this page.");
  }
  return text;
}

declare global {
  interface Window {
    /** What a file of the folder "programs" calls. The stamp is `made` of the report that it was written for. */
    torvelProgram?: (number: number, base64: string, stamp: string) => void;
    trustedTypes?: {
      createPolicy(
        name: string,
        rules: { createScriptURL: (url: string) => string },
      ): { createScriptURL(url: string): unknown };
    };
  }
}

/** What a file of a program gave. */
interface Given {
  readonly base64: string;
  readonly stamp: string;
}

type ProgramLoader = (number: number, made: string) => Promise<string>;

/** Loads "programs/N.js", which is all that the page's policy lets it load. */
function programLoader(page: Document): ProgramLoader {
  const given = new Map<number, Given>();
  window.torvelProgram = (number, base64, stamp) => given.set(number, { base64, stamp });
  const address = scriptAddress();
  return async (number, made) => {
    await loaded(page, address(number), `programs/${number}.js`);
    const program = given.get(number);
    given.delete(number);
    if (program === undefined) {
      throw new Error(`The file programs/${number}.js holds another program.`);
    }
    if (program.stamp !== made) {
      throw new Error("A newer report was written in the place of this one: load the page again.");
    }
    return program.base64;
  };
}

function loaded(page: Document, address: unknown, name: string): Promise<void> {
  return new Promise((resolve, reject) => {
    const script = page.createElement("script");
    script.onload = () => {
      script.remove();
      resolve();
    };
    script.onerror = () => {
      script.remove();
      reject(new Error(`The file ${name} beside this page cannot be read.`));
    };
    script.src = address as string;
    page.head.append(script);
  });
}

/** An address that the policy of the page takes for a script's: nothing but a program's file. */
function scriptAddress(): (number: number) => unknown {
  const rules = {
    createScriptURL: (url: string) => {
      if (!/^programs\/[0-9]+\.js$/.test(url)) {
        throw new TypeError(`${url} is no program's file.`);
      }
      return url;
    },
  };
  const policy = window.trustedTypes?.createPolicy("torvel-programs", rules) ?? rules;
  return (number) => policy.createScriptURL(`programs/${number}.js`);
}
