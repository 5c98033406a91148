#include "platform/row_source.h"

#include <algorithm>

namespace {

constexpr std::size_t kFirstPiece = 4096;

}  // namespace

RETCODE RowSource::ReadWhole(SQLUSMALLINT column, SWORD c_type, std::string* bytes, bool* null) {
  const std::size_t zero_byte = c_type == SQL_C_CHAR ? 1 : 0;  // it follows each piece of a text
  std::size_t length = 0;
  *null = false;
  for (;;) {
    bytes->resize(std::max(2 * length, kFirstPiece));
    const std::size_t room = bytes->size() - length;
    SQLLEN indicator = 0;
    const RETCODE code =
        GetData(column, c_type, bytes->data() + length, static_cast<SQLLEN>(room), &indicator);
    if (code == SQL_NO_DATA) break;
    if (!odbc::Succeeded(code)) return code;
    *null = indicator == SQL_NULL_DATA;
    if (*null) break;
    const std::size_t piece = room - zero_byte;
    const bool all = indicator >= 0 && static_cast<std::size_t>(indicator) <= piece;
    length += all ? static_cast<std::size_t>(indicator) : piece;
    if (all) break;
  }
  bytes->resize(length);
  return SQL_SUCCESS;
}
