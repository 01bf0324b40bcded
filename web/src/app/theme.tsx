// Dark or light, as the system has it or as it was chosen here.

import { useEffect, useState } from "preact/hooks";
import { browserStorage } from "./storage.ts";

const themes = ["system", "light", "dark"] as const;
type Theme = (typeof themes)[number];

const stored = "torvel:theme";

export function ThemeChoice() {
  const [theme, setTheme] = useState<Theme>(
    () => themes.find((name) => name === browserStorage()?.getItem(stored)) ?? "system",
  );
  useEffect(() => {
    const dark = window.matchMedia("(prefers-color-scheme: dark)");
    const show = () => {
      const isDark = theme === "dark" || (theme === "system" && dark.matches);
      document.documentElement.dataset["theme"] = isDark ? "dark" : "light";
    };
    show();
    dark.addEventListener("change", show);
    return () => dark.removeEventListener("change", show);
  }, [theme]);
  useEffect(() => {
    try {
      browserStorage()?.setItem(stored, theme);
    } catch {
      // It holds for as long as the page is open.
    }
  }, [theme]);
  return (
    <label class="theme">
      <span class="unseen">Colours</span>
      <select value={theme} onChange={(event) => setTheme(event.currentTarget.value as Theme)}>
        <option value="system">System colours</option>
        <option value="light">Light</option>
        <option value="dark">Dark</option>
      </select>
    </label>
  );
}
