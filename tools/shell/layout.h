// Where things stand on a screen of a given size.
#ifndef KYODBC_TOOLS_SHELL_LAYOUT_H
#define KYODBC_TOOLS_SHELL_LAYOUT_H

namespace shell {

// Lines and columns of the terminal, counted from 0.
struct Area {
  int y = 0;
  int x = 0;
  int height = 0;
  int width = 0;
};

// From top to bottom: what is shown; the table, and the images beside or below it; where the user is; keys,
// messages and the line being typed. Tables have a line of titles; images have one more, which says whose.
struct Layout {
  bool fits = false;  // smaller screens show nothing
  Area page;          // all of the middle
  Area table;         // the part of it for the table
  Area images;        // the part of it for the images; empty without them
  int status = 0;
  int bottom = 0;
  int width = 0;

  bool ImagesBeside() const { return images.width > 0 && images.y == table.y; }
};

Layout LayOut(int lines, int columns, bool with_images);

}  // namespace shell

#endif
