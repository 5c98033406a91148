#include "tools/shell/layout.h"

namespace shell {
namespace {

constexpr int kFewestLines = 10;
constexpr int kFewestColumns = 30;
constexpr int kColumnsForBeside = 120;
constexpr int kLinesAround = 3;
constexpr int kGap = 1;  // the line between table and images

}  // namespace

Layout LayOut(int lines, int columns, bool with_images) {
  Layout layout;
  layout.fits = lines >= kFewestLines && columns >= kFewestColumns;
  layout.width = columns;
  layout.status = lines - 2;
  layout.bottom = lines - 1;
  const int height = lines - kLinesAround;
  layout.page = {1, 0, height, columns};
  layout.table = layout.page;
  if (!with_images) return layout;
  if (columns >= kColumnsForBeside) {
    layout.table.width = columns / 2;
    layout.images = {1, columns / 2 + kGap, height, columns - columns / 2 - kGap};
  } else {
    layout.table.height = height / 2;
    layout.images = {1 + height / 2 + kGap, 0, height - height / 2 - kGap, columns};
  }
  return layout;
}

}  // namespace shell
