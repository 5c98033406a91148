#include "tools/shell/help_text.h"

#include <fmt/format.h>

#include "tools/shell/columns.h"

namespace shell {
namespace {

// One row per key; a row without one is a text of its own.
struct HelpRow {
  const char* keys;
  const char* text;
};

constexpr HelpRow kRows[] = {
    {"Up, Down",    "the row before, the row after"                                              },
    {"PgUp, PgDn",  "the page before, the page after"                                            },
    {"Home, End",   "the first row, the last row"                                                },
    {"Left, Right", "select a column"                                                            },
    {"Enter",       "all fields of the row"                                                      },
    {"A to Z",      "jump to the first name that begins so"                                      },
    {"j",           "jump to a text in the order's first field"                                  },
    {"g",           "go to a row by its number"                                                  },
    {"f",           "filter, in the words of kyodbc list; empty: all rows"                       },
    {"s",           "sort by up to four fields; '-' before one: descending"                      },
    {"o",           "order by the selected column; again: descending"                            },
    {"t",           "choose a table"                                                             },
    {"i",           "the patient's images beside the patient, or not"                            },
    {"Tab",         "go to the images, and back"                                                 },
    {"r",           "read everything again; connect again"                                       },
    {"?",           "this help"                                                                  },
    {"q",           "quit"                                                                       },
    {"",            "Typing: Tab completes, Up brings earlier lines, Ctrl-U empties, Esc leaves."},
    {"",            "Filters: FIELD OPERATOR VALUE, and more behind 'and' or 'or', for example"  },
    {"",            "  name like M% and birthday >= 1960-01-01"                                  },
    {"",            "Nothing is changed in the practice."                                        },
};

}  // namespace

std::vector<std::string> HelpLines(std::size_t width) {
  std::vector<std::string> lines;
  for (const HelpRow& row : kRows) {
    const std::string keys = row.keys;
    const std::string line = keys.empty() ? row.text : fmt::format("{:<12}{}", keys, row.text);
    for (const std::string& piece : Wrapped(line, width)) lines.push_back(piece);
  }
  return lines;
}

}  // namespace shell
