// What a tab can hold. The program on a machine takes more (docs/limits.md).

const mebibyte = 1 << 20;

export const tabLimits = {
  files: 20_000,
  /** Of one file. */
  fileBytes: 64 * mebibyte,
  /** Of all files. */
  allBytes: 512 * mebibyte,
  /** So long is waited for one program, in milliseconds. */
  patience: 60_000,
} as const;

/** Limits of the converter that are lower here (src/limits.h). */
export const conversionLimits: Readonly<Record<string, number>> = {
  programText: 128 * mebibyte,
  includedFiles: 20_000,
  parameterFile: 16 * mebibyte,
};

/** In one sentence. */
export const limitsText =
  `A tab takes ${tabLimits.files.toLocaleString("en")} files, each of at most ` +
  `${tabLimits.fileBytes / mebibyte} MiB and all together ${tabLimits.allBytes / mebibyte} MiB; a ` +
  `program may have ${conversionLimits["programText"]! / mebibyte} MiB with everything that it ` +
  "includes, and take a minute. torvel-migrate and BrannicToTorvel64 take more.";
