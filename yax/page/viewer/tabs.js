// Tabs as usual on the web: Tab reaches the selected one, the arrow keys select the others.

export function addTabs(list, onChange) {
  const tabs = [...list.querySelectorAll('[role="tab"]')];
  const select = (chosen) => {
    for (const tab of tabs) {
      tab.setAttribute("aria-selected", tab === chosen);
      tab.tabIndex = tab === chosen ? 0 : -1;
      document.getElementById(tab.getAttribute("aria-controls")).hidden = tab !== chosen;
    }
    onChange();
  };
  tabs.forEach((tab, k) => {
    tab.addEventListener("click", () => select(tab));
    tab.addEventListener("keydown", (event) => {
      const step = { ArrowRight: 1, ArrowLeft: -1 }[event.key];
      if (!step) return;
      const next = tabs[(k + step + tabs.length) % tabs.length];
      select(next);
      next.focus();
    });
  });
}
