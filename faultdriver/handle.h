// The handles that the driver manager holds, and the real driver's handle behind each.
#ifndef KYODBC_FAULTDRIVER_HANDLE_H
#define KYODBC_FAULTDRIVER_HANDLE_H

#include <sql.h>
#include <sqlext.h>

#include <array>
#include <map>
#include <memory>
#include <string>
#include <vector>

namespace kyfault {

class RealDriver;

struct Record {
  std::string state;
  SQLINTEGER native = 0;
  std::string message;
};

// An attribute set before there was a real handle to set it on.
struct KeptAttribute {
  SQLINTEGER attribute;
  SQLPOINTER value;
  SQLINTEGER length;
};

// A column bound to the program's memory.
struct BoundColumn {
  SQLSMALLINT type;
  SQLPOINTER buffer;
  SQLLEN size;
  SQLLEN* indicator;
};

struct Handle {
  SQLSMALLINT kind = 0;
  Handle* parent = nullptr;
  SQLHANDLE real = SQL_NULL_HANDLE;
  RealDriver* driver = nullptr;  // null until a connection names it

  // The last call was answered by this driver: its diagnostics are these, and not the real driver's.
  bool answered = false;
  std::vector<Record> records;

  // "Still executing" was answered to this function, so many times more.
  std::string executing;
  int executing_left = 0;
  bool cancelled = false;

  std::vector<KeptAttribute> kept;                // of an environment and a connection
  std::map<RealDriver*, SQLHANDLE> environments;  // of an environment
  bool lost = false;                              // of a connection
  bool ended = false;                             // of a connection: disconnected, whatever was answered
  std::string capabilities;                       // of a connection
  std::map<SQLUSMALLINT, BoundColumn> columns;    // of a statement
  std::vector<Handle*> descriptors;               // of a statement: its own ones
};

Handle* NewHandle(SQLSMALLINT kind, Handle* parent);
// A descriptor that the real driver made together with a statement. Ends with the statement.
Handle* DescriptorOf(Handle* statement, SQLHANDLE real);
void FreeOne(Handle* handle);  // with its descriptors
// What a disconnect ends together with the connection.
void FreeChildren(Handle* connection);
// Null when there is no such handle of that kind.
Handle* Find(SQLHANDLE handle, SQLSMALLINT kind);
Handle* FindAny(SQLHANDLE handle);
// The connection that a connection, statement or descriptor belongs to; null of an environment.
Handle* ConnectionOf(Handle* handle);
std::vector<Handle*> Connections();

// Of one kind, or all for 0; what the program did not allocate itself is left out.
int CountHandles(SQLSMALLINT kind);

}  // namespace kyfault

#endif
