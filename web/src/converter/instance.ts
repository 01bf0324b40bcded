// One instance of the converter with its files. Whatever ends it by force leaves it unusable: `ConverterDied` tells so,
// and whoever wants to go on makes another one of the same bytes.

import makeConverter, { type Glue } from "torvel-converter-glue";
import { Request } from "./request.ts";

/** What was asked for cannot be done; the instance goes on. */
export class ConverterRefused extends Error {
  override readonly name = "ConverterRefused";
}

/** The instance ended: a stack or a memory that was too small, or a fault of the converter. */
export class ConverterDied extends Error {
  override readonly name = "ConverterDied";
}

/** The files of programs by their path in the project, with "/". */
export type Files = ReadonlyMap<string, Uint8Array>;

/** Where the project is in the file system of an instance. */
export const projectFolder = "/project";

export class Converter {
  private isDead = false;

  private constructor(private readonly glue: Glue) {}

  /** The WebAssembly is handed over as bytes: nothing is fetched. */
  static async of(wasm: Uint8Array): Promise<Converter> {
    const ignore = () => {};
    const glue = await makeConverter({ wasmBinary: wasm, print: ignore, printErr: ignore });
    glue.FS.mkdirTree(projectFolder);
    return new Converter(glue);
  }

  /** Bytes of memory that the instance has taken. It gives none back before it ends. */
  get memory(): number {
    return this.glue.HEAPU8.length;
  }

  /** The bytes are not copied, and must not be changed afterwards. */
  putFiles(files: Files): void {
    for (const [path, bytes] of files) {
      const place = placeOf(path);
      this.glue.FS.mkdirTree(place.slice(0, place.lastIndexOf("/")));
      this.glue.FS.writeFile(place, bytes, { canOwn: true });
    }
  }

  removeFile(path: string): void {
    this.glue.FS.unlink(placeOf(path));
  }

  /** Calls a function of src/browser by its name without "torvel". The answer is a copy. */
  call(name: string, request: Request | Uint8Array = new Request()): Uint8Array {
    if (this.isDead) {
      throw new ConverterDied("The converter has ended.");
    }
    try {
      return this.answerOf(name, request instanceof Request ? request.packed() : request);
    } catch (error) {
      if (error instanceof ConverterRefused) {
        throw error;
      }
      this.isDead = true;
      throw new ConverterDied(reasonOf(error));
    }
  }

  /** The same for answers that are text. */
  text(name: string, request?: Request | Uint8Array): string {
    return decoder.decode(this.call(name, request));
  }

  json<T>(name: string, request?: Request | Uint8Array): T {
    return JSON.parse(this.text(name, request)) as T;
  }

  /** A file that the converter wrote outside of the project, or all files of a folder, by their path there. */
  takeWritten(path: string): Map<string, Uint8Array> {
    const { FS } = this.glue;
    const taken = new Map<string, Uint8Array>();
    const visit = (place: string, name: string): void => {
      if (!FS.isDir(FS.stat(place).mode)) {
        taken.set(name, FS.readFile(place));
        FS.unlink(place);
        return;
      }
      for (const entry of FS.readdir(place).filter((entry) => entry !== "." && entry !== "..")) {
        visit(`${place}/${entry}`, name === "" ? entry : `${name}/${entry}`);
      }
    };
    visit(path, "");
    return taken;
  }

  writeFile(place: string, bytes: Uint8Array): void {
    this.glue.FS.mkdirTree(place.slice(0, place.lastIndexOf("/")));
    this.glue.FS.writeFile(place, bytes);
  }

  private answerOf(name: string, request: Uint8Array): Uint8Array {
    const { glue } = this;
    const address = glue._malloc(Math.max(request.length, 1));
    if (address === 0) {
      throw new Error("out of memory");
    }
    glue.HEAPU8.set(request, address);
    const run = glue[`_torvel${name}`];
    if (run === undefined) {
      throw new Error(`there is no function ${name}`);
    }
    const status = run(address, request.length);
    glue._free(address);
    const begin = glue._torvelAnswer();
    const answer = glue.HEAPU8.slice(begin, begin + glue._torvelAnswerSize());
    if (status !== 0) {
      throw new ConverterRefused(decoder.decode(answer));
    }
    return answer;
  }
}

/** Texts of programs are not decoded here: what is text is JSON, or a sentence. */
const decoder = new TextDecoder();

function placeOf(path: string): string {
  return `${projectFolder}/${path}`;
}

function reasonOf(error: unknown): string {
  const text = error instanceof Error ? error.message : String(error);
  if (/call stack|recursion/i.test(text)) {
    return "it is nested more deeply than a browser's stack allows";
  }
  return /memory|allocation/i.test(text) ? "it needs more memory than a tab has" : text;
}
