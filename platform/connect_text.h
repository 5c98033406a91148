// Connection strings: what of them may be shown, and what is added to them. They have a password in them: no
// copy is made that is not overwritten afterwards.
#ifndef KYODBC_PLATFORM_CONNECT_TEXT_H
#define KYODBC_PLATFORM_CONNECT_TEXT_H

#include <string_view>

#include "platform/cstring.h"
#include "platform/secret_text.h"
#include "platform/types.h"

// The value of a keyword, in any case and without braces around it; empty when it is not there. Braces keep
// what is in them together, semicolons included; a closing brace in them is written twice.
SecretText ConnectPart(std::string_view connect, const char* keyword);

// The parts that say which data is meant. Any other part may be a secret, or the rest of a password that has
// a semicolon in it.
CString HarmlessParts(std::string_view connect);

// The string without user and password for the one driver that knows neither: it would find options in them,
// whether they stand in braces or not. Unchanged for other drivers.
SecretText WithoutIgnoredLogin(std::string_view connect);

// The string with the time-out as an option of its own for the one driver that ignores the time-out of the
// connection handle. Unchanged for other drivers, for a time-out of 0, which waits for ever, and when the
// string names that option or the data source has a shorter one.
SecretText WithLoginTimeout(std::string_view connect, DWORD seconds);

// The string with what its driver offers against a server that falls silent while a statement runs: after
// `seconds` the connection then counts as lost. Without it such a call never returns. One driver can wait for
// the answer that long; another one sees only that nothing acknowledges what it sends, so that a machine that
// is up with a server that hangs is not noticed. Unchanged for other drivers, for 0, and when the string or
// the data source has options of this kind.
SecretText WithSilenceLimit(std::string_view connect, DWORD seconds);

// Whether the string, or the data source that it names, has that driver count rows found, not rows changed.
bool AsksForFoundRows(std::string_view connect);

#endif
