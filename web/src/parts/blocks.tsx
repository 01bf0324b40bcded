// Long lists: rows in blocks of 100. A block is made when it comes near what is seen, and laid out by the browser when
// it is seen. Lists that are not too long are made whole as soon as there is time, so that finding, selecting and
// printing are the browser's own.

import { Component, createRef, options, type ComponentChildren } from "preact";
import { Block, blockSize } from "./block.tsx";

/** Longer lists are made whole for paper only, and lists that are longer still are not. */
export const mostWhole = 5_000;
const mostPrinted = 20_000;

interface BlocksProps {
  readonly count: number;
  /** About how high a row is, in pixels. */
  readonly rowHeight: number;
  readonly row: (index: number) => ComponentChildren;
  /** Rows are made anew when one of these changed. */
  readonly dependencies: readonly unknown[];
  /** The row that is to be seen, and may look otherwise than the others; -1: none. */
  readonly target?: number;
  /** The role of a block, and its class. */
  readonly role?: "rowgroup" | "presentation";
}

interface BlocksState {
  readonly made: ReadonlySet<number>;
}

export class Blocks extends Component<BlocksProps, BlocksState> {
  override state: BlocksState = { made: firstBlocks(this.props) };
  private readonly root = createRef<HTMLDivElement>();
  private readonly heights = new Map<number, number>();
  private observer: IntersectionObserver | null = null;
  private idle = 0;

  override componentDidMount(): void {
    this.observer = new IntersectionObserver((entries) => this.follow(entries), {
      rootMargin: "1500px 0px",
    });
    window.addEventListener("beforeprint", this.beforePrint);
    this.afterChange(true);
  }

  override componentDidUpdate(before: BlocksProps): void {
    const isNew = before.dependencies.some((value, i) => value !== this.props.dependencies[i]);
    if (isNew || before.count !== this.props.count) {
      this.heights.clear();
    }
    if (before.count !== this.props.count) {
      // Observed anew, blocks that are near are told of once more.
      this.observer?.disconnect();
      this.setState({ made: firstBlocks(this.props) });
    }
    this.afterChange(before.target !== this.props.target);
  }

  override componentWillUnmount(): void {
    this.observer?.disconnect();
    window.removeEventListener("beforeprint", this.beforePrint);
    clearTimeout(this.idle);
  }

  override render({ count, rowHeight, row, dependencies, role, target = -1 }: BlocksProps) {
    const blocks = [];
    for (let block = 0; block * blockSize < count; ++block) {
      const rows = Math.min(blockSize, count - block * blockSize);
      blocks.push(
        <Block
          key={block}
          block={block}
          rows={rows}
          height={this.heights.get(block) ?? rows * rowHeight}
          isMade={this.state.made.has(block)}
          row={row}
          dependencies={dependencies}
          target={Math.floor(target / blockSize) === block ? target : -1}
          role={role ?? "presentation"}
        />,
      );
    }
    return (
      <>
        <div class="blocks" ref={this.root} role="presentation">
          {blocks}
        </div>
        {count > mostPrinted && (
          <p class="print-only">
            This is a part of a list that is too long for paper: choose less of it by its filters.
          </p>
        )}
      </>
    );
  }

  private get isWhole(): boolean {
    return this.props.count <= mostWhole;
  }

  private afterChange(isTargetNew: boolean): void {
    for (const element of this.root.current?.children ?? []) {
      this.observer?.observe(element);
    }
    if (isTargetNew) {
      this.showTarget();
    }
    this.makeMoreLater();
  }

  private follow(entries: readonly IntersectionObserverEntry[]): void {
    this.change((made) => {
      for (const { target, isIntersecting, boundingClientRect } of entries) {
        const block = Number((target as HTMLElement).dataset["block"]);
        if (isIntersecting) {
          made.add(block);
        } else if (!this.isWhole && made.delete(block)) {
          this.heights.set(block, boundingClientRect.height);
        }
      }
    });
  }

  private change(act: (made: Set<number>) => void): void {
    this.setState(({ made: before }) => {
      const made = new Set(before);
      act(made);
      const isSame = made.size === before.size && [...made].every((block) => before.has(block));
      return isSame ? null : { made };
    });
  }

  /** The next blocks, a few at a time. */
  private makeMoreLater(): void {
    clearTimeout(this.idle);
    const blockCount = Math.ceil(this.props.count / blockSize);
    if (this.isWhole && this.state.made.size < blockCount) {
      this.idle = window.setTimeout(() => this.change((made) => addNext(made, blockCount)), 30);
    }
  }

  /** What is printed has to be there when this returns. */
  private readonly beforePrint = () => {
    if (this.props.count > mostPrinted) {
      return;
    }
    const later = options.debounceRendering;
    options.debounceRendering = (update: () => void) => update();
    this.setState({ made: new Set(Array(Math.ceil(this.props.count / blockSize)).keys()) });
    if (later === undefined) {
      delete options.debounceRendering;
    } else {
      options.debounceRendering = later;
    }
  };

  private showTarget(): void {
    const target = this.props.target ?? -1;
    if (target < 0 || target >= this.props.count) {
      return;
    }
    const block = Math.floor(target / blockSize);
    const show = () => {
      const element = this.root.current?.children[block]?.children[target % blockSize];
      if (element !== undefined && !isInSight(element)) {
        element.scrollIntoView({ block: "center" });
      }
    };
    if (this.state.made.has(block)) {
      show();
    } else {
      this.setState(({ made }) => ({ made: new Set(made).add(block) }), show);
    }
  }
}

/** Adds a few blocks that are not made yet, the first ones first. */
function addNext(made: Set<number>, blockCount: number): void {
  for (let block = 0, more = 3; block < blockCount && more > 0; ++block) {
    if (!made.has(block)) {
      made.add(block);
      --more;
    }
  }
}

/** Well inside the window, below what sticks to its top. */
function isInSight(element: Element): boolean {
  const { top, bottom } = element.getBoundingClientRect();
  return top > 160 && bottom < window.innerHeight - 40;
}

function firstBlocks({ count, target = -1 }: BlocksProps): Set<number> {
  const made = new Set<number>();
  if (count > 0) {
    made.add(target < 0 ? 0 : Math.floor(Math.min(target, count - 1) / blockSize));
  }
  return made;
}
