// A screen of a terminal as a page: node editors/pictures/screen.mjs COLUMNS <screen >page.html
//
// The screen comes from "tmux capture-pane -e -p": text with colours of 24 bits, bold, underlined, reversed. The page is
// for a picture, so it has the width of the screen and nothing around it.

import { readFileSync } from "node:fs";

const plain = { front: "#1f2328", back: "#ffffff", bold: false, italic: false, underline: false };
const named = ["#000000", "#c00000", "#007f00", "#b35900", "#0000c8", "#8000ff", "#007f7f", "#cccccc"];
const grey = (level) => `rgb(${level}, ${level}, ${level})`;

/** One of the 256 colours that a terminal knows by number. */
function numbered(index) {
  if (index < 16) {
    return named[index % 8];
  }
  if (index >= 232) {
    return grey(8 + 10 * (index - 232));
  }
  const level = (step) => (step === 0 ? 0 : 55 + 40 * step);
  const at = index - 16;
  return `rgb(${level(Math.floor(at / 36))}, ${level(Math.floor(at / 6) % 6)}, ${level(at % 6)})`;
}

/** The style behind a sequence of numbers that follows "ESC [". */
function changed(style, numbers) {
  let next = { ...style };
  const rest = [...numbers];
  const colour = () => (rest.shift() === 5 ? numbered(rest.shift()) : `rgb(${rest.splice(0, 3)})`);
  while (rest.length > 0) {
    const number = rest.shift();
    if (number === 0) next = { ...plain };
    else if (number === 1) next.bold = true;
    else if (number === 3) next.italic = true;
    else if (number === 4) next.underline = true;
    else if (number === 7) next.reverse = true;
    else if (number === 22) next.bold = false;
    else if (number === 23) next.italic = false;
    else if (number === 24) next.underline = false;
    else if (number === 27) next.reverse = false;
    else if (number === 38) next.front = colour();
    else if (number === 48) next.back = colour();
    else if (number === 39) next.front = plain.front;
    else if (number === 49) next.back = plain.back;
    else if (number >= 30 && number < 38) next.front = named[number - 30];
    else if (number >= 40 && number < 48) next.back = named[number - 40];
  }
  return next;
}

const escaped = (text) => text.replace(/[&<>]/g, (sign) => `&#${sign.charCodeAt(0)};`);

function span({ front, back, bold, italic, underline, reverse }, text) {
  const [ink, paper] = reverse ? [back, front] : [front, back];
  const style = [
    `color:${ink};background:${paper}`,
    bold ? "font-weight:bold" : "",
    italic ? "font-style:italic" : "",
    underline ? "text-decoration:underline" : "",
  ];
  return `<span style="${style.filter(Boolean).join(";")}">${escaped(text)}</span>`;
}

/** Lines are filled up to the width of the screen with the colour that they end in. */
function lineOf(line, columns, start) {
  let style = start;
  let length = 0;
  let html = "";
  for (const piece of line.split(/(\x1b\[[0-9;:]*m)/)) {
    const sequence = /^\x1b\[([0-9;:]*)m$/.exec(piece);
    if (sequence !== null) {
      style = changed(style, sequence[1].split(/[;:]/).map(Number));
    } else if (piece !== "") {
      html += span(style, piece);
      length += [...piece].length;
    }
  }
  const filler = " ".repeat(Math.max(0, columns - length));
  return { html: html + span({ ...style, underline: false }, filler), style };
}

const columns = Number(process.argv[2]);
const lines = readFileSync(0, "utf8").replace(/\n$/, "").split("\n");
let style = plain;
const rows = lines.map((line) => {
  const row = lineOf(line, columns, style);
  style = row.style;
  return row.html;
});
process.stdout.write(`<!doctype html>
<meta charset="utf-8">
<title>Screen</title>
<style>
  body { margin: 0; background: #ffffff }
  pre { margin: 0; font: 14px/20px "DejaVu Sans Mono", monospace }
</style>
<pre>${rows.join("\n")}</pre>
`);
