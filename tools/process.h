// Another program that works for this one, with its input and output at our ends of pipes.
#ifndef KYODBC_TOOLS_PROCESS_H
#define KYODBC_TOOLS_PROCESS_H

#include <sys/types.h>

#include <cstdio>
#include <map>
#include <string>
#include <string_view>
#include <vector>

class Process {
 public:
  // Started in a process group of its own, so that Ctrl-C on the terminal reaches this program only, which
  // then ends the other one. `environment` is added to ours: the place for passwords, which must not stand
  // on a command line. Throws ToolError when the program is not installed.
  explicit Process(const std::vector<std::string>& command,
                   const std::map<std::string, std::string>& environment = {});
  // Ends the program if it has not ended.
  ~Process();
  Process(const Process&) = delete;
  Process& operator=(const Process&) = delete;

  // Waits until the program has taken the text. Throws ToolError with what the program said when it has
  // ended.
  void Write(std::string_view text);
  void CloseInput();

  // The next line of its output without the line end. False at the end. Throws ToolError when interrupted or
  // when it cannot be read.
  bool ReadLine(std::string& line);

  // Waits for its end. Throws ToolError with what it said unless it succeeded.
  void Finish();

 private:
  std::string Said() const;
  [[noreturn]] void Fail();
  int Wait();

  std::string m_name;
  pid_t m_pid = -1;
  int m_input = -1;
  int m_output = -1;
  std::FILE* m_errors = nullptr;
  std::string m_buffer;
  std::size_t m_read = 0;  // of the buffer
};

#endif
