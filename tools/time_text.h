// Dates and times as people write them.
#ifndef KYODBC_TOOLS_TIME_TEXT_H
#define KYODBC_TOOLS_TIME_TEXT_H

#include <KyODBC.h>

#include <optional>
#include <string>
#include <string_view>

// Reads "2001-05-06", and with a blank or a "T" behind it "10:00" or "10:00:00", with or without a "Z" at the
// end. The digits count as they stand, as local time. Nothing for anything else and for days and times that
// do not exist.
std::optional<TIMESTAMP_STRUCT> ReadTime(std::string_view text);

// "2001-05-06"; empty for the all-zero date, which stands for none.
std::string DateText(const TIMESTAMP_STRUCT& time);
// "2001-05-06 10:00:00"; empty for the all-zero time.
std::string TimeText(const TIMESTAMP_STRUCT& time);

#endif
