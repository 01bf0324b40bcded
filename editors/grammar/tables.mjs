// The words of both languages as the converter knows them, for everything that colours text. They are read from the
// rows of its tables, so that no list of keywords is kept twice.
//
//   node editors/grammar/tables.mjs [FILE]   writes them as JSON, to the standard output if no file is named

import { mkdirSync, readdirSync, readFileSync, writeFileSync } from "node:fs";
import { dirname } from "node:path";
import { fileURLToPath } from "node:url";

const root = new URL("../../", import.meta.url);

/** The text of a file of the project, comments of whole lines left out. */
function textOf(path) {
  return readFileSync(new URL(path, root), "utf8").replace(/^\s*\/\/.*$/gm, "");
}

/** The arguments of each row that one of `names` begins, quotes taken off. Macros that are defined are no rows. */
function rowsOf(path, names) {
  const row = new RegExp(
    `^(?:${names})\\(([^)]*(?:\\([^)]*\\)[^)]*)*)\\)`,
    "gm",
  );
  const argument = /\s*(?:"((?:[^"\\]|\\.)*)"|([^,]*))\s*(?:,|$)/y;
  return [...textOf(path).matchAll(row)].map(([, list]) => {
    const found = [];
    argument.lastIndex = 0;
    while (argument.lastIndex < list.length) {
      const [, quoted, plain] = argument.exec(list);
      found.push(quoted ?? plain.trim());
    }
    return found;
  });
}

function filesOf(folder, ending) {
  return readdirSync(new URL(folder, root))
    .filter((name) => name.endsWith(ending))
    .sort()
    .map((name) => folder + name);
}

/** Sorted, each once. A table that gave nothing was not understood. */
function list(what, words) {
  const sorted = [...new Set(words)].sort();
  if (sorted.length === 0) {
    throw new Error(
      `No ${what} were found: a table is written in another way than this program reads.`,
    );
  }
  return sorted;
}

