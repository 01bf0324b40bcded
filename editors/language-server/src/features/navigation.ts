// Where names are defined and used. A definition or use that several programs have is told once.

import type { Location, Position } from "vscode-languageserver";
import type { Name, Program } from "../program.ts";
import type { Session } from "../session.ts";
import type { OpenDocument } from "../text/documents.ts";
import { uriNow } from "./diagnostics.ts";
import { namesAt, placesAt, rangeOf } from "./place.ts";

/** An editor gets no more places at once. */
export const mostPlaces = 10_000;

export function definitionsAt(
  session: Session,
  document: OpenDocument,
  position: Position,
): Location[] {
  return gathered(session, document, position, (program, name) =>
    name.kind === "include" ? [] : program.definitionsOf(name),
  );
}

export function referencesAt(
  session: Session,
  document: OpenDocument,
  position: Position,
  withDefinitions: boolean,
): Location[] {
  return gathered(
    session,
    document,
    position,
    (program, name) =>
      includesOf(program, name) ??
      program.placesOf(name).filter(({ isDefinition }) => withDefinitions || !isDefinition),
  );
}

/** All includes of the same file. */
function includesOf(program: Program, name: Name): Name[] | undefined {
  if (name.kind !== "include") {
    return undefined;
  }
  const found: Name[] = [];
  for (let file = 0; file < program.answer.files.length; ++file) {
    for (const other of program.namesOf(file)) {
      if (other.kind === "include" && other.target === name.target) {
        found.push(other);
      }
    }
  }
  return found;
}

function gathered(
  session: Session,
  document: OpenDocument,
  position: Position,
  find: (program: Program, name: Name) => Name[],
): Location[] {
  const locations = new Map<string, Location>();
  const add = (location: Location) => {
    if (locations.size < mostPlaces) {
      const { line, character } = location.range.start;
      locations.set(`${location.uri} ${line} ${character}`, location);
    }
  };
  for (const place of placesAt(session, document, position)) {
    const { program } = place;
    for (const name of namesAt(place)) {
      for (const found of find(program, name)) {
        const uri = uriNow(program.pathOf(found.file), session.documents);
        add({ uri, range: rangeOf(session, program, found) });
      }
      if (name.kind === "include" && find(program, name).length === 0) {
        const start = { line: 0, character: 0 };
        const uri = uriNow(program.pathOf(name.target), session.documents);
        add({ uri, range: { start, end: start } });
      }
    }
  }
  return [...locations.values()];
}
