// Values that are held as text, read as the C types of ODBC.
#ifndef KYODBC_PLATFORM_TEXT_VALUE_H
#define KYODBC_PLATFORM_TEXT_VALUE_H

#include <string_view>

#include "platform/types.h"

namespace text_value {

// Writes a value of `c_type` (SQL_C_BIT, SQL_C_UTINYINT, SQL_C_SSHORT, SQL_C_SLONG, SQL_C_FLOAT, SQL_C_DOUBLE
// or SQL_C_TYPE_TIMESTAMP) to `target` and its size to *indicator. Of a number's text the part behind the
// point is dropped for an integer; a time without a date is today's. A text that is no date reads as NULL,
// as the embedded database has it, which stores anything in a date column. SQL_ERROR, with nothing written,
// for a text that is no number or lies outside the type, and for every other type.
RETCODE Read(std::string_view text, SWORD c_type, void* target, SQLLEN* indicator);

}  // namespace text_value

#endif
