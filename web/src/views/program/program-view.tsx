import { useEffect, useState } from "preact/hooks";
import { usePage, useReport } from "../../app/context.ts";
import type { ProgramDetail } from "../../data/format.ts";
import { Path } from "../../parts/text.tsx";
import { ProgramHead } from "./program-head.tsx";
import { ProgramList } from "./program-list.tsx";
import { ProgramSheet } from "./program-sheet.tsx";

export function ProgramView() {
  const { report, address } = usePage();
  const path = address.parameters["path"] ?? "";
  if (path === "") {
    return <ProgramList />;
  }
  const program = report.programOfPath.get(path);
  return program === undefined ? (
    <>
      <h1>Programs</h1>
      <p role="alert">
        This report has no program <Path path={path} />.
      </p>
    </>
  ) : (
    <OneProgram key={program} program={program} />
  );
}

function OneProgram({ program }: { program: number }) {
  const { source } = useReport();
  const [detail, setDetail] = useState<ProgramDetail | null>(null);
  const [failure, setFailure] = useState("");
  useEffect(() => {
    let isWanted = true;
    source.program(program).then(
      (read) => isWanted && setDetail(read),
      (error: unknown) =>
        isWanted && setFailure(error instanceof Error ? error.message : String(error)),
    );
    return () => {
      isWanted = false;
    };
  }, [program, source]);
  return (
    <>
      <ProgramHead program={program} />
      {failure !== "" && <p role="alert">The program cannot be shown. {failure}</p>}
      {detail !== null && <ProgramSheet program={program} detail={detail} />}
      {detail === null && failure === "" && <p aria-busy="true">Reading the program …</p>}
    </>
  );
}