function brannic() {
  const kinds = "src/base/token-kinds.def";
  const spellingsOf = new Map();
  const add = (kind, spelling) =>
    spellingsOf.set(kind, [...(spellingsOf.get(kind) ?? []), spelling]);
  rowsOf(kinds, "KEYWORD").forEach(([kind, spelling]) => add(kind, spelling));
  const keywords = new Set([
    ...spellingsOf.keys(),
    ...rowsOf(kinds, "UNSPELLED").map(([kind]) => kind),
  ]);
  rowsOf("src/lex/keyword-spellings.def", "SPELLING").forEach(
    ([spelling, kind]) => add(kind, spelling),
  );

  const spelled = (wanted) =>
    wanted.flatMap((kind) => spellingsOf.get(kind) ?? []);
  const flow = "src/stmt/flow-control.def";
  const leading =
    "STATEMENT|UNCHECKED|FORM|FORM_ADVISED|REFUSED|BY_WORD|MESSAGE_COMMAND|LIBRARY_CALL";
  const called =
    "FUNCTION|STATUS|STATUS_ADVISED|ROUTINE|REFUSED|VALUE|VALUE_FORM|VALUE_ROUTINE";
  const firsts = (paths, names) =>
    paths.flatMap((path) => rowsOf(path, names)).map(([kind]) => kind);

  const control = list(
    "words of control",
    spelled(firsts([flow], "STATEMENT")),
  );
  const statements = list(
    "statements",
    spelled(firsts(filesOf("src/stmt/", ".def"), leading)).filter(
      (word) => !control.includes(word),
    ),
  );
  const functions = list(
    "functions",
    spelled(
      firsts(["src/expr/functions.def", "src/stmt/values.def"], called),
    ).filter((word) => !control.includes(word) && !statements.includes(word)),
  );
  const operators = list("operators", [
    ...spelled([...spellingsOf.keys()].filter((kind) => !keywords.has(kind))),
    ...spelled(["BNAND", "BNOR"]),
  ]);
  const taken = new Set([
    ...control,
    ...statements,
    ...functions,
    ...operators,
  ]);
  const words = list(
    "words",
    [...spellingsOf.values()].flat().filter((word) => !taken.has(word)),
  );
  const lexed = textOf("src/lex/keywords.cpp");
  const named = [...lexed.matchAll(/\{"([A-Z]+)",\s*TokenType::(\w+)\}/g)];
  const [whole] = /bool isWhole\([^]*?return true/.exec(lexed);
  const wholeKinds = [...whole.matchAll(/case (\w+):/g)].map(
    ([, kind]) => kind,
  );
  const variables = list(
    "variables",
    named.map(([, name]) => name),
  );
  const wholeVariables = list(
    "variables without an index",
    named
      .filter(([, , kind]) => wholeKinds.includes(kind))
      .map(([, name]) => name),
  );
  const preprocessed = textOf("src/preprocess/directives.cpp").matchAll(
    /\{"([a-z]+)",\s*run\w+\}/g,
  );
  const directives = list("directives", [
    ...rowsOf(kinds, "DIRECTIVE").map(([, spelling]) => spelling),
    ...[...preprocessed].map(([, name]) => `#${name}`),
  ]);
  return {
    control,
    statements,
    functions,
    operators,
    words,
    variables,
    wholeVariables,
    directives,
    constants: constants(),
    blocks: blocks(spelled),
  };
}

/** What a row of the page of statements holds: a form of Brannic, what it becomes, and how it is converted. */
export function statementForms() {
  const [statements] = textOf("docs/statements.md").split(
    "\n## Values behind an assignment\n",
  );
  const row = /^\| `(.+?)` \| (.+) \| (\w[\w ]*) \|$/gm;
  return list("forms", statements.match(row) ?? []).map((text) => {
    row.lastIndex = 0;
    const [, brannic, become, kind] = row.exec(text);
    const lines = [...become.matchAll(/`([^`]+)`/g)].map(([, line]) => line);
    return { brannic: brannic.replaceAll("\\|", "|"), torvel: lines, kind };
  });
}

/**
 * The words that begin, go on with and end a block, told by what their forms become. A word of several, such as "END
 * IF", is that with one blank.
 */
function blocks(spelled) {
  const forms = statementForms().filter(({ kind }) => kind !== "refused");
  const wordsThatBecome = (torvel) =>
    forms
      .filter(({ torvel: [first = ""] }) => torvel.test(first))
      .map(({ brannic }) => /^[A-Z]+( [A-Z]+\b)*/.exec(brannic)[0])
      .flatMap((words) =>
        words
          .split(" ")
          .map((word) => spelled([word]))
          .reduce((before, spellings) =>
            before.flatMap((start) =>
              spellings.map((word) => `${start} ${word}`),
            ),
          ),
      );
  return {
    /** Behind one of these a line with the beginning of a block has none: "IF $a THEN GOTO there". */
    jumps: list("jumps", spelled(["GOTO"])),
    begin: list(
      "beginnings of blocks",
      wordsThatBecome(/^(?:if|for|while|repeat|function) /),
    ),
    middle: list("parts of blocks", wordsThatBecome(/^else/)),
    end: list("ends of blocks", wordsThatBecome(/^end$/)),
  };
}

/** Names that the controller's software defines. */
function constants() {
  const items = rowsOf(
    "data/data-items.def",
    "[A-Z_]*ITEM(?:_MISSPELLED)?",
  ).map(([, legacy]) => `DATAITEM_${legacy}`);
  const others = filesOf("data/", ".def").flatMap((path) =>
    rowsOf(path, "PREDEFINED|PREDEFINED_REPLACED").map(([name]) => name),
  );
  return list(
    "constants",
    [...items, ...others].filter((name) => /^\w+$/.test(name)),
  );
}

/** What is kept of the directives of Brannic, with the word that Torvel has for the one. */
const keptDirectives = {
  "#define": "#define",
  "#else": "#else",
  "#elseif": "#elif",
  "#endif": "#endif",
  "#ifdef": "#ifdef",
  "#ifndef": "#ifndef",
  "#macro": "#macro",
  "#undef": "#undef",
};

function torvel(directives) {
  const words = rowsOf("src/checks/torvel-words.def", "WORD").map(
    ([word]) => word,
  );
  const isLower = (word) => word === word.toLowerCase();
  return {
    control: list("words of Torvel", words.filter(isLower)),
    functions: list(
      "names of Torvel",
      words.filter((word) => !isLower(word)),
    ),
    directives: directives.flatMap((name) => keptDirectives[name] ?? []),
    marker: "#error_unconvertible",
    blocks: {
      jumps: [],
      begin: ["for", "function", "if", "repeat", "while"],
      middle: ["else", "elseif"],
      end: ["end"],
    },
  };
}

export function grammarTables() {
  const legacy = brannic();
  return { brannic: legacy, torvel: torvel(legacy.directives) };
}

if (process.argv[1] === fileURLToPath(import.meta.url)) {
  const text = JSON.stringify(grammarTables(), null, 1) + "\n";
  const [, , file] = process.argv;
  if (file === undefined) {
    process.stdout.write(text);
  } else {
    mkdirSync(dirname(file), { recursive: true });
    writeFileSync(file, text);
  }
}
