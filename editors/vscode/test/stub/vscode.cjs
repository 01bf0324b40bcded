// Takes the place of the editor: whatever is asked for is there, can be called, made and derived from, and does nothing,
// but for the few parts that tests look at.

const known = new Map();

function anything(name) {
  if (!known.has(name)) {
    const target = function () {};
    known.set(
      name,
      new Proxy(target, {
        get: (_, key) => {
          if (key === "prototype") {
            return target.prototype;
          }
          return typeof key === "symbol" || key === "then" ? undefined : anything(`${name}.${key}`);
        },
        apply: () => anything(`${name}()`),
      }),
    );
  }
  return known.get(name);
}

/** An object whose own parts count; what it does not have is anything. */
const partly = (name, parts) =>
  Object.assign(
    Object.create(new Proxy({}, { get: (_, key) => anything(`${name}.${String(key)}`) })),
    parts,
  );

class EventEmitter {
  listeners = new Set();
  event = (listener) => {
    this.listeners.add(listener);
    return { dispose: () => this.listeners.delete(listener) };
  };
  fire(value) {
    this.listeners.forEach((listener) => listener(value));
  }
  dispose() {
    this.listeners.clear();
  }
}

class Disposable {
  constructor(dispose) {
    this.dispose = dispose;
  }
  static from(...parts) {
    return new Disposable(() => parts.forEach((part) => part.dispose()));
  }
}

class Uri {
  constructor(scheme, path, query) {
    Object.assign(this, { scheme, path, query });
  }
  static from({ scheme, path = "", query = "" }) {
    return new Uri(scheme, path, query);
  }
  static file(path) {
    return new Uri("file", path, "");
  }
  static parse(text) {
    const [, scheme, path, query = ""] = /^([\w-]+):(?:\/\/)?([^?]*)(?:\?(.*))?$/.exec(text);
    return new Uri(scheme, decodeURIComponent(path), decodeURIComponent(query));
  }
  get fsPath() {
    return this.path;
  }
  toString() {
    const path = this.path.split("/").map(encodeURIComponent).join("/");
    const query = this.query === "" ? "" : `?${encodeURIComponent(this.query)}`;
    return `${this.scheme}:${this.scheme === "file" ? "//" : ""}${path}${query}`;
  }
}

class Range {
  constructor(startLine, startCharacter, endLine, endCharacter) {
    this.start = { line: startLine, character: startCharacter };
    this.end = { line: endLine, character: endCharacter };
  }
}

const registered = [];
const commands = {
  registerCommand: (id) => {
    registered.push(id);
    return { dispose() {} };
  },
};

// Tests say by these what happens in the editor.
const visibleRanges = new EventEmitter();
const selection = new EventEmitter();
const changedText = new EventEmitter();
const window = partly("window", {
  activeTextEditor: undefined,
  visibleTextEditors: [],
  onDidChangeTextEditorVisibleRanges: visibleRanges.event,
  onDidChangeTextEditorSelection: selection.event,
});
const workspace = partly("workspace", {
  textDocuments: [],
  onDidChangeTextDocument: changedText.event,
});

// What is not there itself is looked for in what stands behind it, as bundlers copy only the former.
module.exports = partly("vscode", {
  registered,
  commands,
  Disposable,
  EventEmitter,
  Range,
  Uri,
  window,
  workspace,
  happens: { changedText, selection, visibleRanges },
  version: "1.82.0",
});
