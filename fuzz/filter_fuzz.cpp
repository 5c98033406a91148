// Filters of closed browse sets: the text made must read back as the clauses that were asked for, whatever
// bytes the values have.
#include <fuzzer/FuzzedDataProvider.h>

#include <algorithm>
#include <string>
#include <vector>

#include "fuzz/browse_sets.h"
#include "fuzz/exact.h"
#include "fuzz/reading.h"

namespace {

using fuzz::Require;

enum class Type { kNone, kNumber, kText, kDate, kTimestamp };

Type TypeOf(int field) {
  if (field >= 1 && field <= 11) return Type::kNumber;
  if (field >= 33 && field <= 34) return Type::kDate;
  if (field >= 35 && field <= 36) return Type::kTimestamp;
  const bool text = (field >= 17 && field <= 20) || (field >= 22 && field <= 26) ||
                    (field >= 42 && field <= 43) || (field >= 49 && field <= 53) ||
                    (field >= 58 && field <= 59);
  return text ? Type::kText : Type::kNone;
}

const char* SignOf(int op) {
  switch (op) {
    case 2:
      return ">=";
    case 3:
      return ">";
    case 4:
      return "<=";
    case 5:
      return "<";
    case 7:
      return "<>";
    case 16:
      return "LIKE";
    case 17:
      return "BETWEEN";
    default:
      return "=";
  }
}

// One operand in all its forms, each in memory of its own.
struct Value {
  bool null;
  LONG number;
  std::string text;
  TIMESTAMP_STRUCT time;
  fuzz::Packed<LONG> packed_number{0};
  fuzz::Packed<TIMESTAMP_STRUCT> packed_time{{}};
  std::unique_ptr<char[]> exact_text;

  void* As(Type type) {
    if (null) return nullptr;
    if (type == Type::kText) return exact_text.get();
    return type == Type::kNumber ? packed_number.Get() : packed_time.Get();
  }
  void TakeFrom(std::string_view* rest, Type type) const {
    if (type == Type::kNumber) return Require(fuzz::TakeNumber(rest) == number, "another number");
    if (type == Type::kDate) return fuzz::TakeDate(rest, time);
    if (type == Type::kTimestamp) return fuzz::TakeTimestamp(rest, time);
    Require(fuzz::TakeText(rest) == text, "another text", text);
  }
};

Value ConsumeValue(FuzzedDataProvider& input) {
  Value value;
  value.null = input.ConsumeIntegralInRange(0, 15) == 0;
  value.number = input.ConsumeIntegral<LONG>();
  value.time = {};
  value.time.year = input.ConsumeIntegral<SQLSMALLINT>();
  for (SQLUSMALLINT* part :
       {&value.time.month, &value.time.day, &value.time.hour, &value.time.minute, &value.time.second}) {
    *part = input.ConsumeIntegral<SQLUSMALLINT>();
  }
  const std::string bytes = input.ConsumeRandomLengthString(60);
  value.text = fuzz::UpToZero(bytes);
  value.packed_number = fuzz::Packed<LONG>(value.number);
  value.packed_time = fuzz::Packed<TIMESTAMP_STRUCT>(value.time);
  value.exact_text = fuzz::ExactText(value.text);
  return value;
}

struct Asked {
  std::vector<int> fields, operators;
  std::vector<Value> values;
};

// What the clauses come to by the rules, and the text that `filter` must then consist of.
class Expectation {
 public:
  Expectation(CKyRecSet& set, const Asked& asked) : m_set(set), m_asked(asked) {}

  WORD Code() {
    WORD code = 0;
    Walk([&](int slot, int last) {
      if (last < 0) code = 1;
      return std::max(slot, last);
    });
    return m_stopped ? 1 : code;
  }

  // How each value is read: the second one of a range as the first.
  std::vector<Type> Types() {
    std::vector<Type> types;
    for (const int field : m_asked.fields) types.push_back(TypeOf(field & 0x7F));
    Walk([&](int slot, int last) {
      if (last > slot) types[At(last)] = types[At(slot)];
      return std::max(slot, last);
    });
    return types;
  }

