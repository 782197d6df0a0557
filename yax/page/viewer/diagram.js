// The diagram's tab: shows the whole sheet, or an enlarged part that scrolls.

const kStep = 1.5;
const kLargest = kStep ** 6;

export function addDiagram(panel) {
  const drawing = panel.querySelector("svg");
  let size = 1;
  // Keeps the middle of the visible part in place.
  const zoom = (wanted) => {
    const next = Math.min(Math.max(wanted, 1), kLargest);
    const place = ["Left", "Top"].map((side) => {
      const room = side === "Left" ? panel.clientWidth : panel.clientHeight;
      return [`scroll${side}`, (panel[`scroll${side}`] + room / 2) * (next / size) - room / 2];
    });
    drawing.style.maxWidth = `${100 * next}%`;
    drawing.style.width = next === 1 ? "" : `${100 * next}%`;
    for (const [side, value] of place) panel[side] = value;
    size = next;
  };
  const bar = document.createElement("div");
  bar.className = "views";
  bar.setAttribute("role", "toolbar");
  bar.setAttribute("aria-label", "Size of the diagram");
  for (const [name, sizeAfter] of [["Larger", () => size * kStep], ["Smaller", () => size / kStep], ["Whole sheet", () => 1]]) {
    const button = document.createElement("button");
    button.type = "button";
    button.textContent = name;
    button.addEventListener("click", () => zoom(sizeAfter()));
    bar.append(button);
  }
  panel.prepend(bar);
}
