// How the program ends, and the failures that make it end so.
#ifndef KYODBC_TOOLS_TOOL_ERROR_H
#define KYODBC_TOOLS_TOOL_ERROR_H

#include <KyODBC.h>

#include <stdexcept>
#include <string>
#include <string_view>

enum ExitCode {
  kDone = 0,
  kFailed = 1,         // not found, refused, or a result code of the library; the message says which
  kUsage = 2,          // the command line makes no sense
  kDiffers = 3,        // two sides that must be equal are not
  kDeclined = 4,       // a question was not answered with yes, and nothing was changed
  kInterrupted = 130,  // ended by Ctrl-C (SIGINT), as shells tell it
  kTerminated = 143,   // ended by SIGTERM
};

// Ends the program with a message.
class ToolError : public std::runtime_error {
 public:
  ToolError(ExitCode exit_code, const std::string& message)
      : std::runtime_error(message), m_exit_code(exit_code) {}
  ExitCode Code() const { return m_exit_code; }

 private:
  ExitCode m_exit_code;
};

// What a result code means, in a few words.
std::string MeaningOf(WORD code);
// The same where the database told a SQLSTATE: of a lost connection the code tells the place only.
std::string MeaningOf(WORD code, std::string_view state);

// A connection that is lost, or a server that is ending.
bool IsLoss(std::string_view state);
inline constexpr const char* kLost = "the connection to the database was lost";

// Throws a ToolError that names what was being done, what `code` means and what the database said, unless it
// is 0. To be called before another call of the library.
void Check(WORD code, const std::string& doing);

#endif
