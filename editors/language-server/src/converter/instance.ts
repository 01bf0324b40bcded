// An instance of the converter, made of the bytes of its WebAssembly. After a trap it is of no use: another is made.

import { existsSync, readlinkSync, statSync } from "node:fs";
import makeConverter from "../../generated/language.cjs";
import { mountOf } from "./files.ts";
import type { ConverterModule } from "./module.ts";

export class Instance {
  private readonly mounted = new Set<string>();

  private constructor(private readonly module: ConverterModule) {}

  static async make(wasm: Uint8Array): Promise<Instance> {
    const module = await makeConverter({
      wasmBinary: wasm,
      print: () => undefined,
      printErr: () => undefined,
    });
    followLinks(module);
    return new Instance(module);
  }

  setDocument(path: string, text: Uint8Array): void {
    this.see(path);
    const room = this.module._malloc(text.length + 1);
    this.module.HEAPU8.set(text, room);
    this.withText(path, (at, size) =>
      this.module._languageSetDocument(at, size, room, text.length),
    );
    this.module._free(room);
  }

  forgetDocument(path: string): void {
    this.withText(path, (at, size) => this.module._languageForgetDocument(at, size));
  }

  /** The answer to a question, as JSON. `paths` are those that it may ask for first. */
  ask(question: object, paths: readonly string[]): string {
    paths.forEach((path) => this.see(path));
    const answer = this.withText(JSON.stringify(question), (at, size) =>
      this.module._languageAnswer(at, size),
    );
    const size = this.module._languageAnswerSize();
    return new TextDecoder().decode(this.module.HEAPU8.subarray(answer, answer + size));
  }

  /** Those of the last answer. */
  names(): Int32Array {
    return this.numbers(this.module._languageNames(), this.module._languageNameNumbers());
  }
  lines(): Int32Array {
    return this.numbers(this.module._languageLines(), this.module._languageLineNumbers());
  }

  private numbers(at: number, count: number): Int32Array {
    return this.module.HEAP32.slice(at / 4, at / 4 + count);
  }

  private withText<Result>(text: string, use: (at: number, size: number) => Result): Result {
    const bytes = new TextEncoder().encode(text);
    const room = this.module._malloc(bytes.length + 1);
    this.module.HEAPU8.set(bytes, room);
    const result = use(room, bytes.length);
    this.module._free(room);
    return result;
  }

  /** Lets the converter see the part of this machine's files that a path lies in. */
  private see(path: string): void {
    const mount = mountOf(path);
    if (mount === undefined || this.mounted.has(mount.at) || !isFolder(mount.root)) {
      return;
    }
    this.mounted.add(mount.at);
    const { FS } = this.module;
    FS.mkdirTree(mount.at);
    FS.mount(FS.filesystems.NODEFS, { root: mount.root }, mount.at);
  }
}

function isFolder(path: string): boolean {
  return existsSync(path) && statSync(path).isDirectory();
}

/** The target of a link as it is written; Emscripten makes it a path from the working directory. */
function followLinks({ FS }: ConverterModule): void {
  const { NODEFS } = FS.filesystems;
  NODEFS.node_ops.readlink = (node) => {
    try {
      return readlinkSync(NODEFS.realPath(node));
    } catch (error) {
      throw new FS.ErrnoError(NODEFS.convertNodeCode(error));
    }
  };
}
