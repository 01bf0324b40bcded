// A regular expression that matches any of many words, made so that each letter of a text decides between few ways.
// Hundreds of words as one alternation would be tried one after the other at every word of a program.

/** The words as a tree of their letters; the empty letter ends one. */
function treeOf(words) {
  const tree = new Map();
  for (const word of words) {
    let at = tree;
    for (const letter of [...word, ""]) {
      if (!at.has(letter)) {
        at.set(letter, new Map());
      }
      at = at.get(letter);
    }
  }
  return tree;
}

function patternOf(tree) {
  const ways = [...tree].map(([letter, rest]) =>
    letter === "" ? "" : letter + patternOf(rest),
  );
  const longer = ways.filter((way) => way !== "");
  if (longer.length === 0) {
    return "";
  }
  const isWhole = longer.length === ways.length;
  if (longer.length === 1 && isWhole) {
    return longer[0];
  }
  const group = `(?:${longer.join("|")})`;
  return isWhole ? group : `${group}?`;
}

/** Matches the longest of the words that the text begins with; what may follow is up to the caller. */
export function wordPattern(words) {
  if (words.some((word) => !/^\w+$/.test(word))) {
    throw new Error(
      "A word has a character that means something in a pattern.",
    );
  }
  return patternOf(treeOf([...words].sort()));
}

/** The words, any blanks where they have one, letters in both cases, without the flag that not every editor has. */
export function blockPattern(words, anyCase) {
  const spelled = (word) =>
    word
      .replace(/[a-z]/gi, (letter) =>
        anyCase ? `[${letter.toUpperCase()}${letter.toLowerCase()}]` : letter,
      )
      .replaceAll(" ", "[ \\t]+");
  // Longer ones first: "ELSE IF" before "ELSE".
  const sorted = [...words].sort(
    (a, b) => b.length - a.length || (a < b ? -1 : 1),
  );
  return `(?:${sorted.map(spelled).join("|")})(?![A-Za-z0-9_])`;
}
