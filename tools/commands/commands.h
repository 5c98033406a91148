// The commands of the program. Each adds itself to the command line with its options and its help, and leaves
// in `run` what is to be done when it was chosen; that throws ToolError when it fails.
#ifndef KYODBC_TOOLS_COMMANDS_COMMANDS_H
#define KYODBC_TOOLS_COMMANDS_COMMANDS_H

#include <functional>

#include "tools/command_line.h"

using Action = std::function<void()>;

void AddInit(CLI::App& program, Action& run);
void AddSample(CLI::App& program, Action& run);
void AddImport(CLI::App& program, Action& run);
void AddExport(CLI::App& program, Action& run);
void AddList(CLI::App& program, Action& run);
void AddShow(CLI::App& program, Action& run);
void AddEdit(CLI::App& program, Action& run);
void AddBackup(CLI::App& program, Action& run);
void AddRestore(CLI::App& program, Action& run);
void AddCopy(CLI::App& program, Action& run);
void AddBench(CLI::App& program, Action& run);
void AddDoctor(CLI::App& program, Action& run);
void AddShell(CLI::App& program, Action& run);
void AddSettings(CLI::App& program, Action& run);  // "set" and "get"

#endif
