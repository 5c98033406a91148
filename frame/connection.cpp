#include "frame/connection.h"

#include <sys/mman.h>

#include <algorithm>
#include <cctype>
#include <cstring>
#include <memory>
#include <new>
#include <string>
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

CString InBraces(const char* value) {
  CString text(value);
  text.Replace("}", "}}");
  return "{" + text + "}";
}

// One driver takes braces around a user for a part of the name: only where there is no other way.
CString User(const char* value) {
  return *value == '{' || std::strchr(value, ';') != nullptr ? InBraces(value) : CString(value);
}

// One driver decodes "%3B" and "+" outside braces.
CString Password(const char* value) {
  const std::string_view text(value);
  const bool blank_end = text.starts_with(' ') || text.ends_with(' ');
  return blank_end || std::strpbrk(value, ";{}%+") != nullptr ? InBraces(value) : CString(value);
}

// No data source can have such a name, and drivers do not agree on what it would mean.
bool IsSourceName(const char* name) { return std::strpbrk(name, ";{}") == nullptr; }

// A text that is overwritten when it is not needed any more.
class WipedText {
 public:
  explicit WipedText(const CString& text) : m_text(text) {}
  ~WipedText() { explicit_bzero(m_text.GetBuffer(), static_cast<std::size_t>(m_text.GetLength())); }
  WipedText(const WipedText&) = delete;
  WipedText& operator=(const WipedText&) = delete;

  const char* Text() const { return m_text; }

 private:
  CString m_text;
};

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

// The failure that led here is the answer, not one of closing what little there is.
WORD CDBConnection::GiveUp(WORD code) {
  CloseAll();
  return code;
}

CString CDBConnection::ConnectString() const {
  CString text;
  if (m_Params.szDSN[0] != '\0') text += CString("DSN=") + m_Params.szDSN;
  if (m_Params.szUID[0] != '\0') text += ";UID=" + User(m_Params.szUID);
  if (m_Params.szPWD[0] != '\0') text += ";PWD=" + Password(m_Params.szPWD);
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
    const WipedText connect(ConnectString());
    m_pDatabase->SetLoginTimeout(kLoginTimeoutSeconds);
    return m_pDatabase->OpenEx(connect.Text(), OpenOptions()) ? kOk : kNotOpened;
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
