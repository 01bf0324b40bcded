// A block of a long list: its rows, or room for them until they are made.

import { Component, type ComponentChildren } from "preact";

export const blockSize = 100;

interface BlockProps {
  readonly block: number;
  readonly rows: number;
  readonly height: number;
  readonly isMade: boolean;
  readonly row: (index: number) => ComponentChildren;
  readonly dependencies: readonly unknown[];
  /** The target, if it is in this block. */
  readonly target: number;
  readonly role: "rowgroup" | "presentation";
}

export class Block extends Component<BlockProps> {
  override shouldComponentUpdate(next: BlockProps): boolean {
    const { rows, isMade, dependencies, target } = this.props;
    return (
      next.rows !== rows ||
      next.isMade !== isMade ||
      next.target !== target ||
      next.dependencies.some((value, i) => value !== dependencies[i])
    );
  }

  override render({ block, rows, height, isMade, row, role }: BlockProps) {
    if (!isMade) {
      return (
        <div
          class="block"
          role={role}
          data-block={block}
          {...(role === "rowgroup" ? { "aria-busy": true } : {})}
          style={{ height: `${height}px` }}
        />
      );
    }
    const content = [];
    for (let index = block * blockSize; index < block * blockSize + rows; ++index) {
      content.push(row(index));
    }
    return (
      <div
        class="block made"
        role={role}
        data-block={block}
        style={{ containIntrinsicSize: `auto ${height}px` }}
      >
        {content}
      </div>
    );
  }
}
