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
  return {
    async summary() {
      const summary = await unpacked<Summary>(textOf(page, "summary"));
      if (summary.format !== dataFormat) {
        throw new Error(
          `The data has format ${summary.format}, and this page reads format ${dataFormat}.`,
        );
      }
      return summary;
    },
    async program(number) {
      const inside = page.getElementById(`program-${number}`)?.textContent;
      return unpacked<ProgramDetail>(inside ?? (await detail(number)));
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
    /** What a file of the folder "programs" calls. */
    torvelProgram?: (number: number, base64: string) => void;
    trustedTypes?: {
      createPolicy(
        name: string,
        rules: { createScriptURL: (url: string) => string },
      ): { createScriptURL(url: string): unknown };
    };
  }
}

/** Loads "programs/N.js", which is all that the page's policy lets it load. */
function programLoader(page: Document): (number: number) => Promise<string> {
  const waiting = new Map<number, (base64: string) => void>();
  window.torvelProgram = (number, base64) => waiting.get(number)?.(base64);
  const address = scriptAddress();
  return (number) =>
    new Promise((resolve, reject) => {
      const script = page.createElement("script");
      const end = () => {
        waiting.delete(number);
        script.remove();
      };
      waiting.set(number, (base64) => {
        end();
        resolve(base64);
      });
      script.onload = () => {
        end();
        reject(new Error(`The file programs/${number}.js holds another program.`));
      };
      script.onerror = () => {
        end();
        reject(new Error(`The file programs/${number}.js beside this page cannot be read.`));
      };
      script.src = address(number) as string;
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
