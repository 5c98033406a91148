#include "frame/last_failure.h"

#include <algorithm>
#include <atomic>
#include <cstring>
#include <exception>
#include <thread>

#include <fmt/format.h>

#include "frame/KyODBCDiag.h"
#include "frame/connection.h"
#include "frame/result_code_names.h"
#include "platform/log.h"
#include "platform/refusal.h"
#include "platform/result_codes.h"
#include "platform/text.h"

namespace flat {
namespace {

#ifndef NDEBUG
std::atomic<std::thread::id> inside;  // none: nobody
std::atomic<const char*> inside_function;
#endif

int depth = 0;
tagDBERRORDETAIL last_failure;

template <std::size_t N>
void PutText(char (&field)[N], const char* text) {
  text::BoundedCopy(field, N, text, std::strlen(text));
}

void Remember(const char* function, WORD code) {
  last_failure = {};
  last_failure.wCode = code;
  PutText(last_failure.szFunction, function);
  const refusal::Refusal& refused = refusal::Last();
  const bool by_database = refused.code == code;
  if (by_database) {
    PutText(last_failure.szState, refused.state);
    last_failure.lNative = refused.native;
    last_failure.lRecords = refused.records;
  }
  const bool told = by_database && refused.message[0] != '\0';
  PutText(last_failure.szMessage, told ? refused.message : ResultCodeMeaning(code));
}

}  // namespace

#ifndef NDEBUG

namespace {

// No exception leaves an exported function, for want of memory neither.
void TellOfTwoThreads(const char* refused, const char* why, const char* other) noexcept {
  try {
    klog::Error(fmt::format("two threads at once: {} refused{}{}", refused, why, other));
  } catch (const std::exception&) {
    return;
  }
}

}  // namespace

Entrance::Entrance(const char* function) : m_function(function) {
  std::thread::id nobody;
  const std::thread::id self = std::this_thread::get_id();
  m_outermost = inside.compare_exchange_strong(nobody, self);
  m_refused = !m_outermost && nobody != self;
  if (m_outermost) inside_function = function;
  if (!m_refused) return;
  const char* other = inside_function;
  TellOfTwoThreads(function, " while another thread is in ", other != nullptr ? other : "the library");
}

Entrance::~Entrance() {
  if (m_outermost) inside = std::thread::id();
}

bool Entrance::Refused(const void* connected) const {
  if (m_refused || connected == nullptr) return m_refused;
  const CDBConnection& connection = TheConnection();
  const bool closed_elsewhere =
      connection.m_ClosedBy != std::thread::id() && connection.m_ClosedBy != std::this_thread::get_id();
  if (!closed_elsewhere || connection.Holds(connected)) return false;
  TellOfTwoThreads(m_function, ", another thread has closed what it was to work on", "");
  return true;
}

#endif

FlatCall::FlatCall(const char* function) : m_function(function), m_entrance(function) {
  if (m_entrance.Refused()) return;
  if (depth++ == 0) refusal::Forget();
}

FlatCall::~FlatCall() {
  if (!m_entrance.Refused()) --depth;
}

WORD FlatCall::Answer(WORD code) const {
  if (m_entrance.Refused()) return kDbException;
  if (code != kOk && depth == 1) Remember(m_function, code);
  return code;
}

}  // namespace flat

WORD DB_GetLastErrorDetail(tagDBERRORDETAIL* detail, DWORD size) {
  [[maybe_unused]] const flat::Entrance entrance(__func__);
  if (entrance.Refused()) return kDbException;
  if (detail == nullptr || size < KYODBC_ERROR_DETAIL_SIZE_1) return kBadArgument;
  if (flat::last_failure.wCode == kOk) return kNoRow;
  tagDBERRORDETAIL known = flat::last_failure;
  const DWORD filled = std::min<DWORD>(size, sizeof known);
  known.dwSize = filled;
  std::memcpy(static_cast<void*>(detail), &known, filled);
  return kOk;
}
