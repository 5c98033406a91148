// The library's calls that position in each table's browse set, beside those that tools/tables.h knows.
#ifndef KYODBC_TOOLS_SHELL_POSITIONING_H
#define KYODBC_TOOLS_SHELL_POSITIONING_H

#include <vector>

#include "tools/tables.h"

namespace shell {

struct Positioning {
  const char* table;  // its plural name
  LONG set;           // its number for DB_ReopenAtKey
  LONG (*move_to)(LONG position);
  LONG (*move_by)(LONG delta);
  LONG (*move_to_key)(LONG key);           // null: the library has none for the table
  LONG (*move_to_text)(const char* text);  // likewise
  bool restores;                           // opening it restores a lost connection
};

const Positioning& PositioningOf(const Table& table);

// All tables, in the order in which people are asked.
std::vector<const Table*> AllTables();

}  // namespace shell

#endif
