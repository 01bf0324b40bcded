// Loads the program of an unpacked extension and activates it: node activate.cjs EXTENSION
// Prints the commands that it registers.

const path = require("node:path");

const extension = path.resolve(process.argv[2]);
const { main } = require(path.join(extension, "package.json"));
const program = require(path.join(extension, main));
const context = { subscriptions: [], asAbsolutePath: () => path.join(extension, "no-server") };
program.activate(context).then(() => {
  console.log(JSON.stringify(require(path.join(extension, "node_modules/vscode")).registered));
  process.exit(0);
});
