// A browser without a window, as tests and benchmarks use it.

import { chromium, type Browser } from "playwright-core";

export function startBrowser(): Promise<Browser> {
  return chromium.launch({
    executablePath: process.env["TORVEL_CHROMIUM"] ?? "/usr/bin/chromium",
    args: [
      "--headless",
      "--no-sandbox",
      "--disable-gpu",
      "--disable-quic",
      "--no-first-run",
      "--disable-background-networking",
      "--disable-component-update",
      "--disable-sync",
    ],
  });
}
