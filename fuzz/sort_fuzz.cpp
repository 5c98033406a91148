// Sort orders of closed browse sets: the text made must be the list of keys that was asked for.
#include <fuzzer/FuzzedDataProvider.h>

#include <string>

#include "fuzz/browse_sets.h"
#include "fuzz/require.h"

namespace {

using fuzz::Require;

struct Order {
  WORD code = 0;
  std::string text;
};

std::string Column(CKyRecSet& set, int field, bool* known) {
  LONG error = 0;
  const CString name = set.GetFieldName(field, &error);
  *known = error == 0;
  return static_cast<const char*>(name);
}

// An unknown first key is refused; an unknown later one ends the list, and the comma before it stays. A byte
// without a field ends the list too.
Order OrderOf(CKyRecSet& set, const int (&bytes)[4]) {
  Order order;
  for (const int byte : bytes) {
    const int field = byte & 0x7F;
    bool known = false;
    const std::string column = Column(set, field, &known);
    if (!order.text.empty() && field != 0) order.text += ",";
    if (!known) {
      if (order.text.empty()) order.code = 1;
      return order;
    }
    order.text += column + ((byte & 0x80) != 0 ? " DESC" : "");
  }
  return order;
}

void CheckSortIndex(FuzzedDataProvider& input, CKyRecSet& set) {
  int bytes[4];
  DWORD word = 0;
  for (int slot = 0; slot < 4; ++slot) {
    bytes[slot] = input.ConsumeIntegral<std::uint8_t>();
    word |= static_cast<DWORD>(bytes[slot]) << (8 * slot);
  }
  const LONG index = static_cast<LONG>(word);
  const bool same = index == set.m_lSortIndex;
  const std::string before = static_cast<const char*>(set.m_strSort);
  const WORD code = set.SetSortIndex(index);
  const std::string text = static_cast<const char*>(set.m_strSort);
  if (same) return Require(code == 0 && text == before, "the same index again changed the order", text);
  const Order expected = OrderOf(set, bytes);
  Require(code == expected.code, "another code", text);
  Require(text == expected.text, "another order", text);
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  FuzzedDataProvider input(data, size);
  const auto set = fuzz::MakeBrowseSet(input.ConsumeIntegralInRange<std::size_t>(0, fuzz::kBrowseSets - 1));
  while (input.remaining_bytes() > 0) CheckSortIndex(input, *set);
  return 0;
}
