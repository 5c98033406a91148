// One ODBC connection. Record sets share it; each has a statement of its own.
#ifndef KYODBC_PLATFORM_CDATABASE_H
#define KYODBC_PLATFORM_CDATABASE_H

#include <memory>
#include <vector>

#include "cobject.h"
#include "cstring.h"
#include "types.h"

class CRecordset;
class KeptStatements;
struct DriverFacts;
namespace odbc {
class Connection;
}

class KYODBC_API CDatabase : public CObject {
 public:
  // Options of OpenEx; combine by or.
  enum DbOpenOptions : DWORD {
    openExclusive = 0x0001,  // accepted and ignored: no driver here offers it
    openReadOnly = 0x0002,
    useCursorLib = 0x0004,  // a scrollable static cursor will do, which every record set asks for anyway
    noOdbcDialog = 0x0008,  // always so: connecting never prompts
    forceOdbcDialog = 0x0010,
  };

  CDatabase();
  CDatabase(const CDatabase&) = delete;
  CDatabase& operator=(const CDatabase&) = delete;
  const CRuntimeClass* GetRuntimeClass() const override;
  // Closes the connection; never throws. Record sets that are still open are marked closed and may be
  // destroyed later.
  ~CDatabase() override;

  // Connects with an ODBC connection string ("DSN=...;UID=...;PWD=..."); an "ODBC;" in front is dropped.
  // Returns nonzero. Failure throws: AFX_SQL_ERROR_CONNECT_FAIL when the server could not be reached or
  // refused the login, SQL_ERROR for everything else.
  virtual BOOL OpenEx(const char* connect, DWORD options = 0);

  // Ends every record set of this connection, rolls a pending transaction back, disconnects and releases
  // the connection handle. Does nothing on a closed database. The object can be opened again.
  virtual void Close();

  // Nonzero while a connection handle is held. A connection found dead releases it.
  BOOL IsOpen() const;

  void SetLoginTimeout(DWORD seconds);  // before OpenEx; default 15
  // For statements made afterwards; default 15, 0 waits for as long as the server does. What is set before
  // OpenEx also limits, by 5 seconds more, how long a call waits for a server that has fallen silent, where
  // the driver can do that.
  void SetQueryTimeout(DWORD seconds);

  // Runs a statement; result rows are read and dropped. Throws CDBException.
  void ExecuteSQL(const char* sql);

  // The driver's name of the database; empty when there is no connection or the driver cannot tell.
  CString GetDatabaseName() const;
  // What of the connection string given to OpenEx says which data is meant: data source, driver, server,
  // database, user. Passwords and whatever else a string may hold are left out.
  CString GetConnect() const;

  // What was found out about database system and driver at connect, on one line, set apart by "; "; empty
  // when there is no connection.
  CString DescribeDriver() const;

  BOOL CanUpdate() const;
  BOOL CanTransact() const;  // the data source supports transactions

  // One level. Nonzero on success. 0 when a transaction is already pending (begin) or none is (the
  // others), or when the driver refuses; nothing has changed then. A commit also gives 0, and rolls back,
  // when a statement of the transaction failed because of others' transactions (a deadlock, for one), or in
  // a way after which the driver has undone the transaction.
  BOOL BeginTrans();
  BOOL CommitTrans();
  BOOL Rollback();

  // --- for the framework's own classes ---

  // Adapts a statement to what the data source can take of it; see dialect.h.
  CString AdaptSQL(const char* sql) const;
  DWORD QueryTimeout() const;  // to ask the driver for; 0: nothing need be asked
  KeptStatements& Statements() const { return *m_statements; }  // only while open
  bool KeepsStatements() const;
  // What limits an ordered query to its first row; empty where that is not known.
  const char* FirstRowOnly() const;
  // Goes up with every statement of this connection that may have changed rows, and with the end of a
  // transaction: what was read ahead before is out of date then.
  unsigned ChangeCount() const { return m_changes; }
  void CountChange() { ++m_changes; }
  BOOL InTransaction() const { return m_bTransactionPending; }
  bool CountsDeletes() const;  // a delete that says it found no row is right
  odbc::Connection* Connection() const { return m_connection.get(); }
  // Releases the connection when it died: when the failure of a statement told so, or the driver says so.
  void ReleaseIfDead(bool told);
  // The pending transaction, if any, must not be committed any more.
  void DoomTransaction();
  void Attach(CRecordset* set);
  void Detach(CRecordset* set);

 private:
  void EndSets();
  void PrepareSession();
  LONG ReadNumber(const char* sql);
  BOOL EndTrans(bool commit);
  bool BeginByStatement(const char* begin);
  bool BeginByAttribute();
  void TryRollback();
  bool EndByStatement(bool commit);
  bool EndByAttribute(bool commit);
  bool RunTransactionStatement(const char* sql);
  void LogTransactionFailure() const;
  BOOL FailTransaction();

  std::unique_ptr<odbc::Connection> m_connection;  // null while closed
  std::unique_ptr<KeptStatements> m_statements;    // of that connection
  std::unique_ptr<DriverFacts> m_facts;            // of the last connection
  std::vector<CRecordset*> m_sets;                 // open record sets on this connection
  CString m_strConnect;
  DWORD m_dwLoginTimeout;
  DWORD m_dwQueryTimeout;
  BOOL m_bReadOnly;
  BOOL m_bTransactionPending;
  unsigned m_changes = 0;
  BOOL m_bTransactionDoomed;  // the server has refused a part of it: it can only be rolled back
};

#endif
