#include "tools/shell/completion.h"

#include <algorithm>
#include <utility>

namespace shell {
namespace {

enum class Expected { kField, kOperator, kValue, kBetweenAnd, kUpperValue, kJoiner };

std::vector<std::string> Fields(FieldIds known) {
  std::vector<std::string> words;
  const std::string names = FieldNames(known);
  for (std::size_t start = 0; start < names.size();) {
    const std::size_t comma = std::min(names.find(", ", start), names.size());
    words.push_back(names.substr(start, comma - start));
    start = comma + 2;
  }
  return words;
}

// What stands behind a finished word.
Expected After(Expected expected, std::string_view word) {
  switch (expected) {
    case Expected::kField:
      return Expected::kOperator;
    case Expected::kOperator:
      return word == "between" ? Expected::kBetweenAnd : Expected::kValue;
    case Expected::kValue:
      return Expected::kJoiner;
    case Expected::kBetweenAnd:
      return word == "and" ? Expected::kUpperValue : Expected::kBetweenAnd;
    case Expected::kUpperValue:
      return Expected::kJoiner;
    default:
      return Expected::kField;
  }
}

std::vector<std::string> WordsFor(Expected expected, FieldIds known) {
  switch (expected) {
    case Expected::kField:
      return Fields(known);
    case Expected::kOperator:
      return {"<", "<=", "<>", "=", ">", ">=", "between", "like"};
    case Expected::kBetweenAnd:
      return {"and"};
    case Expected::kJoiner:
      return {"and", "or"};
    default:
      return {};
  }
}

// Where the word that begins at `start` ends; blanks in quotes belong to it.
std::size_t EndOfWord(std::string_view text, std::size_t start) {
  char quote = '\0';
  for (std::size_t at = start; at < text.size(); ++at) {
    if (quote != '\0') {
      if (text[at] == quote) quote = '\0';
    } else if (text[at] == '\'' || text[at] == '"') {
      quote = text[at];
    } else if (text[at] == ' ') {
      return at;
    }
  }
  return std::string_view::npos;
}

}  // namespace

Completion CompleteWord(std::string_view text, std::vector<std::string> words) {
  const std::size_t blank = text.find_last_of(' ');
  const std::size_t start = blank == std::string_view::npos ? 0 : blank + 1;
  const std::string_view begun = text.substr(start);
  std::erase_if(words, [begun](const std::string& word) { return !word.starts_with(begun); });
  std::sort(words.begin(), words.end());
  return {start, std::move(words)};
}

Completion CompleteFilter(std::string_view text, FieldIds known) {
  Expected expected = Expected::kField;
  std::size_t start = 0;
  while (start < text.size()) {
    const std::size_t end = EndOfWord(text, start);
    if (end == std::string_view::npos) break;
    if (end > start) expected = After(expected, text.substr(start, end - start));
    start = end + 1;
  }
  Completion completion = CompleteWord(text.substr(start), WordsFor(expected, known));
  completion.start += start;
  return completion;
}

Completion CompleteSort(std::string_view text, FieldIds known) {
  const std::size_t comma = text.find_last_of(", ");
  std::size_t start = comma == std::string_view::npos ? 0 : comma + 1;
  if (text.substr(start).starts_with('-')) ++start;
  Completion completion = CompleteWord(text.substr(start), Fields(known));
  completion.start += start;
  return completion;
}

std::string Completed(std::string_view text, const Completion& completion) {
  if (completion.words.empty()) return std::string(text);
  std::string common = completion.words.front();
  for (const std::string& word : completion.words) {
    const auto [end, other] = std::mismatch(common.begin(), common.end(), word.begin(), word.end());
    common.erase(end, common.end());
  }
  if (completion.words.size() == 1) common += ' ';
  return std::string(text.substr(0, completion.start)) + common;
}

}  // namespace shell
