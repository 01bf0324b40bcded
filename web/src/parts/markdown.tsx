// What a rule's entry says.

import { markdownBlocks, type Inline, type MarkdownBlock } from "../data/markdown.ts";
import { linesOf } from "../data/sheet.ts";
import { brannicLanguage, torvelLanguage, type Language } from "../language/words.ts";
import { Code } from "./code.tsx";
import { Text } from "./text.tsx";

const languages: Readonly<Record<string, { name: string; language: Language | null }>> = {
  brannic: { name: "Brannic", language: brannicLanguage },
  torvel: { name: "Torvel", language: torvelLanguage },
  checks: { name: "Findings", language: null },
};

export function Markdown({ text }: { text: string }) {
  return (
    <div class="markdown">
      {markdownBlocks(text).map((block) => (
        <Block block={block} />
      ))}
    </div>
  );
}

function Block({ block }: { block: MarkdownBlock }) {
  switch (block.kind) {
    case "paragraph":
      return (
        <p>
          <Inlines inlines={block.text} />
        </p>
      );
    case "list":
      return (
        <ul>
          {block.items.map((item) => (
            <li>
              <Inlines inlines={item} />
            </li>
          ))}
        </ul>
      );
    case "fence":
      return <Example language={block.language} text={block.text} />;
  }
}

export function Inlines({ inlines }: { inlines: readonly Inline[] }) {
  return (
    <>
      {inlines.map(({ kind, text }) => {
        const content = <Text text={text} />;
        return kind === "code" ? (
          <code>{content}</code>
        ) : kind === "bold" ? (
          <strong>{content}</strong>
        ) : (
          content
        );
      })}
    </>
  );
}

function Example({ language, text }: { language: string; text: string }) {
  const known = languages[language];
  const coloured = known?.language ?? null;
  return (
    <figure class="example">
      {known !== undefined && <figcaption>{known.name}</figcaption>}
      <pre>
        {linesOf(text).map((line) => (
          <span class="example-line">
            {coloured === null ? <Text text={line} /> : <Code text={line} language={coloured} />}
            {"\n"}
          </span>
        ))}
      </pre>
    </figure>
  );
}
