// Practices on a server. Making a database costs a hundred times more than emptying one, so a process keeps
// those it has made; a practice that gets the name of an earlier one has its database, as good as new.
#ifndef KYODBC_TESTS_SUPPORT_SERVER_KIND_H
#define KYODBC_TESTS_SUPPORT_SERVER_KIND_H

#include <sys/types.h>

#include <map>
#include <memory>
#include <string>
#include <vector>

#include "tests/support/database_kind.h"
#include "tests/support/raw_odbc.h"

namespace support {

class ServerKind : public DatabaseKind {
 public:
  ServerKind();
  std::string Acquire(const std::filesystem::path& folder, Tables tables) const override;
  void Release(const std::string& database, Tables tables) const override;

 protected:
  virtual std::string Connect(const std::string& database) const = 0;  // a connection string
  virtual void Make(const std::string& database, Tables tables) const = 0;
  virtual void Drop(const std::string& database) const = 0;
  // A query for what the database consists of: a statement that drops the object, and its definition.
  virtual const char* ObjectsQuery() const = 0;
  // Ends what other sessions of the same database may have left open.
  virtual void EndOtherSessions(RawOdbc& database) const = 0;
  // Back to the default rows, with keys that begin anew.
  virtual void Empty(RawOdbc& database, Tables tables) const = 0;

 private:
  using Objects = std::map<std::string, std::string>;

  struct Made {
    std::unique_ptr<RawOdbc> session;
    Objects objects;  // as they were when it was new
  };

  void DropAllAtExit() const;
  void DropAll() const noexcept;
  Objects ReadObjects(RawOdbc& database) const;
  Objects ReadObjectsPatiently(RawOdbc& database) const;
  bool Renew(Made& made, Tables tables) const;
  bool DropStrangers(Made& made) const;

  pid_t m_process;  // a child process has no business with its parent's databases
  mutable std::map<std::string, Made> m_made;
};

}  // namespace support

#endif
