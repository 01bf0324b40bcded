import assert from "node:assert/strict";
import { test } from "node:test";
import { smallReport } from "../sample/small-report.ts";
import { browserSession } from "./opened-page.ts";
import { pageOf } from "./pages.ts";

const { open } = browserSession();
const url = pageOf("policy", smallReport());

test("the policy lets nothing in and nothing out", async () => {
  const { page, complaints } = await open(url);
  const refused = await page.evaluate(async () => {
    const found: string[] = [];
    document.addEventListener("securitypolicyviolation", (event) =>
      found.push(event.effectiveDirective),
    );
    await fetch("http://127.0.0.1:9/").catch(() => undefined);
    const image = new Image();
    image.src = "http://127.0.0.1:9/x.png";
    const form = document.createElement("form");
    form.action = "http://127.0.0.1:9/";
    document.body.append(image, form);
    form.submit();
    const inline = document.createElement("script");
    try {
      inline.textContent = "window.hacked = 1";
      document.body.append(inline);
    } catch {
      found.push("text of a script");
    }
    try {
      document.createElement("p").innerHTML = "<b>x</b>";
    } catch {
      found.push("markup");
    }
    await new Promise((resolve) => setTimeout(resolve, 200));
    return found;
  });
  for (const directive of ["connect-src", "img-src", "form-action", "markup"]) {
    assert.ok(refused.includes(directive), `${directive} in ${refused.join()}`);
  }
  assert.equal(await page.evaluate(() => (window as { hacked?: number }).hacked), undefined);
  // What was refused here is the only thing that the console tells.
  assert.ok(
    complaints.every((text) =>
      /Content Security Policy|This document requires|request: http:\/\/127/.test(text),
    ),
    complaints.join("\n"),
  );
  await page.context().close();
});
