// The words for the library's field ids.
#ifndef KYODBC_TOOLS_FIELD_NAMES_H
#define KYODBC_TOOLS_FIELD_NAMES_H

#include <string_view>

#include "tools/filter_words.h"

enum class ValueType { kKey, kText, kDate, kTime };

struct FieldName {
  const char* word;
  int id;
  ValueType type;
};

// The field of that name, in small or capital letters, among those the table knows; throws WordsError when
// there is none.
const FieldName& FindField(std::string_view word, FieldIds known);

#endif
