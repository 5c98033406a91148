// Lines of commands: typed with an editor, or from a file or a pipe.
#ifndef KYODBC_TOOLS_SHELL_LINE_READER_H
#define KYODBC_TOOLS_SHELL_LINE_READER_H

#include <functional>
#include <memory>
#include <optional>
#include <string>
#include <vector>

#include "tools/shell/completion.h"

namespace shell {

class LineReader {
 public:
  virtual ~LineReader() = default;
  // Without its line end; nothing at the end of the input.
  virtual std::optional<std::string> Read(const std::string& prompt) = 0;
};

// From the standard input as it is; the prompt is not shown.
std::unique_ptr<LineReader> PlainReader();

// Editing at a terminal, with completion and the lines entered before, the oldest first.
using CompleteLine = std::function<Completion(const std::string& before_cursor)>;
std::unique_ptr<LineReader> EditingReader(CompleteLine complete, const std::vector<std::string>& history);

}  // namespace shell

#endif
