// Tells which pages of the site are wider than the window they are read in. For `look`, which names the pages.
"use strict";

const WIDTHS = [390, 1280];

async function excess(site, page, width) {
  const frame = document.createElement("iframe");
  frame.width = width;
  frame.src = `${site}/${page}`;
  await new Promise((resolve) => {
    frame.onload = resolve;
    document.body.append(frame);
  });
  const wide = frame.contentDocument.documentElement.scrollWidth;
  frame.remove();
  return wide > width ? `${page}: ${wide} pixels in a window of ${width}\n` : "";
}

async function measure(site, pages) {
  let found = "";
  for (const page of pages) {
    for (const width of WIDTHS) found += await excess(site, page, width);
  }
  document.title = "measured";
  document.body.textContent = found;
}
