#include "frame/connection.h"

#include <memory>
#include <new>
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
  return connection;
}

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
  if (m_Params.szUID[0] != '\0') text += CString(";UID=") + m_Params.szUID;
  if (m_Params.szPWD[0] != '\0') text += CString(";PWD=") + m_Params.szPWD;
  return text;
}

DWORD CDBConnection::OpenOptions() const {
  DWORD options = CDatabase::noOdbcDialog;
  if (m_Params.bExclusive != 0) options |= CDatabase::openExclusive;
  if (m_Params.szOwner[0] != '\0') options |= CDatabase::useCursorLib;
  return options;
}

WORD CDBConnection::OpenDatabase() {
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
