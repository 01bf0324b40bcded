// Every state of the page is in its address, behind "#": "#/work?code=value-cut&state=open".

export const views = ["overview", "work", "program", "checks"] as const;
export type View = (typeof views)[number];

export type Parameters = Readonly<Record<string, string>>;

export interface Address {
  readonly view: View;
  readonly parameters: Parameters;
}

export function parsedAddress(hash: string): Address {
  const [path = "", query = ""] = hash.replace(/^#\/?/, "").split(/\?(.*)/s);
  const view = views.find((name) => name === path) ?? "overview";
  return { view, parameters: Object.fromEntries(new URLSearchParams(query)) };
}

/** Parameters that are empty are left out. */
export function addressOf(view: View, parameters: Parameters = {}): string {
  const query = new URLSearchParams();
  Object.entries(parameters).forEach(([name, value]) => {
    if (value !== "") {
      query.set(name, value);
    }
  });
  const text = query.toString().replaceAll("%2F", "/").replaceAll("%3A", ":");
  return `#/${view}${text === "" ? "" : "?" + text}`;
}
