// How much a practice holds.
#ifndef KYODBC_TOOLS_DATA_CONTENTS_H
#define KYODBC_TOOLS_DATA_CONTENTS_H

#include <cstdint>
#include <string>
#include <vector>

#include "tools/data/practice_database.h"
#include "tools/data/shape.h"

std::uint64_t CountRows(PracticeDatabase& database, const Shape& shape,
                        const std::string& condition = "1 = 1");

// Rows of all tables that were not made by the schema file.
std::uint64_t RowsBesidesSchema(PracticeDatabase& database, const std::vector<Shape>& shapes);

#endif
