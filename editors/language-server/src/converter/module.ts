// What Emscripten makes of the converter.

export interface FileSystemNode {
  readonly id: number;
}

export interface ConverterModule {
  readonly HEAPU8: Uint8Array;
  readonly HEAP32: Int32Array;
  readonly FS: {
    readonly filesystems: {
      readonly NODEFS: {
        readonly node_ops: { readlink: (node: FileSystemNode) => string };
        realPath(node: FileSystemNode): string;
        convertNodeCode(error: unknown): number;
      };
    };
    readonly ErrnoError: new (code: number) => Error;
    mkdirTree(path: string): void;
    mount(type: unknown, options: { root: string }, at: string): void;
  };
  _malloc(size: number): number;
  _free(at: number): void;
  _languageSetDocument(path: number, pathSize: number, text: number, textSize: number): void;
  _languageForgetDocument(path: number, pathSize: number): void;
  _languageAnswer(question: number, size: number): number;
  _languageAnswerSize(): number;
  _languageNames(): number;
  _languageNameNumbers(): number;
  _languageLines(): number;
  _languageLineNumbers(): number;
}

export interface ModuleOptions {
  readonly wasmBinary: Uint8Array;
  readonly print: (line: string) => void;
  readonly printErr: (line: string) => void;
}
