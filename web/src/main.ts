import { showReport } from "./app/viewer.tsx";
import { pageSource } from "./data/source.ts";

const root = document.getElementById("root");
if (root !== null) {
  root.textContent = "";
  showReport(root, pageSource(document));
}
