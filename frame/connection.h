// The library's one connection: the parameters it was made with, the database, and a browse set per table.
#ifndef KYODBC_FRAME_CONNECTION_H
#define KYODBC_FRAME_CONNECTION_H

#include <array>
#include <cstddef>
#include <string_view>
#include <thread>

#include "platform/cdatabase.h"
#include "platform/cstring.h"
#include "platform/secret_text.h"
#include "platform/types.h"
#include "tables/records.h"

class CCfgRec;
class CDiagRec;
class CDrRec;
class CGrpRec;
class CImgRec;
class CKyRecSet;
class CMakRec;
class CPatExRec;
class CPatRec;
class CStatRec;
class CTestRec;
class CUnitRec;

// Database and browse sets are owned, but only CloseAll frees them: there is no destructor, so that the
// end of the process, or of the library in it, leaves an open connection alone.
class CDBConnection {
 public:
  // Connects with m_Params and creates the browse sets, unopened. Returns 0; 3 while connected and when the
  // data source cannot be opened or does not answer; 30 when the server cannot be reached or refuses the
  // login; 14 without memory; 99 when a browse set cannot be created; 4 when what was left of a dead
  // connection cannot be closed. After a failure, other than 3 while connected, nothing is open.
  WORD Connect();

  // Closes and destroys the browse sets, then the database. Returns 0, also when there are none; 4 when
  // closing failed, and the rest is then left as it was.
  WORD CloseAll();

  // True when the connection answers. Databases older than version 4.0 are not asked.
  bool Ping();

  // Returns 0 when the connection answers, 57 when it had died and was made again with new browse sets, 30
  // when neither came true in five attempts.
  WORD KeepAlive();

  // The browse set with a number of KyODBCDiag.h, with the filter and the sort that it had before the
  // connection was last made anew, unless it was given others since. Null for other numbers and without a
  // connection.
  CKyRecSet* SetAsItWas(LONG number);
  // Reads again the open browse sets that changes have marked, but for two of them (which may be null):
  // before something happens that they would not show, had they been read at the change. A failure is logged.
  void ReadMarkedSets(const CKyRecSet* but = nullptr, const CKyRecSet* nor = nullptr);
  // Forgets filters and sorts of earlier connections.
  void ForgetBrowsing();

  CString Owner() const { return m_Params.szOwner; }
  // What Connect passes to the database: "DSN=...;UID=...;PWD=..." of the parts given, in braces where a
  // driver would otherwise read more into them; 8, plus 1 for an exclusive connection, plus 4 for one with an
  // owner.
  SecretText ConnectString() const;
  DWORD OpenOptions() const;

  // Whether `object` is this connection, its database or one of its browse sets.
  bool Holds(const void* object) const;

  // Keeps the parameters, which have the password, out of core dumps and of the swap space, as far as the
  // system allows.
  void KeepOutOfDumps() const;
  // Overwrites the password. Nothing can be connected again without a new one.
  void ForgetPassword();

  static constexpr std::size_t kPageSize = 4096;

  // As last given to DB_InitDatabase, every text terminated. On a page of its own, for KeepOutOfDumps.
  alignas(kPageSize) tagDBCONNECT m_Params{};
  alignas(kPageSize) CDatabase* m_pDatabase = nullptr;
  double m_dDBVersion = 0.0;  // this and the next keep their values after a close
  CString m_strDBMS;
  // In the order in which they are created, closed and destroyed; null while there is no connection.
  CDrRec* m_pDr = nullptr;
  CStatRec* m_pStat = nullptr;
  CUnitRec* m_pUnit = nullptr;
  CPatRec* m_pPat = nullptr;
  CPatExRec* m_pPatEx = nullptr;
  CImgRec* m_pImg = nullptr;
  CMakRec* m_pMak = nullptr;
  CGrpRec* m_pGrp = nullptr;
  CDiagRec* m_pDiag = nullptr;
  CCfgRec* m_pCfg = nullptr;
  CTestRec* m_pTest = nullptr;
  // DB_InitDatabase has connected and DB_CloseDatabase was not called since: a keep-alive may connect anew.
  bool m_bWanted = false;
  std::thread::id m_ClosedBy;  // the thread of the last CloseAll

 private:
  // How a set is read; `fresh` is its filter when it is new.
  struct Browsing {
    CString fresh;
    CString filter;
    CString sort;
    LONG sort_index = 0;
  };
  static constexpr std::size_t kSets = 11;

  template <class Function>
  void ForEachSet(Function function);
  void RememberBrowsing();
  bool IsOpen() const { return m_pDatabase != nullptr && m_pDatabase->IsOpen(); }
  WORD OpenDatabase();
  WORD CreateSets();
  WORD GiveUp(WORD code);

  std::array<Browsing, kSets> m_browsing;  // of earlier connections, in the order of the sets
};

CDBConnection& TheConnection();

// Whether the text can stand before a table's name: of letters, digits, other than English letters, and
// "_$@.-[]", but without "--". Anything else could end the name and begin something new.
bool IsOwnerPrefix(std::string_view text);

#endif
