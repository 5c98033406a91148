#include "frame/connection.h"

#include <sys/mman.h>

#include <algorithm>
#include <cctype>
#include <cstring>
#include <memory>
#include <new>
#include <string_view>
#include <type_traits>

#include "platform/cdbexception.h"
#include "platform/log.h"
#include "platform/result_codes.h"
#include "recset/cfg_rec.h"
#include "recset/diag_rec.h"
#include "recset/dr_rec.h"
#include "recset/grp_rec.h"
#include "recset/img_rec.h"
#include "recset/mak_rec.h"
#include "recset/pat_rec.h"
#include "recset/patex_rec.h"
#include "recset/stat_rec.h"
#include "recset/test_rec.h"
#include "recset/unit_rec.h"

namespace {

constexpr DWORD kLoginTimeoutSeconds = 30;

SecretText InBraces(std::string_view value) {
  SecretText text("{");
  for (std::size_t brace = value.find('}'); brace != std::string_view::npos; brace = value.find('}')) {
    text += value.substr(0, brace + 1);
    text += "}";
    value.remove_prefix(brace + 1);
  }
  text += value;
  text += "}";
  return text;
}

// One driver takes braces around a user for a part of the name: only where there is no other way.
SecretText User(std::string_view value) {
  return value.starts_with('{') || value.find(';') != std::string_view::npos ? InBraces(value)
                                                                             : SecretText(value);
}

// One driver decodes "%3B" and "+" outside braces.
SecretText Password(std::string_view value) {
  const bool blank_end = value.starts_with(' ') || value.ends_with(' ');
  return blank_end || value.find_first_of(";{}%+") != std::string_view::npos ? InBraces(value)
                                                                             : SecretText(value);
}

// No data source can have such a name, and drivers do not agree on what it would mean.
bool IsSourceName(const char* name) { return std::strpbrk(name, ";{}") == nullptr; }

bool Answers(CDatabase& database) {
  try {
    database.ExecuteSQL("SELECT 1");
    return true;
  } catch (CDBException* exception) {
    exception->Delete();
    return false;
  }
}

template <class Set>
void CloseAndDestroy(Set*& set) {
  if (set == nullptr) return;
  if (set->IsOpen()) set->Close();
  delete set;
  set = nullptr;
}

}  // namespace

CDBConnection& TheConnection() {
  static CDBConnection connection;
  [[maybe_unused]] static const bool kept = (connection.KeepOutOfDumps(), true);
  return connection;
}

bool IsOwnerPrefix(std::string_view text) {
  constexpr std::string_view kSigns = "_$@.-[]";
  constexpr unsigned char kFirstOfOtherLetters = 0x80;
  const auto allowed = [=](char c) {
    const auto byte = static_cast<unsigned char>(c);
    return byte >= kFirstOfOtherLetters || std::isalnum(byte) != 0 || kSigns.find(c) != kSigns.npos;
  };
  return std::all_of(text.begin(), text.end(), allowed) && text.find("--") == std::string_view::npos;
}

void CDBConnection::KeepOutOfDumps() const {
  void* page = const_cast<tagDBCONNECT*>(&m_Params);
  madvise(page, kPageSize, MADV_DONTDUMP);
  mlock(page, kPageSize);
}

void CDBConnection::ForgetPassword() { explicit_bzero(m_Params.szPWD, sizeof m_Params.szPWD); }

// The eleven sets in their order: the only list of them.
template <class Function>
void CDBConnection::ForEachSet(Function function) {
  function(m_pDr);
  function(m_pStat);
  function(m_pUnit);
  function(m_pPat);
  function(m_pPatEx);
  function(m_pImg);
  function(m_pMak);
  function(m_pGrp);
  function(m_pDiag);
  function(m_pCfg);
  function(m_pTest);
}

bool CDBConnection::Holds(const void* object) const {
  if (object == this || object == m_pDatabase) return true;
  bool found = false;
  const_cast<CDBConnection*>(this)->ForEachSet([&](const auto* set) { found = found || set == object; });
  return found;
}

WORD CDBConnection::Connect() {
  if (IsOpen()) return kNotOpened;
  // A connection that died has left its objects behind; the sets belong to the old database.
  RememberBrowsing();
  const WORD closed = CloseAll();
  if (closed != kOk) return closed;
  m_pDatabase = new (std::nothrow) CDatabase;
  if (m_pDatabase == nullptr) return kOutOfMemory;
  const WORD opened = OpenDatabase();
  if (opened != kOk) return GiveUp(opened);
  if (!Ping()) return GiveUp(kNotOpened);
  const WORD created = CreateSets();
  return created == kOk ? kOk : GiveUp(created);
}

