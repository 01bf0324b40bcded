// What Emscripten makes beside the WebAssembly. Whoever bundles it tells where it is: build/wasm/converter.js.

declare module "torvel-converter-glue" {
  /** The part of Emscripten's file system that is used. Its files are in memory. */
  export interface FileSystem {
    mkdirTree(path: string): void;
    /** With `canOwn` the bytes are not copied, and must not be changed afterwards. */
    writeFile(path: string, bytes: Uint8Array, options?: { canOwn: boolean }): void;
    readFile(path: string): Uint8Array;
    readdir(path: string): string[];
    unlink(path: string): void;
    rmdir(path: string): void;
    stat(path: string): { mode: number };
    isDir(mode: number): boolean;
  }

  export interface Glue {
    readonly FS: FileSystem;
    /** Another array when the memory has grown. */
    readonly HEAPU8: Uint8Array;
    _malloc(size: number): number;
    _free(address: number): void;
    _torvelAnswer(): number;
    _torvelAnswerSize(): number;
    /** The functions of src/browser. */
    readonly [name: `_torvel${string}`]: (address: number, size: number) => number;
  }

  export default function makeConverter(options: {
    wasmBinary: Uint8Array;
    print: (text: string) => void;
    printErr: (text: string) => void;
  }): Promise<Glue>;
}
