// The Markdown that rules are explained in: paragraphs, lists, fenced blocks; `code` and **bold** within lines.

export type Inline = { readonly kind: "text" | "code" | "bold"; readonly text: string };

export type MarkdownBlock =
  | { readonly kind: "paragraph"; readonly text: readonly Inline[] }
  | { readonly kind: "list"; readonly items: readonly (readonly Inline[])[] }
  | { readonly kind: "fence"; readonly language: string; readonly text: string };

export function inlinesOf(text: string): Inline[] {
  const inlines: Inline[] = [];
  let from = 0;
  for (const match of text.matchAll(/`([^`]+)`|\*\*([^*]+)\*\*/g)) {
    if (match.index > from) {
      inlines.push({ kind: "text", text: text.slice(from, match.index) });
    }
    const [whole, code, bold] = match;
    inlines.push(
      code === undefined ? { kind: "bold", text: bold ?? "" } : { kind: "code", text: code },
    );
    from = match.index + whole.length;
  }
  if (from < text.length) {
    inlines.push({ kind: "text", text: text.slice(from) });
  }
  return inlines;
}

export function markdownBlocks(markdown: string): MarkdownBlock[] {
  const blocks: MarkdownBlock[] = [];
  const lines = markdown.split("\n");
  for (let at = 0; at < lines.length;) {
    const fence = /^\s*```(\w*)/.exec(lines[at]!);
    if (fence !== null) {
      const end = endOfFence(lines, at + 1);
      blocks.push({
        kind: "fence",
        language: fence[1] ?? "",
        text: lines.slice(at + 1, end).join("\n"),
      });
      at = end + 1;
    } else if (lines[at]!.trim() === "") {
      ++at;
    } else {
      const end = endOfParagraph(lines, at + 1);
      blocks.push(textBlock(lines.slice(at, end)));
      at = end;
    }
  }
  return blocks;
}

function endOfFence(lines: readonly string[], from: number): number {
  const end = lines.findIndex((line, index) => index >= from && line.trim() === "```");
  return end === -1 ? lines.length : end;
}

function endOfParagraph(lines: readonly string[], from: number): number {
  const end = lines.findIndex(
    (line, index) => index >= from && (line.trim() === "" || line.trimStart().startsWith("```")),
  );
  return end === -1 ? lines.length : end;
}

const bullet = /^\s*[-*] /;

function textBlock(lines: readonly string[]): MarkdownBlock {
  if (!bullet.test(lines[0]!)) {
    return { kind: "paragraph", text: inlinesOf(lines.map((line) => line.trim()).join(" ")) };
  }
  const items: string[] = [];
  for (const line of lines) {
    if (bullet.test(line)) {
      items.push(line.replace(bullet, ""));
    } else {
      items[items.length - 1] += " " + line.trim();
    }
  }
  return { kind: "list", items: items.map(inlinesOf) };
}
