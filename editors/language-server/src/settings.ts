// The editor's settings. Whatever is no text, or is missing, is not set: settings may be null.

export interface Settings {
  readonly parameterFile: string;
  readonly projectFile: string;
  /** A file with the site's rows. */
  readonly referenceRows: string;
}

export const noSettings: Settings = { parameterFile: "", projectFile: "", referenceRows: "" };

export function settingsOf(value: unknown): Settings {
  const given = isTable(value) ? value : {};
  const text = (key: string) => {
    const setting = given[key];
    return typeof setting === "string" ? setting : "";
  };
  return {
    parameterFile: text("parameterFile"),
    projectFile: text("projectFile"),
    referenceRows: text("referenceRows"),
  };
}

/** The part of the settings that is this server's, from settings of all servers. */
export function sectionOf(value: unknown): unknown {
  return isTable(value) && "brannic" in value ? value["brannic"] : value;
}

function isTable(value: unknown): value is Record<string, unknown> {
  return typeof value === "object" && value !== null && !Array.isArray(value);
}
