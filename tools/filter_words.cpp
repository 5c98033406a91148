#include "tools/filter_words.h"

#include <fmt/format.h>

#include <algorithm>
#include <cctype>
#include <charconv>
#include <functional>
#include <optional>
#include <utility>

#include "tools/field_names.h"
#include "tools/time_text.h"

namespace {

struct OperatorName {
  std::string_view word;
  int operation;
};

// Longer signs before those that they begin with.
constexpr OperatorName kSigns[] = {
    {"<>", KYODBC_NOT_EQUAL    },
    {"!=", KYODBC_NOT_EQUAL    },
    {"<=", KYODBC_LESS_EQUAL   },
    {">=", KYODBC_GREATER_EQUAL},
    {"=",  KYODBC_EQUAL        },
    {"<",  KYODBC_LESS         },
    {">",  KYODBC_GREATER      },
};
constexpr OperatorName kWords[] = {
    {"like",    KYODBC_LIKE   },
    {"between", KYODBC_BETWEEN},
};

bool IsWordCharacter(unsigned char c) { return std::isalnum(c) != 0 || c == '-' || c == '_'; }
bool IsBlank(unsigned char c) { return std::isspace(c) != 0; }

// Takes a filter apart from the front.
class Scanner {
 public:
  explicit Scanner(std::string_view text) : m_rest(text) { SkipBlanks(); }

  bool AtEnd() const { return m_rest.empty(); }
  std::string_view Rest() const { return m_rest; }

  // A field's name or a joiner, in small letters; may be empty.
  std::string Word() {
    std::string word(Take(Count(IsWordCharacter)));
    for (char& c : word) c = static_cast<char>(std::tolower(static_cast<unsigned char>(c)));
    return word;
  }

  std::optional<int> Operation() {
    for (const OperatorName& sign : kSigns) {
      if (m_rest.starts_with(sign.word)) {
        Take(sign.word.size());
        return sign.operation;
      }
    }
    const std::string word = Word();
    for (const OperatorName& name : kWords) {
      if (word == name.word) return name.operation;
    }
    return std::nullopt;
  }

  // A text in quotes, in which the quote stands for itself when written twice; or all up to the next blank.
  std::string Value() {
    if (AtEnd()) throw WordsError("a value is missing at the end");
    const char quote = m_rest.front();
    if (quote != '\'' && quote != '"') return std::string(Take(Count(std::not_fn(IsBlank))));
    std::string value;
    std::size_t at = 1;
    while (at < m_rest.size() && (m_rest[at] != quote || m_rest.substr(at + 1).starts_with(quote))) {
      if (m_rest[at] == quote) ++at;
      value += m_rest[at++];
    }
    if (at == m_rest.size()) throw WordsError(fmt::format("the quote at {} is never closed", m_rest));
    Take(at + 1);
    return value;
  }

 private:
  template <class Test>
  std::size_t Count(Test test) const {
    const auto end = std::find_if_not(m_rest.begin(), m_rest.end(),
                                      [&](char c) { return test(static_cast<unsigned char>(c)); });
    return static_cast<std::size_t>(end - m_rest.begin());
  }
  std::string_view Take(std::size_t count) {
    const std::string_view taken = m_rest.substr(0, count);
    m_rest.remove_prefix(count);
    SkipBlanks();
    return taken;
  }
  void SkipBlanks() { m_rest.remove_prefix(Count(IsBlank)); }

