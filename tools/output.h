// What every command can print instead of text: one JSON document on standard output.
#ifndef KYODBC_TOOLS_OUTPUT_H
#define KYODBC_TOOLS_OUTPUT_H

#include <string>

#include "tools/command_line.h"
#include "tools/json.h"
#include "tools/tool_error.h"

// The option --json of a command.
void AddJson(CLI::App& command);
// As if it was given, for a command line that makes no sense.
void UseJson();
// Whether it was given: then PrintJson is to be called once, and nothing else printed.
bool AsJson();

// The document and a line end. Bytes that are no UTF-8 become U+FFFD.
void PrintJson(const Json& document);
std::string JsonText(const Json& value, int indent = -1);

// {"error": ...} unless the command has printed its document already.
void PrintJsonError(ExitCode code, const std::string& message);

#endif
