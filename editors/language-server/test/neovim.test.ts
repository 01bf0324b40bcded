// Neovim with its own client: it opens the plant, shows findings, goes to an include, and shows the Torvel.

import assert from "node:assert/strict";
import { execFileSync, spawnSync } from "node:child_process";
import { cpSync, readFileSync } from "node:fs";
import { resolve } from "node:path";
import { test } from "node:test";
import { Folder, serverFile } from "./client.ts";

const hasNeovim = spawnSync("nvim", ["--version"]).status === 0;
const program = "plant/programs/filling/caps.pgm";

interface Seen {
  readonly fault?: string;
  readonly filetype: string;
  readonly findings: readonly { line: number; message: string; source: string; severity: number }[];
  readonly from: string;
  readonly to: string;
  readonly hover?: string;
  readonly torvel: readonly string[];
}

test("in Neovim", { skip: !hasNeovim && "Neovim is not installed" }, () => {
  const folder = new Folder();
  cpSync("examples/plant", folder.file("plant"), { recursive: true });
  const scripts = resolve("editors/language-server/test/neovim");
  execFileSync(
    "nvim",
    ["--headless", "-u", `${scripts}/init.lua`, "-c", `luafile ${scripts}/check.lua`],
    {
      env: {
        ...process.env,
        HOME: folder.path,
        XDG_CONFIG_HOME: folder.path,
        TORVEL_VIM: resolve("editors/vim"),
        TORVEL_SERVER: resolve(serverFile),
        TORVEL_PROGRAM: folder.file(program),
        TORVEL_SEEN: folder.file("seen.json"),
      },
      timeout: 120_000,
    },
  );
  const seen = JSON.parse(readFileSync(folder.file("seen.json"), "utf8")) as Seen;
  assert.equal(seen.fault, undefined);
  assert.equal(seen.filetype, "brannic");
  assert.ok(seen.findings.length > 0);
  assert.ok(seen.findings.every(({ source }) => source === "BrannicToTorvel64"));
  const [, target = ""] =
    /#include "(?:.*\/)?([^"/]+)"/.exec(readFileSync(folder.file(program), "latin1")) ?? [];
  assert.equal(seen.to, `${target}:1`);
  assert.match(seen.hover ?? "", /Includes/);
  assert.ok(seen.torvel.some((line) => line.startsWith("// #include")));
  folder.remove();
});
