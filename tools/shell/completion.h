// What can be typed next in filters, sort orders and commands.
#ifndef KYODBC_TOOLS_SHELL_COMPLETION_H
#define KYODBC_TOOLS_SHELL_COMPLETION_H

#include <cstddef>
#include <string>
#include <string_view>
#include <vector>

#include "tools/filter_words.h"

namespace shell {

// The words that can stand in place of the text from `start` on, in alphabetical order.
struct Completion {
  std::size_t start = 0;
  std::vector<std::string> words;
};

// For the text up to the cursor. Values are never completed.
Completion CompleteFilter(std::string_view text, FieldIds known);
Completion CompleteSort(std::string_view text, FieldIds known);
// One of these words, as the last one of the text.
Completion CompleteWord(std::string_view text, std::vector<std::string> words);

// The text with what all words have in common, and a blank behind it when there is one word only.
std::string Completed(std::string_view text, const Completion& completion);

}  // namespace shell

#endif
