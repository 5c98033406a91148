// Connecting: the data source says which driver is the real one, and what is ordered from the start.
#ifndef KYODBC_FAULTDRIVER_CONNECTING_H
#define KYODBC_FAULTDRIVER_CONNECTING_H

#include <string>

#include "faultdriver/call.h"

namespace kyfault {

// Readies the handle of a call that connects: loads the real driver of the source, makes its handles and sets
// what was set on ours. `text`: a connection string, or only the name of a data source. Returns a success, or
// the failure to answer with.
SQLRETURN PrepareConnection(Call& call, const std::string& text);

// A text in parameters as ODBC gives them, of either kind of character. Characters beyond ASCII become "?".
std::string NarrowText(const SQLCHAR* text, SQLINTEGER length);
std::string NarrowText(const SQLWCHAR* text, SQLINTEGER length);

template <class Function, class Char, class... Rest>
SQLRETURN Connect(const char* symbol, SQLHDBC connection, const Char* text, SQLINTEGER length, Rest... rest) {
  Call call(symbol, connection, SQL_HANDLE_DBC);
  return call.Run([&]() -> SQLRETURN {
    const SQLRETURN prepared = PrepareConnection(call, NarrowText(text, length));
    if (!SQL_SUCCEEDED(prepared)) return prepared;
    auto* connect = call.template Real<Function>();
    return connect == nullptr ? call.Missing() : connect(call.Target()->real, rest...);
  });
}

}  // namespace kyfault

#endif
