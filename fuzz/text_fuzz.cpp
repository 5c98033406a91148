// Cutting texts: the result is a beginning of the text, fits, ends between characters and is no shorter than
// it must be; bytes outside the buffer stay.
#include <fuzzer/FuzzedDataProvider.h>

#include <algorithm>
#include <cstring>
#include <string>

#include "fuzz/exact.h"
#include "fuzz/require.h"
#include "platform/text.h"
#include "tools/record_text.h"

namespace {

using fuzz::Require;

void CheckCopy(const std::string& bytes, std::size_t size, std::size_t length) {
  const auto source = fuzz::ExactText(bytes);
  const std::string text = fuzz::UpToZero(bytes).substr(0, length);
  const auto buffer = std::make_unique<char[]>(size);
  std::memset(buffer.get(), 'x', size);
  const std::size_t copied = text::BoundedCopy(buffer.get(), size, source.get(), length);
  if (size == 0) return Require(copied == 0, "something was copied to nothing");
  Require(copied < size && buffer[copied] == '\0', "the copy does not end");
  Require(text.compare(0, copied, buffer.get(), copied) == 0, "the copy is no beginning of the text", text);
  Require(std::all_of(buffer.get() + copied + 1, buffer.get() + size, [](char c) { return c == 'x'; }),
          "bytes behind the copy changed");
  // The companion program counts characters by itself.
  if (IsUtf8(text)) Require(copied == FittingBytes(text, size - 1), "another cut", text);
  Require(text.size() < size ? copied == text.size() : copied + 4 > size - 1, "cut too short", text);
}

void CheckField(const std::string& bytes) {
  const auto field = fuzz::ExactBytes(bytes);
  const std::size_t length = text::FieldLength(field.get(), bytes.size());
  if (bytes.empty()) return Require(length == 0, "a field without bytes has a text");
  const auto copy = std::make_unique<char[]>(bytes.size());
  const std::size_t copied = text::BoundedCopy(copy.get(), bytes.size(), field.get(), bytes.size());
  Require(length == copied, "the field has another length than its copy", bytes);
}

// Copying onto itself, as into the record that a text comes from.
void CheckOverlap(const std::string& bytes, std::size_t size, std::size_t shift) {
  const std::string expected = [&] {
    const auto copy = std::make_unique<char[]>(size + 1);
    const std::size_t copied = text::BoundedCopy(copy.get(), size, bytes.c_str(), bytes.size());
    return std::string(copy.get(), copied);
  }();
  const std::size_t room = std::max(bytes.size() + 1, size) + shift;
  const auto memory = std::make_unique<char[]>(room);
  std::memcpy(memory.get() + shift, bytes.c_str(), bytes.size() + 1);
  const std::size_t copied = text::BoundedCopy(memory.get(), size, memory.get() + shift, bytes.size());
  if (size > 0) Require(std::string(memory.get(), copied) == expected, "an overlapping copy differs", bytes);
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  FuzzedDataProvider input(data, size);
  const std::size_t buffer = input.ConsumeIntegralInRange<std::size_t>(0, 80);
  const std::size_t length = input.ConsumeIntegralInRange<std::size_t>(0, 90);
  const std::size_t shift = input.ConsumeIntegralInRange<std::size_t>(0, 8);
  const std::string bytes = input.ConsumeRandomLengthString(80);
  CheckCopy(bytes, buffer, length);
  CheckField(bytes);
  CheckOverlap(bytes, buffer, shift);
  return 0;
}
