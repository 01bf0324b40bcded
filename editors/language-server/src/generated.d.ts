// What build.mjs makes.

declare module "*/generated/language.cjs" {
  import type { ConverterModule, ModuleOptions } from "./converter/module.ts";
  const makeConverter: (options: ModuleOptions) => Promise<ConverterModule>;
  export default makeConverter;
}

declare module "*/generated/language.wasm" {
  const bytes: Uint8Array;
  export default bytes;
}

declare module "*/generated/words.json" {
  import type { Words } from "./language/words.ts";
  const words: Words;
  export default words;
}
