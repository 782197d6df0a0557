// The switches for tiers and net types. The page shows a wire when the switches of its tier and its net type are on.

const kTypes = { P: "Power", G: "Ground", S: "Signal" };

const tierOf = (wire) => (wire.tier === "" ? "No tier" : `Tier ${wire.tier}`);
// The first letter decides, as in the side file of a package.
const typeOf = (wire) => kTypes[wire.netType.slice(0, 1).toUpperCase()] || "No net type";

// "No tier" sorts last.
const rank = (tier) => (tier === "No tier" ? "Tier~" : tier);

export class Switches {
  constructor(box, wires, onChange) {
    this.on = new Map();
    this.keys = wires.map((wire) => [tierOf(wire), typeOf(wire)]);
    this.onChange = onChange;
    const natural = new Intl.Collator("en", { numeric: true }).compare;
    const tiers = [...new Set(this.keys.map(([tier]) => tier))].sort((a, b) => natural(rank(a), rank(b)));
    const types = [...Object.values(kTypes), "No net type"].filter((type) => this.keys.some((key) => key[1] === type));
    for (const [legend, names] of [["Tiers", tiers], ["Net types", types]])
      if (names.length > 0) box.append(this.group(legend, names));
  }

  group(legend, names) {
    const group = document.createElement("fieldset");
    const title = document.createElement("legend");
    title.textContent = legend;
    group.append(title, ...names.map((name) => this.add(name)));
    return group;
  }

  add(name) {
    const box = document.createElement("input");
    box.type = "checkbox";
    box.setAttribute("role", "switch");
    box.checked = true;
    this.on.set(name, true);
    box.addEventListener("change", () => {
      this.on.set(name, box.checked);
      this.onChange();
    });
    const label = document.createElement("label");
    label.append(box, name);
    return label;
  }

  shows(index) {
    return this.keys[index].every((key) => this.on.get(key));
  }
}
