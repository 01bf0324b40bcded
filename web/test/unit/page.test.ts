import assert from "node:assert/strict";
import { readdirSync, readFileSync } from "node:fs";
import { test } from "node:test";
import grammar from "../../generated/grammar.json";
import { pageTemplate } from "../sample/written-page.ts";

const page = readFileSync(pageTemplate, "utf8");

test("the page without data has less than 400 kB", () => {
  assert.ok(page.length < 400_000, `${page.length} bytes`);
});

test("the page has one place for the data, in front of its script", () => {
  const parts = page.split("<!--data-->");
  assert.equal(parts.length, 2);
  assert.equal(parts[0]?.includes("<script"), false);
});

test("the policy allows the page's own script and files of programs, and nothing else", () => {
  const policy = /Content-Security-Policy" content="([^"]*)"/.exec(page)?.[1] ?? "";
  const rules = policy.split(";").map((rule) => rule.trim());
  assert.ok(rules.includes("default-src 'none'"));
  assert.ok(rules.includes("form-action 'none'"));
  assert.ok(rules.includes("base-uri 'none'"));
  const script = rules.find((rule) => rule.startsWith("script-src")) ?? "";
  assert.match(script, /^script-src 'sha256-[A-Za-z0-9+/]+=*' 'self'$/);
  assert.equal(policy.includes("unsafe"), false);
  assert.equal(policy.includes("connect-src"), false);
});

test("no code of the viewer writes markup or leaves the page", () => {
  const forbidden =
    /innerHTML|outerHTML|insertAdjacentHTML|dangerouslySetInnerHTML|document\.write|eval\(|new Function|location\.(href|hash|assign|replace)\s*(=[^=]|\()|fetch\(/;
  const files = readdirSync("web/src", { recursive: true, encoding: "utf8" });
  const sources = files.filter((file) => /\.tsx?$/.test(file));
  assert.ok(sources.length > 30);
  for (const file of sources) {
    const text = readFileSync(`web/src/${file}`, "utf8");
    assert.equal(forbidden.exec(text)?.[0], undefined, file);
  }
});

test("the tables of words hold what the converter knows", () => {
  const { brannic, torvel } = grammar;
  assert.ok(brannic.control.includes("ENDWHILE") && brannic.control.includes("WEND"));
  assert.ok(brannic.statements.includes("MOVEABS") && brannic.statements.includes("PROBE"));
  assert.ok(brannic.functions.includes("STRLEN"));
  assert.deepEqual(
    brannic.operators.filter((word) => ["AND", "BNAND", "LT"].includes(word)),
    ["AND", "BNAND", "LT"],
  );
  assert.ok(brannic.words.includes("MOVEDONE"));
  assert.ok(brannic.variables.includes("STRGLOB") && brannic.variables.includes("PAXIS"));
  assert.ok(brannic.directives.includes("#include"));
  assert.ok(brannic.constants.includes("DATAITEM_PositionFeedback"));
  assert.ok(torvel.control.includes("elseif") && torvel.functions.includes("DigitalOutputSet"));
  const all = [
    brannic.control,
    brannic.statements,
    brannic.functions,
    brannic.operators,
    brannic.words,
  ].flat();
  assert.equal(new Set(all).size, all.length);
});
