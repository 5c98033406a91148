// Tables that can be searched and sorted. Without this script they are read as they stand.
"use strict";

const SEARCHED = ["field-ids", "result-codes"];

function cellValue(row, column) {
  const text = row.cells[column].textContent.trim();
  return /^\d+$/.test(text) ? Number(text) : text.toLowerCase();
}

function compare(left, right) {
  if (typeof left !== typeof right) return typeof left === "number" ? -1 : 1;
  if (typeof left === "number") return left - right;
  return left.localeCompare(right);
}

function sortBy(table, column, header) {
  const ascending = header.getAttribute("aria-sort") !== "ascending";
  for (const other of table.tHead.rows[0].cells) other.removeAttribute("aria-sort");
  header.setAttribute("aria-sort", ascending ? "ascending" : "descending");
  const rows = [...table.tBodies[0].rows];
  const sign = ascending ? 1 : -1;
  rows.sort((a, b) => sign * compare(cellValue(a, column), cellValue(b, column)));
  table.tBodies[0].append(...rows);
}

function texts(row) {
  return [...row.cells].map((cell) => cell.textContent.trim().toLowerCase());
}

// A word that is all of a cell somewhere (a number, the name of a set) finds such cells only, others find parts.
function test(word, rows) {
  const whole = /^\d+$/.test(word) || rows.some((row) => texts(row).includes(word));
  return whole ? (cell) => cell === word : (cell) => cell.includes(word);
}

function search(table, text, count) {
  const words = text.toLowerCase().split(/\s+/).filter(Boolean);
  const rows = [...table.tBodies[0].rows];
  const tests = words.map((word) => test(word, rows));
  for (const row of rows) row.hidden = !tests.every((fits) => texts(row).some(fits));
  const shown = rows.filter((row) => !row.hidden).length;
  count.textContent = words.length === 0 ? `${rows.length} rows` : `${shown} of ${rows.length} rows`;
}

function addSearch(table) {
  const field = document.createElement("input");
  const count = document.createElement("span");
  const box = document.createElement("p");
  field.type = "search";
  field.setAttribute("aria-label", "Find rows");
  field.placeholder = "Find rows";
  count.setAttribute("role", "status");
  box.className = "search";
  box.append(field, " ", count);
  table.parentElement.before(box);
  field.value = new URLSearchParams(location.search).get("find") ?? "";
  field.addEventListener("input", () => search(table, field.value, count));
  search(table, field.value, count);
}

function addSorting(table) {
  [...table.tHead.rows[0].cells].forEach((header, column) => {
    const button = document.createElement("button");
    button.type = "button";
    button.append(...header.childNodes);
    header.append(button);
    button.addEventListener("click", () => sortBy(table, column, header));
  });
}

for (const name of SEARCHED) {
  for (const table of document.querySelectorAll(`table.${name}`)) {
    addSearch(table);
    addSorting(table);
  }
}
