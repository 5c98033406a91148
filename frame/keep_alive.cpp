// Whether the connection still answers, and making it anew when it does not.
#include "frame/connection.h"
#include "platform/cdbexception.h"
#include "platform/log.h"
#include "platform/refusal.h"
#include "platform/result_codes.h"

namespace {

constexpr double kFirstVersionWithPing = 4.0;
constexpr int kAttempts = 5;

}  // namespace

bool CDBConnection::Ping() {
  if (!IsOpen()) return false;
  if (m_dDBVersion < kFirstVersionWithPing) return true;
  try {
    CString statement;
    statement.Format("{call %s%s}", Owner(), "spky_ping");
    m_pDatabase->ExecuteSQL(statement);
    return true;
  } catch (CDBException* exception) {
    klog::Debug(exception->m_strError.View());
    refusal::Remember(*exception, kNotOpened);
    exception->Delete();
  } catch (CException* exception) {
    exception->Delete();
  } catch (...) {
    // Whatever it was, the connection did not answer.
  }
  return false;
}

// There is no pause between the attempts. A connection that fails its ping but still counts as open is not
// replaced, as its transaction and the caller's own sets may live on: all attempts then fail.
WORD CDBConnection::KeepAlive() {
  for (int attempt = 1; attempt <= kAttempts; ++attempt) {
    if (Ping()) return kOk;
    if (Connect() == kOk) {
      klog::Warn("connection lost and made again");
      return kReconnected;
    }
  }
  return kConnectFailed;
}
