// The list of wires. Only visible rows are in the document, so that thousands of wires scroll without delay.

const kRowHeight = 28;
const kSpare = 8;

export class WireList {
  // `texts` returns the cells of a wire's row. `onMark` gets the index of the wire under the pointer or the
  // focus, or -1; `onChoose` gets the index of a clicked wire.
  constructor(box, { texts, onMark, onChoose }) {
    this.box = box;
    this.texts = texts;
    this.onMark = onMark;
    this.onChoose = onChoose;
    this.indices = [];
    this.chosen = -1;
    this.current = 0; // the row that the Tab key reaches
    this.rows = document.createElement("ul");
    this.rows.setAttribute("role", "list");
    this.rows.setAttribute("aria-label", "Wires");
    box.append(this.rows);
    box.addEventListener("scroll", () => this.fill());
    box.addEventListener("keydown", (event) => this.key(event));
    new ResizeObserver(() => this.fill()).observe(box);
  }

  show(indices) {
    this.indices = indices;
    this.current = Math.max(indices.indexOf(this.chosen), 0);
    this.rows.style.height = `${indices.length * kRowHeight}px`;
    this.fill();
  }

  choose(index) {
    this.chosen = index;
    const row = this.indices.indexOf(index);
    if (row >= 0) this.bringIntoSight((this.current = row));
    this.fill();
  }

  bringIntoSight(row) {
    const top = row * kRowHeight;
    if (top < this.box.scrollTop) this.box.scrollTop = top;
    const lowest = top + kRowHeight - this.box.clientHeight;
    if (lowest > this.box.scrollTop) this.box.scrollTop = lowest;
  }

  // A visible row stays in the document, since it may have the focus.
  fill() {
    const first = Math.max(Math.floor(this.box.scrollTop / kRowHeight) - kSpare, 0);
    const count = Math.ceil(this.box.clientHeight / kRowHeight) + 2 * kSpare;
    const wanted = new Map();
    for (let row = first; row < Math.min(first + count, this.indices.length); ++row)
      wanted.set(`${row} ${this.indices[row]}`, row);
    if (this.current < this.indices.length) wanted.set(`${this.current} ${this.indices[this.current]}`, this.current);
    for (const item of [...this.rows.children])
      if (!wanted.has(item.dataset.key)) item.remove();
      else wanted.delete(item.dataset.key);
    for (const [key, row] of wanted) this.rows.append(this.item(key, row));
    const inOrder = [...this.rows.children].sort((a, b) => a.dataset.row - b.dataset.row);
    inOrder.forEach((item, k) => {
      if (this.rows.children[k] !== item) this.rows.insertBefore(item, this.rows.children[k]);
      this.state(item);
    });
  }

  item(key, row) {
    const index = this.indices[row];
    const item = document.createElement("li");
    item.setAttribute("role", "listitem");
    item.dataset.key = key;
    item.dataset.row = row;
    item.setAttribute("aria-posinset", row + 1);
    item.style.top = `${row * kRowHeight}px`;
    const button = document.createElement("button");
    button.type = "button";
    for (const text of this.texts(index)) {
      const cell = document.createElement("span");
      cell.textContent = text;
      button.append(cell);
    }
    button.addEventListener("focus", () => this.onMark(index));
    button.addEventListener("pointerenter", () => this.onMark(index));
    button.addEventListener("pointerleave", () => this.onMark(-1));
    button.addEventListener("blur", () => this.onMark(-1));
    button.addEventListener("click", () => this.onChoose(index));
    item.append(button);
    return item;
  }

  state(item) {
    const row = Number(item.dataset.row);
    item.setAttribute("aria-setsize", this.indices.length);
    item.firstChild.tabIndex = row === this.current ? 0 : -1;
    item.firstChild.setAttribute("aria-pressed", this.indices[row] === this.chosen);
  }

  key(event) {
    const page = Math.max(Math.floor(this.box.clientHeight / kRowHeight) - 1, 1);
    const steps = { ArrowDown: 1, ArrowUp: -1, PageDown: page, PageUp: -page, Home: -Infinity, End: Infinity };
    if (!(event.key in steps) || this.indices.length === 0) return;
    event.preventDefault();
    this.current = Math.min(Math.max(this.current + steps[event.key], 0), this.indices.length - 1);
    this.bringIntoSight(this.current);
    this.fill();
    const button = this.rows.querySelector('button[tabindex="0"]');
    if (button) button.focus({ preventScroll: true });
  }
}
