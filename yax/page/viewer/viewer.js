// The page of one package: connects the parts of the viewer. The page contains the data: the wires in the element
// "package", the meshes in "model".

import { addDiagram } from "./diagram.js";
import { primitivesOf } from "./gltf.js";
import { Shape } from "./shape.js";
import { Stage } from "./stage.js";
import { Switches } from "./switches.js";
import { addTabs } from "./tabs.js";
import { kViews } from "./views.js";
import { WireList } from "./wire_list.js";
import { addPrinting } from "./printing.js";

const element = (id) => document.getElementById(id);

// In the page a wire is a list of values, which is shorter than an object with names.
function wiresOf(packageData) {
  return packageData.wires.map(
    ([name, other, tier, netType, length, angle, clearance, nearest, primitive, first, count]) => ({
      name: other === "" ? name : `${name}:${other}`,
      tier, netType, length, angle, clearance, nearest, primitive, first, count,
    }));
}

class Page {
  constructor() {
    this.data = JSON.parse(element("package").textContent);
    this.wires = wiresOf(this.data);
    this.marked = -1;
    this.chosen = -1;
    this.stage = this.makeStage();
    this.list = new WireList(element("wires"), {
      texts: (index) => [this.wires[index].name, `${this.wires[index].length} ${this.data.unit}`],
      onMark: (index) => this.mark(index),
      onChoose: (index) => this.choose(index === this.chosen ? -1 : index),
    });
    this.switches = new Switches(element("switches"), this.wires, () => this.select());
    element("search").addEventListener("input", () => this.select());
    document.addEventListener("keydown", (event) => event.key === "Escape" && this.choose(-1));
    addTabs(document.querySelector('[role="tablist"]'), () => this.stage && this.stage.resize());
    if (element("diagram-panel")) addDiagram(element("diagram-panel"));
    addPrinting(this);
    this.addTheme();
    if (this.stage) this.addStage();
    this.select();
  }

  // Returns nothing when the browser has no WebGL; the list works without a picture.
  makeStage() {
    const canvas = element("view");
    const wanted = { antialias: true };
    const context = canvas.getContext("webgl2", wanted) || canvas.getContext("webgl", wanted);
    if (!context) {
      canvas.replaceWith("This browser cannot draw three-dimensional pictures: it has no WebGL.");
      return undefined;
    }
    const primitives = primitivesOf(JSON.parse(element("model").textContent));
    return new Stage(canvas, context, new Shape(primitives, this.wires, this.data.light), this.data.tubeSides);
  }

  addStage() {
    const canvas = this.stage.canvas;
    new ResizeObserver(() => this.stage.resize()).observe(canvas);
    for (const name of Object.keys(kViews)) {
      const button = document.createElement("button");
      button.type = "button";
      button.textContent = name;
      button.addEventListener("click", () => this.stage.show(name));
      element("views").append(button);
    }
    canvas.addEventListener("pointermove", (event) => event.buttons === 0 && this.mark(this.wireUnder(event)));
    canvas.addEventListener("pointerleave", () => this.mark(-1));
    canvas.addEventListener("pointerdown", (event) => (this.pressed = [event.clientX, event.clientY]));
    canvas.addEventListener("pointerup", (event) => this.release(event));
    canvas.addEventListener("keydown", (event) => this.key(event));
    this.stage.resize();
    this.stage.show("Iso");
  }

  wireUnder(event) {
    const box = this.stage.canvas.getBoundingClientRect();
    return this.stage.wireAt(event.clientX - box.left, event.clientY - box.top, event.pointerType);
  }

  // A drag turns the picture, a click chooses a wire.
  release(event) {
    if (event.button !== 0 || !this.pressed) return;
    const moved = Math.hypot(event.clientX - this.pressed[0], event.clientY - this.pressed[1]);
    this.pressed = undefined;
    if (moved > 4) return;
    this.choose(this.wireUnder(event));
    this.list.choose(this.chosen);
  }

  key(event) {
    const step = Math.PI / 24;
    const keys = {
      ArrowLeft: () => this.stage.turn(-step, 0),
      ArrowRight: () => this.stage.turn(step, 0),
      ArrowUp: () => this.stage.turn(0, step),
      ArrowDown: () => this.stage.turn(0, -step),
      "+": () => this.stage.zoom(1 / 1.2),
      "-": () => this.stage.zoom(1.2),
      Home: () => this.stage.show("Iso"),
    };
    if (!(event.key in keys) || event.ctrlKey || event.metaKey || event.altKey) return;
    event.preventDefault();
    keys[event.key]();
  }

  mark(index) {
    if (index === this.marked) return;
    this.marked = index;
    this.describe();
  }

  choose(index) {
    this.chosen = index;
    this.list.choose(index);
    this.describe();
  }

  // Describes the wire under the pointer, else the chosen one.
  describe() {
    if (this.stage) this.stage.mark([...new Set([this.marked, this.chosen])].filter((index) => index >= 0));
    const index = this.marked >= 0 ? this.marked : this.chosen;
    element("about").replaceChildren(...(index < 0 ? [] : this.factsOf(this.wires[index]).flatMap(([name, value]) => {
      const term = document.createElement("dt");
      term.textContent = name;
      const text = document.createElement("dd");
      text.textContent = value;
      return [term, text];
    })));
  }

  factsOf(wire) {
    const { unit } = this.data;
    const clearance = wire.nearest === "" ? "no wire of another net" : `${wire.clearance} ${unit} to ${wire.nearest}`;
    return [["Wire", wire.name], ["Tier", wire.tier || "none"], ["Net type", wire.netType || "none"],
            ["Length", `${wire.length} ${unit}`], ["Angle", `${wire.angle}\u00b0`], ["Clearance", clearance]];
  }

  // List and picture show the same wires: those that match the switches and the search.
  select() {
    const sought = element("search").value.trim().toLowerCase();
    this.shown = [...this.wires.keys()].filter(
      (index) => this.switches.shows(index) && this.wires[index].name.toLowerCase().includes(sought));
    element("count").textContent = this.wires.length === 0
      ? "This package has no wires." : `${this.shown.length} of ${this.wires.length} ${this.wires.length === 1 ? "wire" : "wires"}`;
    this.list.show(this.shown);
    if (!this.shown.includes(this.chosen)) this.choose(-1);
    if (this.stage) this.stage.setWires(this.shown);
  }

  addTheme() {
    const dark = element("dark");
    const preferred = matchMedia("(prefers-color-scheme: dark)");
    const apply = (isDark) => {
      document.documentElement.dataset.theme = isDark ? "dark" : "light";
      dark.setAttribute("aria-pressed", isDark);
      const background = getComputedStyle(document.documentElement).getPropertyValue("--stage").trim();
      if (this.stage) this.stage.setTheme(isDark, background);
    };
    dark.addEventListener("click", () => apply(document.documentElement.dataset.theme !== "dark"));
    preferred.addEventListener("change", () => apply(preferred.matches));
    apply(preferred.matches);
  }
}

new Page();
