// The words of Brannic and the forms of its statements, from the tables of the converter.

import words from "../../generated/words.json";

export interface StatementForm {
  readonly brannic: string;
  readonly torvel: readonly string[];
  readonly kind: string;
}

export interface Words {
  readonly control: readonly string[];
  readonly statements: readonly string[];
  readonly functions: readonly string[];
  readonly operators: readonly string[];
  readonly words: readonly string[];
  readonly variables: readonly string[];
  readonly directives: readonly string[];
  readonly forms: readonly StatementForm[];
}

export const tables: Words = words;

/** Words that stand in a form as they are: in capitals. Operands have small letters. */
export function literalWords(form: StatementForm): string[] {
  return form.brannic.match(/(?<![$\w])[A-Z][A-Z0-9_]+(?!\w)/g) ?? [];
}

const formsByWord = new Map<string, StatementForm[]>();
for (const form of tables.forms) {
  const first = /^[^\s(=[]+/.exec(form.brannic)?.[0] ?? "";
  formsByWord.set(first, [...(formsByWord.get(first) ?? []), form]);
}

/** The forms of a statement that begins with `leading`; those first that have more of the line's words. */
export function formsOf(leading: string, line: string): StatementForm[] {
  const upper = leading.toUpperCase();
  const known = formsByWord.get(upper);
  if (known === undefined) {
    return leading.startsWith("$") ? assignments(line) : [];
  }
  const present = new Set(line.toUpperCase().match(/\w+/g) ?? []);
  const isWhole = (form: StatementForm) => literalWords(form).every((word) => present.has(word));
  const fitting = known.filter(isWhole);
  const length = (form: StatementForm) => literalWords(form).length;
  return (fitting.length > 0 ? fitting : known).slice().sort((a, b) => length(b) - length(a));
}

function assignments(line: string): StatementForm[] {
  const sign = /(\+\+|--|[+\-*/|&]=|>>=|<<=|=)/.exec(line)?.[0] ?? "=";
  return tables.forms.filter(
    ({ brannic }) => brannic === `variable ${sign} value` || brannic === `variable ${sign}`,
  );
}

/** The words that may follow in a line that begins with `leading`. */
export function wordsBehind(leading: string): string[] {
  const found = new Set<string>();
  for (const form of formsByWord.get(leading.toUpperCase()) ?? []) {
    literalWords(form)
      .slice(1)
      .forEach((word) => found.add(word));
  }
  return [...found];
}