  void TakeClauses(std::string_view* rest) {
    fuzz::Take(rest, " ((");
    Walk([&](int slot, int last) {
      const bool joined_by_or = (m_asked.fields[At(slot)] & 0x80) != 0;
      if (slot > 0) fuzz::Take(rest, joined_by_or ? " ) OR (" : " ) AND (");
      const int field = m_asked.fields[At(slot)] & 0x7F;
      LONG error = 0;
      fuzz::Take(rest, static_cast<const char*>(m_set.GetFieldName(field, &error)));
      fuzz::Take(rest, " ");
      fuzz::Take(rest, SignOf(m_asked.operators[At(slot)]));
      fuzz::Take(rest, " ");
      m_asked.values[At(slot)].TakeFrom(rest, TypeOf(field));
      if (last > slot) {
        fuzz::Take(rest, " AND ");
        m_asked.values[At(last)].TakeFrom(rest, TypeOf(field));
      }
      return last;
    });
    fuzz::Take(rest, ")) ");
  }

 private:
  static std::size_t At(int slot) { return static_cast<std::size_t>(slot); }

  // Gives each clause and the slot of its last value, -1 for a refused one, to `clause`, which returns the
  // last slot that is used up.
  template <class Clause>
  void Walk(Clause clause) {
    m_stopped = false;
    for (int slot = 0; slot < 4 && (m_asked.fields[At(slot)] & 0x7F) != 0; ++slot) {
      const int field = m_asked.fields[At(slot)] & 0x7F;
      LONG error = 0;
      m_set.GetFieldName(field, &error);
      if (error != 0 || TypeOf(field) == Type::kNone) {
        m_stopped = true;
        return;
      }
      const bool range = m_asked.operators[At(slot)] == 17;
      const bool takes_range = TypeOf(field) == Type::kDate || TypeOf(field) == Type::kTimestamp;
      const int last = range ? slot + 1 : slot;
      const bool refused = (range && !takes_range) || last > 3 || m_asked.values[At(slot)].null ||
                           m_asked.values[At(last)].null;
      slot = clause(slot, refused ? -1 : last);
    }
  }

  CKyRecSet& m_set;
  const Asked& m_asked;
  bool m_stopped = false;
};

LONG Pack(const std::vector<int>& bytes) {
  DWORD word = 0;
  for (std::size_t i = 0; i < 4; ++i) word |= static_cast<DWORD>(bytes[i]) << (8 * i);
  return static_cast<LONG>(word);
}

void CheckView(std::string_view rest, Expectation& expected, WORD code) {
  fuzz::Take(&rest, "(td.tDrCulIntDrIDPk=tp.tPatCulIntDrIDFk");
  if (code == 0) {
    fuzz::Take(&rest, " AND");
    expected.TakeClauses(&rest);
  }
  Require(rest == ")", "the view's own filter is not closed", rest);
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  FuzzedDataProvider input(data, size);
  const std::size_t kind = input.ConsumeIntegralInRange<std::size_t>(0, fuzz::kBrowseSets - 1);
  const std::unique_ptr<CKyRecSet> set = fuzz::MakeBrowseSet(kind);
  Asked asked;
  for (int slot = 0; slot < 4; ++slot) {
    asked.fields.push_back(input.ConsumeIntegral<std::uint8_t>());
    // The top bit of an operator means nothing.
    asked.operators.push_back(input.ConsumeIntegralInRange(0, 31));
    asked.values.push_back(ConsumeValue(input));
  }
  const CString before = set->m_strFilter;
  Expectation expected(*set, asked);
  const std::vector<Type> types = expected.Types();
  void* values[4];
  for (std::size_t slot = 0; slot < 4; ++slot) values[slot] = asked.values[slot].As(types[slot]);
  const WORD code =
      set->SetFilter(Pack(asked.fields), Pack(asked.operators), values[0], values[1], values[2], values[3]);
  Require(code == expected.Code(), "another code");
  std::string_view text(static_cast<const char*>(set->m_strFilter),
                        static_cast<std::size_t>(set->m_strFilter.GetLength()));
  if (kind == fuzz::kBrowseSets - 1) {
    CheckView(text, expected, code);
  } else if (code != 0) {
    Require(set->m_strFilter == before, "a refused filter changed the old one", text);
  } else {
    expected.TakeClauses(&text);
    Require(text.empty(), "text behind the filter", text);
  }
  return 0;
}
