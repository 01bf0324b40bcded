// Snippets of the forms of Brannic's statements, for VS Code: those that have a conversion. What a form becomes is told
// beside it.

import { statementForms } from "./tables.mjs";

/** Words that stand for an operand in a form, with a number where there are several. */
const operand =
  /\b(?:NAME|axes|axis|condition|index|name|size|string|task|values?|variable)[0-9]?\b/g;

/** What closes the block that a form opens. */
const closing = {
  DFS: "ENDDFS",
  DO: "LOOP",
  FOR: "NEXT",
  IF: "ENDIF",
  REPEAT: "ENDREPEAT",
  WHILE: "ENDWHILE",
};

/**
 * Without what may be left out, and blanks as people write them. The commas between operands stay: "MOVEINC X 10 -5"
 * would have one operand less than "MOVEINC X, 10, -5".
 */
function written(form) {
  return form
    .replace(/(?<=[a-z0-9\]]) \[,\] (?=[a-z0-9$"]|[A-Z]+[a-z])/g, ", ")
    .replace(/ \[(?:,|[A-Z]+)\]/g, "")
    .replace(/ (\+\+|--)/g, "$1")
    .replace(/ , /g, ", ")
    .replace(/ \( \)/g, "()")
    .replace(/([A-Z]) \( /g, "$1(")
    .replace(/\( /g, "(")
    .replace(/ \)/g, ")");
}

const inSnippet = (text) => text.replace(/[\\$}]/g, "\\$&");

function bodyOf({ brannic, torvel }) {
  let number = 0;
  let from = 0;
  let body = "";
  const text = written(brannic);
  for (const found of text.matchAll(operand)) {
    number += 1;
    body += `${inSnippet(text.slice(from, found.index))}\${${number}:${found[0]}}`;
    from = found.index + found[0].length;
  }
  body += inSnippet(text.slice(from));
  const [word] = text.split(" ");
  if (/^(?:if|for|while|repeat|function) /.test(torvel[0])) {
    return [body, "\t$0", closing[word]];
  }
  return [body];
}

/** The words that a form begins with, as they are typed. */
const prefixOf = ({ brannic }) =>
  /^(?:#[a-z]+|[$A-Z0-9]+(?: [A-Z0-9]+\b)*)/
    .exec(written(brannic))?.[0]
    .toLowerCase();

/** Names in forms that stand for defines of a program. */
const hasExampleName = /\b(?:FEED|HEAD|LEVEL|TITLE)\b/;

export function snippets() {
  const entries = statementForms()
    .filter(
      ({ kind, brannic }) =>
        kind !== "refused" && !hasExampleName.test(brannic),
    )
    .map((form) => [form, prefixOf(form)])
    .filter(([, prefix]) => prefix !== undefined)
    .map(([form, prefix]) => [
      written(form.brannic),
      {
        prefix,
        body: bodyOf(form),
        description: `becomes ${form.torvel.join(" and ")}${form.kind === "converted" ? "" : ` (${form.kind})`}`,
      },
    ]);
  return Object.fromEntries(entries);
}
