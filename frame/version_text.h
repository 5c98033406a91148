// The schema version, from the text that the database holds to a number.
#ifndef KYODBC_FRAME_VERSION_TEXT_H
#define KYODBC_FRAME_VERSION_TEXT_H

// The number in `text`, whatever the process's locale: the first character that is no letter or digit
// separates the fraction, so "4.2" and "4,2" are both 4.2. Empty and null texts and texts without a leading
// digit give 0. A leading "-" negates the fraction only ("-1.5" is 0.5); databases in use rely on it.
double VersionFromText(const char* text);

#endif
