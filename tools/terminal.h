// What is done on a terminal only: colours and questions.
#ifndef KYODBC_TOOLS_TERMINAL_H
#define KYODBC_TOOLS_TERMINAL_H

#include <cstdio>
#include <string>

#include "tools/command_line.h"

enum class Look { kTitle, kError, kBad, kGood };

// Whether `stream` is a terminal that shows colours and NO_COLOR is not in the environment.
bool ShowsColours(std::FILE* stream);

// The text with the signs that make it look so on the stream; just the text where there are no colours.
std::string Coloured(std::FILE* stream, Look look, const std::string& text);

// The option --yes.
void AddYes(CLI::App& command, bool& yes);

// Asks on the terminal unless `yes`. Throws ToolError: kDeclined for any answer but y or yes, kUsage when
// there is no terminal to ask on.
void Confirm(const std::string& question, bool yes);

#endif
