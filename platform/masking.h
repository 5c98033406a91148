// Hiding what databases repeat of a row in their messages.
#ifndef KYODBC_PLATFORM_MASKING_H
#define KYODBC_PLATFORM_MASKING_H

#include <string>
#include <string_view>

namespace masking {

// `sql` with the contents of its literals and its numbers replaced by "?".
std::string Statement(std::string_view sql);

// A driver's message without values of rows. Hidden are everything from its first quotation to its last, in
// the quotation marks of any language; everything in parentheses but a number; bytes spelled out; all lines
// behind the first, where servers give details of the row; and the whole text of an error that a database's
// own trigger raised, told by SQLSTATE or native code. Messages about missing tables and columns (by
// SQLSTATE) keep their names.
std::string Message(std::string_view state, int native, std::string_view message);

}  // namespace masking

#endif
