// Takes the place of the editor: whatever is asked for is there, can be called, made and derived from, and does nothing.
// What commands are registered is kept.

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

const registered = [];
const commands = {
  registerCommand: (id) => {
    registered.push(id);
    return { dispose() {} };
  },
};

// What is not there itself is looked for in what stands behind it, as bundlers copy only the former.
module.exports = Object.assign(
  Object.create(new Proxy({}, { get: (_, key) => anything(String(key)) })),
  { registered, commands, version: "1.82.0" },
);
