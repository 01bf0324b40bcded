// A button that puts a text on the clipboard.

import { useEffect, useState } from "preact/hooks";

export function CopyButton({ what, text }: { what: string; text: () => string }) {
  const [said, setSaid] = useState("");
  useEffect(() => {
    const timer = setTimeout(() => setSaid(""), 2000);
    return () => clearTimeout(timer);
  }, [said]);
  const copy = () =>
    navigator.clipboard.writeText(text()).then(
      () => setSaid("copied"),
      () => setSaid("the browser refused"),
    );
  return (
    <span class="copy">
      <button type="button" class="small" onClick={() => void copy()}>
        {what}
      </button>
      <span class="said" role="status">
        {said}
      </span>
    </span>
  );
}
