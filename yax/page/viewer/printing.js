// Prints the picture as it is on the screen, and the wires of the list as a table.

const kColumns = [
  ["Wire", (wire) => wire.name],
  ["Tier", (wire) => wire.tier],
  ["Net type", (wire) => wire.netType],
  ["Length", (wire) => wire.length],
  ["Angle", (wire) => wire.angle],
  ["Clearance", (wire) => wire.clearance],
  ["to", (wire) => wire.nearest],
];

function row(kind, texts) {
  const line = document.createElement("tr");
  for (const text of texts) line.append(Object.assign(document.createElement(kind), { textContent: text }));
  return line;
}

export function addPrinting(page) {
  const paper = document.getElementById("paper");
  window.addEventListener("beforeprint", () => {
    paper.replaceChildren();
    if (page.stage) paper.append(Object.assign(new Image(), { src: page.stage.picture(), alt: "The package" }));
    if (page.shown.length === 0) return;
    const table = document.createElement("table");
    const units = { Length: ` (${page.data.unit})`, Angle: " (\u00b0)", Clearance: ` (${page.data.unit})` };
    const head = document.createElement("thead");
    head.append(row("th", kColumns.map(([name]) => name + (units[name] || ""))));
    const body = document.createElement("tbody");
    for (const index of page.shown) body.append(row("td", kColumns.map(([, of]) => of(page.wires[index]))));
    table.append(head, body);
    paper.append(table);
  });
  window.addEventListener("afterprint", () => paper.replaceChildren());
}