  std::string_view m_rest;
};

LONG ReadKey(const std::string& text) {
  LONG key = 0;
  const auto [end, error] = std::from_chars(text.data(), text.data() + text.size(), key);
  if (error != std::errc() || end != text.data() + text.size()) {
    throw WordsError(fmt::format("'{}' is not a whole number of 32 bits", text));
  }
  return key;
}

TIMESTAMP_STRUCT ReadMoment(const std::string& text) {
  const std::optional<TIMESTAMP_STRUCT> time = ReadTime(text);
  if (!time)
    throw WordsError(fmt::format("'{}' is not a date like 2001-05-06 or '2001-05-06 10:00:00'", text));
  return *time;
}

std::string ReadText(std::string text) {
  if (text.find('\0') != std::string::npos) throw WordsError("a text must not contain a zero byte");
  return text;
}

Filter::Value ReadValue(Scanner& scanner, ValueType type) {
  std::string text = scanner.Value();
  switch (type) {
    case ValueType::kKey:
      return ReadKey(text);
    case ValueType::kText:
      return ReadText(std::move(text));
    default:
      return ReadMoment(text);
  }
}

bool IsMoment(ValueType type) { return type == ValueType::kDate || type == ValueType::kTime; }

void ReadUpperBound(Scanner& scanner, Filter& filter, ValueType type) {
  if (scanner.Word() != "and") throw WordsError("between needs 'and' and a second value");
  filter.Append(0, 0, ReadValue(scanner, type));
}

void ReadClause(Scanner& scanner, Filter& filter, FieldIds known, int joiner) {
  const std::string word = scanner.Word();
  if (word.empty()) throw WordsError(fmt::format("a field is missing at '{}'", scanner.Rest()));
  const FieldName& field = FindField(word, known);
  const std::string_view at = scanner.Rest();
  const std::optional<int> operation = scanner.Operation();
  if (!operation) {
    throw WordsError(fmt::format("an operator (= <> < <= > >= like between) is missing at '{}'", at));
  }
  if (*operation == KYODBC_BETWEEN && !IsMoment(field.type)) {
    throw WordsError(fmt::format("between is for dates and times; '{}' is none", word));
  }
  filter.Append(field.id | joiner, *operation, ReadValue(scanner, field.type));
  if (*operation == KYODBC_BETWEEN) ReadUpperBound(scanner, filter, field.type);
}

// 0 for "and", the bit of the field id for "or".
int ReadJoiner(Scanner& scanner) {
  const std::string_view at = scanner.Rest();
  const std::string word = scanner.Word();
  if (word == "and") return 0;
  if (word == "or") return KYODBC_OR;
  throw WordsError(fmt::format("'and' or 'or' is missing at '{}'; texts with blanks need quotes", at));
}

LONG Pack(const std::array<int, Filter::kMostValues>& bytes) {
  return KYODBC_PACK(bytes[0], bytes[1], bytes[2], bytes[3]);
}

}  // namespace

LONG Filter::Fields() const { return Pack(m_fields); }

LONG Filter::Operators() const { return Pack(m_operators); }

const void* Filter::ValuePointer(std::size_t slot) const {
  const Value& value = m_values.at(slot);
  if (const auto* key = std::get_if<LONG>(&value)) return key;
  if (const auto* text = std::get_if<std::string>(&value)) return text->c_str();
  return std::get_if<TIMESTAMP_STRUCT>(&value);
}

void Filter::Append(int field, int operation, Value value) {
  if (IsFull()) throw WordsError("a filter holds at most four values; between takes two");
  m_fields[m_used] = field;
  m_operators[m_used] = operation;
  m_values[m_used] = std::move(value);
  ++m_used;
}

Filter ReadFilter(const std::vector<std::string>& texts, FieldIds known) {
  Filter filter;
  for (const std::string& text : texts) {
    Scanner scanner(text);
    ReadClause(scanner, filter, known, 0);
    while (!scanner.AtEnd()) {
      const int joiner = ReadJoiner(scanner);
      ReadClause(scanner, filter, known, joiner);
    }
  }
  return filter;
}

LONG ReadSort(std::string_view text, FieldIds known) {
  std::array<int, Filter::kMostValues> keys{};
  std::size_t used = 0;
  for (bool more = true; more; ++used) {
    if (used == keys.size()) throw WordsError("a sort order holds at most four fields");
    const std::size_t comma = text.find(',');
    std::string_view word = text.substr(0, comma);
    more = comma != std::string_view::npos;
    if (more) text.remove_prefix(comma + 1);
    const bool descending = word.starts_with('-');
    if (descending) word.remove_prefix(1);
    keys[used] = FindField(word, known).id | (descending ? KYODBC_DESCENDING : 0);
  }
  return Pack(keys);
}
