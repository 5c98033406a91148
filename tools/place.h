// Where a practice is and who asks for it: the part of the command line that most commands share.
#ifndef KYODBC_TOOLS_PLACE_H
#define KYODBC_TOOLS_PLACE_H

#include <KyODBC.h>

#include <optional>
#include <string>

#include "tools/command_line.h"
#include "tools/password.h"

// What an ODBC data source wants to know.
struct Login {
  std::string user;
  std::string password_file;
  std::string owner;
};

struct Place {
  std::string practice;  // as the user named it: a folder, or "dsn:" and a data source
  Login login;
};

// The options --user, --password-file and --owner.
void AddLogin(CLI::App& command, Login& login);
// The argument PRACTICE and these options.
void AddPlace(CLI::App& command, Place& place);

// The data source that "dsn:NAME" names; nothing for a folder.
std::optional<std::string> SourceOf(const Place& place);

// Throws ToolError when the practice is a folder and there is a user, a password or an owner.
void RequireNoLogin(const Place& place);

// Asks for the password when there is a user and it is given nowhere. Throws ToolError when something is too
// long or cannot be read.
tagDBCONNECT Parameters(const std::string& source, const Login& login, const PasswordOf& whose = {});

// For a folder: makes this process see the data source in it instead of the machine's. Throws ToolError when
// there is no practice in it, and as Parameters does.
tagDBCONNECT Parameters(const Place& place);

#endif