void CDBConnection::RememberBrowsing() {
  auto kept = m_browsing.begin();
  ForEachSet([&](const CKyRecSet* set) {
    if (set != nullptr && set->m_strFilter != kept->fresh) kept->filter = set->m_strFilter;
    if (set != nullptr && set->m_lSortIndex != 0) {
      kept->sort = set->m_strSort;
      kept->sort_index = set->m_lSortIndex;
    }
    ++kept;
  });
}

// A transaction with a refused statement in it may not let anything be read before it is rolled back: then
// the sets keep their marks.
void CDBConnection::ReadMarkedSets(const CKyRecSet* but, const CKyRecSet* nor) {
  const auto is_due = [=](const CKyRecSet* set) {
    return set != nullptr && set != but && set != nor && set->IsMarked();
  };
  bool due = false;
  ForEachSet([&](const CKyRecSet* set) { due = due || is_due(set); });
  if (!due || (m_pDatabase->InTransaction() && !Answers(*m_pDatabase))) return;
  ForEachSet([&](CKyRecSet* set) {
    if (!is_due(set)) return;
    try {
      set->CatchUp();
    } catch (CDBException* exception) {
      klog::Caught(exception, kDbException);
    }
  });
}

void CDBConnection::ForgetBrowsing() {
  for (Browsing& kept : m_browsing) kept = {kept.fresh, CString(), CString(), 0};
}

CKyRecSet* CDBConnection::SetAsItWas(LONG number) {
  CKyRecSet* found = nullptr;
  LONG each = 0;
  ForEachSet([&](CKyRecSet* set) {
    if (++each == number) found = set;
  });
  if (found == nullptr) return nullptr;
  const Browsing& kept = m_browsing[static_cast<std::size_t>(number) - 1];
  if (found->m_strFilter == kept.fresh && !kept.filter.IsEmpty()) found->m_strFilter = kept.filter;
  if (found->m_lSortIndex == 0 && kept.sort_index != 0) {
    found->m_strSort = kept.sort;
    found->m_lSortIndex = kept.sort_index;
  }
  return found;
}

// The failure that led here is the answer, not one of closing what little there is.
WORD CDBConnection::GiveUp(WORD code) {
  CloseAll();
  return code;
}

SecretText CDBConnection::ConnectString() const {
  SecretText text;
  const auto append = [&text](std::string_view keyword, std::string_view value) {
    text += keyword;
    text += value;
  };
  if (m_Params.szDSN[0] != '\0') append("DSN=", m_Params.szDSN);
  if (m_Params.szUID[0] != '\0') append(";UID=", User(m_Params.szUID).View());
  if (m_Params.szPWD[0] != '\0') append(";PWD=", Password(m_Params.szPWD).View());
  return text;
}

DWORD CDBConnection::OpenOptions() const {
  DWORD options = CDatabase::noOdbcDialog;
  if (m_Params.bExclusive != 0) options |= CDatabase::openExclusive;
  if (m_Params.szOwner[0] != '\0') options |= CDatabase::useCursorLib;
  return options;
}

WORD CDBConnection::OpenDatabase() {
  if (!IsSourceName(m_Params.szDSN)) return kNotOpened;
  try {
    m_pDatabase->SetLoginTimeout(kLoginTimeoutSeconds);
    return m_pDatabase->OpenEx(ConnectString(), OpenOptions()) ? kOk : kNotOpened;
  } catch (CDBException* exception) {
    const bool refused = exception->m_nRetCode == AFX_SQL_ERROR_CONNECT_FAIL;
    return klog::Caught(exception, refused ? kConnectFailed : kNotOpened);
  } catch (CException* exception) {
    exception->Delete();
    return kNotOpened;
  }
}

WORD CDBConnection::CreateSets() {
  const CString owner = Owner();
  try {
    ForEachSet([&](auto*& set) {
      using Set = std::remove_reference_t<decltype(*set)>;
      if (set == nullptr) set = new Set(m_pDatabase, owner);
    });
    auto kept = m_browsing.begin();
    ForEachSet([&](const CKyRecSet* set) { (kept++)->fresh = set->m_strFilter; });
  } catch (CDBException* exception) {
    return klog::Caught(exception, kSetsNotCreated);
  } catch (CException* exception) {
    exception->Delete();
    return kSetsNotCreated;
  } catch (const std::bad_alloc&) {
    return kOutOfMemory;
  }
  return kOk;
}

WORD CDBConnection::CloseAll() {
  m_ClosedBy = std::this_thread::get_id();
  try {
    ForEachSet([](auto*& set) { CloseAndDestroy(set); });
    CloseAndDestroy(m_pDatabase);
  } catch (CDBException* exception) {
    return klog::Caught(exception, kCloseFailed);
  } catch (CException* exception) {
    exception->Delete();
    return kCloseFailed;
  }
  return kOk;
}
