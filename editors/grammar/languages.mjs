// The two languages as every grammar here is made of them: their words by kind, their comments, their blocks. The kinds
// are those by which the report page colours; a word has one.

import { grammarTables } from "./tables.mjs";

/** File endings that are programs of Brannic, without the point; those that torvel-migrate looks for. */
export const brannicEndings = ["pgm", "prg"];

function brannic(tables) {
  return {
    id: "brannic",
    name: "Brannic",
    endings: brannicEndings,
    /** Letters of keywords match in both cases; constants are as they are written. */
    anyCase: true,
    lineComments: [";", "'", "//"],
    words: {
      control: tables.control,
      statement: tables.statements,
      function: tables.functions,
      operator: tables.operators,
      word: tables.words,
    },
    constants: tables.constants,
    /** Variables of the controller: with digits behind them, and those that are the user's with digits behind them. */
    variables: {
      indexed: tables.variables.filter(
        (name) => !tables.wholeVariables.includes(name),
      ),
      whole: tables.wholeVariables,
    },
    directives: tables.directives,
    blocks: tables.blocks,
  };
}

function torvel(tables) {
  return {
    id: "torvel",
    name: "Torvel",
    endings: ["torvel"],
    anyCase: false,
    lineComments: ["//"],
    words: { control: tables.control, statement: tables.functions },
    constants: [],
    variables: { indexed: [], whole: [] },
    directives: tables.directives,
    blocks: tables.blocks,
  };
}

const tables = grammarTables();

export const languages = [brannic(tables.brannic), torvel(tables.torvel)];

/** What stands in front of a line that has no conversion; the rest of the line is a line of Brannic. */
export const marker = tables.torvel.marker;

/** Letters that are words of G-code when no letter follows. */
export const addressLetters = "EFGIJKLMNOPQRST";

/** Whether a word is that of a keyword that begins with a digit, which no other word does. */
export const beginsWithDigit = (word) => /^[0-9]/.test(word);
