// Writes what editors take from the tables of the converter: node editors/grammar/generate.mjs
//
// The files of Vim and Notepad++ stand in the project, so that they can be taken from it as they are; a test makes them
// again and compares. Those of the VS Code extension are made when it is built.

import { mkdirSync, writeFileSync } from "node:fs";
import { dirname } from "node:path";
import { fileURLToPath } from "node:url";
import { languageConfiguration } from "./language-configuration.mjs";
import { languages } from "./languages.mjs";
import { notepadLanguage } from "./notepad.mjs";
import { snippets } from "./snippets.mjs";
import { textMateGrammar } from "./textmate.mjs";
import { vimFileType, vimSyntax } from "./vim.mjs";

const json = (value) => JSON.stringify(value, null, 2) + "\n";

/** Files of the project by their paths below "editors". */
export function projectFiles() {
  return new Map(
    languages.flatMap((language) => [
      [`vim/syntax/${language.id}.vim`, vimSyntax(language)],
      [`vim/ftplugin/${language.id}.vim`, vimFileType(language)],
      [`notepad++/${language.id}.udl.xml`, notepadLanguage(language)],
    ]),
  );
}

/** Files of the VS Code extension by their paths in it. */
export function extensionFiles() {
  return new Map([
    ...languages.flatMap((language) => [
      [
        `syntaxes/${language.id}.tmLanguage.json`,
        json(textMateGrammar(language)),
      ],
      [
        `language-configuration/${language.id}.json`,
        json(languageConfiguration(language)),
      ],
    ]),
    ["snippets/brannic.json", json(snippets())],
  ]);
}

export function writeFiles(folder, files) {
  for (const [path, text] of files) {
    mkdirSync(dirname(`${folder}/${path}`), { recursive: true });
    writeFileSync(`${folder}/${path}`, text);
  }
}

if (process.argv[1] === fileURLToPath(import.meta.url)) {
  writeFiles(dirname(dirname(process.argv[1])), projectFiles());
}
