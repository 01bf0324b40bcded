// Syntax files of Vim and Neovim. Among matches that begin at one place the one that is defined last counts, and words
// count before them all: so what is tried first by the other grammars stands last here.

import { addressLetters, beginsWithDigit, marker } from "./languages.mjs";
import { wordPattern } from "./word-pattern.mjs";

/** The group that each kind of piece looks like. */
const looks = {
  Comment: "Comment",
  String: "String",
  Number: "Number",
  Variable: "Identifier",
  SystemVariable: "Special",
  Directive: "PreProc",
  Marker: "Error",
  Gcode: "Type",
  Control: "Conditional",
  Statement: "Statement",
  Function: "Function",
  Operator: "Operator",
  Word: "Keyword",
  Constant: "Constant",
};

const capitalized = (kind) => kind[0].toUpperCase() + kind.slice(1);

/** One definition, in lines of a length that people read. */
function keywordLines(group, words) {
  const lines = [];
  let line = `syn keyword ${group}`;
  for (const word of words) {
    if (line.length + 1 + word.length > 110) {
      lines.push(line);
      line = `syn keyword ${group}`;
    }
    line += ` ${word}`;
  }
  return [...lines, line];
}

/**
 * Words right behind a digit, as in "N20HOME X", where Vim sees no word of its own. The older of Vim's two engines looks
 * at the digit first.
 */
function behindDigitLines({ id, words, anyCase }) {
  return Object.entries(words).map(([kind, list]) => {
    const pattern = wordPattern(list.filter((word) => !beginsWithDigit(word)))
      .replaceAll("(?:", "\\%(")
      .replaceAll("|", "\\|")
      .replaceAll(")", "\\)")
      .replaceAll("?", "\\?");
    return `syn match ${id}${capitalized(kind)} /\\%#=1${anyCase ? "\\c" : "\\C"}\\d\\@1<=\\%(${pattern}\\)\\w\\@!/`;
  });
}

function matchLines({ id, lineComments, variables }) {
  const match = (kind, pattern) => `syn match ${id}${kind} ${pattern}`;
  const lines = [
    match("Name", "/\\h\\w*/"),
    match("Axis", "/\\a\\{1,2}\\ze\\d\\+\\%(\\.\\d*\\)\\?\\w\\@!/"),
    match("Gcode", `/\\c[${addressLetters}]\\%([A-Za-z_]\\)\\@!/`),
    match("Gcode", "/[Gg]\\d\\+\\%(\\.\\d\\+\\)\\?/"),
    match("Number", "/\\d\\+\\%(\\.\\d*\\)\\?\\|\\.\\d\\+/"),
    match("Number", "/[0&][xXhH]\\x\\+/"),
    match("Variable", "/\\$\\h\\w*/"),
  ];
  if (variables.indexed.length > 0) {
    const names = `\\%(${variables.indexed.join("\\|")}\\)\\d*\\|${variables.whole.join("\\|")}`;
    lines.push(match("SystemVariable", `/\\c\\$\\%(${names}\\)\\w\\@!/`));
  }
  lines.push(
    match("Directive", "/#\\h\\w*/"),
    match("Marker", `/${marker}\\w\\@!.*/`),
    match("String", '/"[^"]*\\%("\\|$\\)/'),
    ...lineComments.map((sign) =>
      match("Comment", `+${sign}.*+ contains=@Spell`),
    ),
    `syn region ${id}Comment start=+/\\*+ end=+\\*/+ contains=@Spell`,
  );
  return lines;
}

