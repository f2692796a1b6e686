"use strict";
// Sorts and filters the table of files. Without it the page shows the same numbers in the project's order.
(function () {
  const table = document.querySelector("table");
  const body = table.tBodies[0];
  const rows = Array.from(body.rows);
  const headers = Array.from(table.tHead.rows[0].cells);
  const collator = new Intl.Collator("en", { numeric: true });
  const order = new Map(rows.map((row, place) => [row, place]));

  // Numbers are in an attribute; a cell that has none is below all numbers. Names and kinds are text.
  function valueOf(row, column) {
    const cell = row.cells[column];
    if (column < 2) return cell.textContent;
    return cell.dataset.v === undefined ? -1n : BigInt(cell.dataset.v);
  }

  function compare(a, b) {
    if (typeof a === "string") return collator.compare(a, b);
    return a < b ? -1 : a > b ? 1 : 0;
  }

  function sort(column, direction) {
    const keys = new Map(rows.map((row) => [row, valueOf(row, column)]));
    rows.sort((a, b) => direction * compare(keys.get(a), keys.get(b)) || order.get(a) - order.get(b));
    body.append(...rows);
    headers.forEach((header, place) => {
      const state = place !== column ? "none" : direction > 0 ? "ascending" : "descending";
      header.setAttribute("aria-sort", state);
    });
  }

  // Names are read from A on, numbers from the largest on; another press turns the order around.
  headers.forEach((header, column) => {
    const button = document.createElement("button");
    button.type = "button";
    button.textContent = header.textContent;
    header.replaceChildren(button);
    header.setAttribute("aria-sort", "none");
    button.addEventListener("click", () => {
      const first = column < 2 ? "ascending" : "descending";
      const isTurned = header.getAttribute("aria-sort") === first;
      sort(column, (first === "ascending") === isTurned ? -1 : 1);
    });
  });

  const finding = document.querySelector(".finding");
  const name = finding.querySelector("input");
  const kind = finding.querySelector("select");
  const shown = finding.querySelector("output");
  const texts = new Map(rows.map((row) => [row, row.cells[0].textContent.toLowerCase()]));

  // ".swift" is an extension, anything else a kind. A name without a dot is its own extension.
  function isWanted(row) {
    if (!kind.value) return true;
    if (!kind.value.startsWith(".")) return row.cells[1].textContent === kind.value;
    return texts.get(row).split("/").pop().split(".").pop() === kind.value.slice(1);
  }

  function filter() {
    const wanted = name.value.trim().toLowerCase();
    let count = 0;
    for (const row of rows) {
      const isShown = texts.get(row).includes(wanted) && isWanted(row);
      row.hidden = !isShown;
      if (isShown) ++count;
    }
    shown.textContent = count + " of " + rows.length + " files";
  }

  name.addEventListener("input", filter);
  kind.addEventListener("input", filter);
  finding.hidden = false;
  filter();
})();
