// Values taken out of generated statements, so that statements which differ in nothing else share one that
// the database has prepared.
#ifndef KYODBC_PLATFORM_LITERALS_H
#define KYODBC_PLATFORM_LITERALS_H

#include <string_view>
#include <vector>

#include "platform/cstring.h"
#include "platform/odbc.h"

// A statement with marks "?" and the values that belong there, in order.
struct MarkedSQL {
  CString sql;
  std::vector<odbc::Parameter> values;
};

// A number to send.
odbc::Parameter NumberValue(LONG number);

// `head`, followed by `condition` with its literals taken out, and by `tail`: 'text', {d 'yyyy-mm-dd'},
// {ts 'yyyy-mm-dd hh:mm:ss'} and integers of 32 bits that are not negative. What follows the word LIKE stays,
// as the database finds its index by the text; so do texts too long to be sent as ordinary ones, and dates
// that do not exist, about which the database is asked as it would be asked without all this. A condition
// with marks or comments of its own is left alone.
MarkedSQL TakeOutLiterals(std::string_view head, std::string_view condition, std::string_view tail = {});

#endif