export function vimSyntax(language) {
  const { id, name, anyCase, words, constants, variables } = language;
  const lists = Object.entries(words).flatMap(([kind, list]) =>
    keywordLines(id + capitalized(kind), list),
  );
  const used = [
    ...[
      "Comment",
      "String",
      "Number",
      "Variable",
      "Directive",
      "Marker",
      "Gcode",
    ],
    ...(variables.indexed.length > 0 ? ["SystemVariable"] : []),
    ...Object.keys(words).map(capitalized),
    ...(constants.length > 0 ? ["Constant"] : []),
  ];
  return [
    `" ${name}. Made from the tables of the converter by editors/grammar/generate.mjs: do not edit.`,
    "",
    'if exists("b:current_syntax")',
    "  finish",
    "endif",
    "",
    "syn iskeyword @,48-57,_",
    "syn case match",
    ...matchLines(language),
    ...behindDigitLines(language),
    "",
    ...(constants.length > 0
      ? [...keywordLines(`${id}Constant`, constants), ""]
      : []),
    `syn case ${anyCase ? "ignore" : "match"}`,
    ...lists,
    "",
    `syn sync ccomment ${id}Comment minlines=50`,
    "",
    ...used.map((kind) => `hi def link ${id}${kind} ${looks[kind]}`),
    "",
    `let b:current_syntax = "${id}"`,
    "",
  ].join("\n");
}

const anyBlanks = (words) => words.replaceAll(" ", "\\s\\+");

/** A pattern of Vim for one of the words at the beginning of a statement, behind a label, an N-code or a block delete. */
function statementPattern({ anyCase, blocks }, part) {
  const words = [...blocks[part]].sort(
    (a, b) => b.length - a.length || (a < b ? -1 : 1),
  );
  const label =
    "\\%(/\\d*\\s*\\)\\?\\%(\\%([Nn]\\d\\+\\|:\\h\\w*\\|\\h\\w*:\\)\\s*\\)*";
  // An IF that jumps has no block.
  const jump =
    part === "begin" && blocks.jumps.length > 0
      ? `\\%(\\%(//\\)\\@![^;"\\x27]\\)*\\$\\@1<!\\<\\%(${blocks.jumps.join("\\|")}\\)\\>`
      : "";
  const notBeforeJump = jump === "" ? "" : `\\%(${jump}\\)\\@!`;
  return `${anyCase ? "\\c" : "\\C"}^\\s*${label}\\%(${words.map(anyBlanks).join("\\|")}\\)\\>${notBeforeJump}`;
}

/** The words for matchit, which goes from one to the next with %. */
function matchWords({ blocks }) {
  const part = (words) =>
    words.map((word) => `\\<${anyBlanks(word)}\\>`).join("\\|");
  // "END IF" holds a word that begins a block, and "ELSE IF" too.
  const begin = blocks.begin
    .filter((word) => !word.includes(" "))
    .map((word) => `\\%(\\<END\\s\\+\\|\\<ELSE\\s\\+\\)\\@<!\\<${word}\\>`)
    .join("\\|");
  return [begin, part(blocks.middle), part(blocks.end)].join(":");
}

export function vimFileType(language) {
  const { id, name, anyCase, lineComments } = language;
  const comments = lineComments.map((sign) => `:${sign}`).join(",");
  return `" ${name}. Made from the tables of the converter by editors/grammar/generate.mjs: do not edit.

if exists("b:did_ftplugin")
  finish
endif
let b:did_ftplugin = 1

setlocal comments=s1:/*,mb:*,ex:*/,${comments}
setlocal commentstring=${lineComments[0]}\\ %s
setlocal formatoptions-=t formatoptions+=croql
let &l:include = '\\c^\\s*#include\\s*"\\zs[^"]*\\ze'
let &l:define = '\\c^\\s*#\\%(define\\|macro\\)'
setlocal indentexpr=brannic#indent(v:lnum)
setlocal indentkeys=!^F,o,O,=~end,=~else,=~next,=~loop,=~wend

let b:brannic_begin = '${statementPattern(language, "begin")}'
let b:brannic_middle = '${statementPattern(language, "middle")}'
let b:brannic_end = '${statementPattern(language, "end")}'

let b:match_ignorecase = ${anyCase ? 1 : 0}
let b:match_words = '${matchWords(language)}'

let b:undo_ftplugin = "setlocal comments< commentstring< formatoptions< include< define< indentexpr< indentkeys<"
      \\ . " | unlet! b:brannic_begin b:brannic_middle b:brannic_end b:match_ignorecase b:match_words"
`;
}
