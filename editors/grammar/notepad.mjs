// User-defined languages of Notepad++. It has eight lists of words, in which a list of prefixes matches every word that
// begins so, and the case of letters counts everywhere or nowhere.

import { addressLetters, marker } from "./languages.mjs";

const colours = {
  plain: "000000",
  comment: "007F00",
  number: "B35900",
  string: "8A3324",
  operator: "404040",
  control: "0000C8",
  statement: "005FAF",
  function: "6F2DA8",
  word: "2F6F6F",
  constant: "7A4B00",
  directive: "8000FF",
  variable: "1F4F7F",
  gcode: "C00060",
  marker: "D00000",
};

const escaped = (text) =>
  text
    .replaceAll("&", "&amp;")
    .replaceAll("<", "&lt;")
    .replaceAll(">", "&gt;")
    .replaceAll('"', "&quot;");

/** "G0 G1 … G9": words of letters with their value behind them. */
const gcodePrefixes = [...addressLetters].flatMap((letter) =>
  [..."0123456789"].map((digit) => letter + digit),
);

/** What each of the eight lists holds. */
function wordLists({ words, constants }) {
  return [
    { kind: "control", words: words.control },
    { kind: "statement", words: words.statement },
    { kind: "function", words: words.function ?? [] },
    { kind: "word", words: [...(words.word ?? []), ...(words.operator ?? [])] },
    { kind: "constant", words: constants },
    { kind: "directive", words: ["#"], arePrefixes: true },
    { kind: "variable", words: ["$"], arePrefixes: true },
    { kind: "gcode", words: gcodePrefixes, arePrefixes: true },
  ];
}

const quotedWhereBlank = (word) => (word.includes(" ") ? `"${word}"` : word);

function commentList(lineComments) {
  return `${lineComments.map((sign) => `00${sign}`).join(" ")} 01 02 03/* 04*/`;
}

/** Eight delimiters of three parts: what opens, what takes the next character as it is, what closes. */
function delimiterList() {
  const parts = ['"', "", '((" EOL))', marker, "", "((EOL))"];
  return Array.from(
    { length: 24 },
    (_, index) => String(index).padStart(2, "0") + (parts[index] ?? ""),
  ).join(" ");
}

export function notepadLanguage(language) {
  const { name, endings, anyCase, lineComments, blocks } = language;
  const lists = wordLists(language);
  const hexadecimal = [..."ABCDEFabcdef"].join(" ");
  const keywords = [
    ["Comments", commentList(lineComments)],
    ["Numbers, prefix1", "0x 0X 0h 0H &h &H &x &X"],
    ["Numbers, prefix2", ""],
    ["Numbers, extras1", hexadecimal],
    ["Numbers, extras2", ""],
    ["Numbers, suffix1", ""],
    ["Numbers, suffix2", ""],
    ["Numbers, range", ""],
    ["Operators1", "! % & ( ) * + , - / : < = > @ [ ] ^ | ~"],
    ["Operators2", ""],
    ["Folders in code1, open", ""],
    ["Folders in code1, middle", ""],
    ["Folders in code1, close", ""],
    ["Folders in code2, open", blocks.begin.map(quotedWhereBlank).join(" ")],
    ["Folders in code2, middle", blocks.middle.map(quotedWhereBlank).join(" ")],
    ["Folders in code2, close", blocks.end.map(quotedWhereBlank).join(" ")],
    ["Folders in comment, open", ""],
    ["Folders in comment, middle", ""],
    ["Folders in comment, close", ""],
    ...lists.map(({ words }, index) => [
      `Keywords${index + 1}`,
      words.join(" "),
    ]),
    ["Delimiters", delimiterList()],
  ];
  const styles = [
    ["DEFAULT", "plain"],
    ["COMMENTS", "comment"],
    ["LINE COMMENTS", "comment"],
    ["NUMBERS", "number"],
    ...lists.map(({ kind }, index) => [`KEYWORDS${index + 1}`, kind]),
    ["OPERATORS", "operator"],
    ["FOLDER IN CODE1", "control"],
    ["FOLDER IN CODE2", "control"],
    ["FOLDER IN COMMENT", "comment"],
    ["DELIMITERS1", "string"],
    ["DELIMITERS2", "marker"],
    ...[3, 4, 5, 6, 7, 8].map((number) => [`DELIMITERS${number}`, "plain"]),
  ];
  const prefixes = lists
    .map(
      ({ arePrefixes }, index) =>
        `Keywords${index + 1}="${arePrefixes ? "yes" : "no"}"`,
    )
    .join(" ");
  const lines = [
    '<?xml version="1.0" encoding="UTF-8" ?>',
    "<!-- Made from the tables of the converter by editors/grammar/generate.mjs: do not edit. -->",
    "<NotepadPlus>",
    `    <UserLang name="${name}" ext="${endings.join(" ")}" udlVersion="2.1">`,
    "        <Settings>",
    `            <Global caseIgnored="${anyCase ? "yes" : "no"}" allowFoldOfComments="no" foldCompact="no" forcePureLC="0" decimalSeparator="0" />`,
    `            <Prefix ${prefixes} />`,
    "        </Settings>",
    "        <KeywordLists>",
    ...keywords.map(
      ([list, text]) =>
        `            <Keywords name="${list}">${escaped(text)}</Keywords>`,
    ),
    "        </KeywordLists>",
    "        <Styles>",
    ...styles.map(
      ([style, kind]) =>
        `            <WordsStyle name="${style}" fgColor="${colours[kind]}" bgColor="FFFFFF" colorStyle="1" fontName="" fontStyle="${kind === "control" || kind === "marker" ? 1 : 0}" nesting="0" />`,
    ),
    "        </Styles>",
    "    </UserLang>",
    "</NotepadPlus>",
    "",
  ];
  return lines.join("\n");
}
