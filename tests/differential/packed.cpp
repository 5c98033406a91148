#include "tests/differential/packed.h"

#include <sqltypes.h>

#include <cstring>
#include <stdexcept>
#include <utility>

namespace differential {

Packed::Packed(Stem stem) : Packed(stem, std::string(LayoutOf(stem).size, kUntouched)) {}

Packed::Packed(Stem stem, std::string bytes) : m_layout(&LayoutOf(stem)), m_bytes(std::move(bytes)) {
  if (m_bytes.size() != m_layout->size) throw std::runtime_error("a record of another size");
}

Packed Packed::Empty(Stem stem) {
  Packed record(stem);
  for (std::size_t i = 0; i < record.m_layout->fields.size(); ++i) record.Set(static_cast<int>(i), {});
  return record;
}

int Packed::Number(int field) const {
  const Field& at = At(field);
  std::uint32_t value = 0;
  std::memcpy(&value, m_bytes.data() + at.offset, static_cast<std::size_t>(at.width));
  return static_cast<int>(value);
}

std::string Packed::Text(int field, int skipped) const {
  const Field& at = At(field);
  const char* start = m_bytes.data() + at.offset + skipped;
  const auto width = static_cast<std::size_t>(at.width - skipped);
  return Cut({start, strnlen(start, width)}, width - 1);
}

Time Packed::Moment(int field) const {
  TIMESTAMP_STRUCT time;
  std::memcpy(&time, m_bytes.data() + At(field).offset, sizeof time);
  return {time.year, time.month, time.day, time.hour, time.minute, time.second};
}

void Packed::SetNumber(int field, int value) {
  const Field& at = At(field);
  std::memcpy(m_bytes.data() + at.offset, &value, static_cast<std::size_t>(at.width));
}

void Packed::SetText(int field, const std::string& text) {
  const Field& at = At(field);
  const std::string cut = Cut(text, static_cast<std::size_t>(at.width) - 1);
  std::memcpy(m_bytes.data() + at.offset, cut.c_str(), cut.size() + 1);
}

void Packed::SetMoment(int field, const Time& time) {
  TIMESTAMP_STRUCT value{};
  value.year = static_cast<SQLSMALLINT>(time[0]);
  value.month = static_cast<SQLUSMALLINT>(time[1]);
  value.day = static_cast<SQLUSMALLINT>(time[2]);
  value.hour = static_cast<SQLUSMALLINT>(time[3]);
  value.minute = static_cast<SQLUSMALLINT>(time[4]);
  value.second = static_cast<SQLUSMALLINT>(time[5]);
  std::memcpy(m_bytes.data() + At(field).offset, &value, sizeof value);
}

void Packed::SetUnterminated(int field, const std::string& text) {
  const Field& at = At(field);
  if (text.size() != static_cast<std::size_t>(at.width)) throw std::runtime_error("not as wide as the field");
  std::memcpy(m_bytes.data() + at.offset, text.data(), text.size());
}

Cell Packed::Value(int field) const {
  switch (At(field).kind) {
    case Kind::kText:
      return Text(field);
    case Kind::kDate:
    case Kind::kTime:
      return Moment(field);
    case Kind::kFlag:
      return Number(field) == 0 ? 0 : 1;
    default:
      return Number(field);
  }
}

void Packed::Set(int field, const Cell& cell) {
  switch (At(field).kind) {
    case Kind::kText:
      return SetText(field, IsNull(cell) ? std::string() : std::get<std::string>(cell));
    case Kind::kDate:
    case Kind::kTime:
      return SetMoment(field, IsNull(cell) ? Time{} : std::get<Time>(cell));
    default:
      return SetNumber(field, IsNull(cell) ? 0 : std::get<int>(cell));
  }
}

}  // namespace differential
