#include "tools/place.h"

#include <fmt/format.h>

#include <CLI/CLI.hpp>

#include "tools/practice_folder.h"
#include "tools/record_text.h"
#include "tools/tool_error.h"

namespace {

const std::string kSourcePrefix = "dsn:";

template <std::size_t N>
void SetParameter(char (&field)[N], const std::string& text, const char* what) {
  if (SetText(field, text)) return;
  throw ToolError(kUsage, fmt::format("the {} is longer than {} bytes", what, N - 1));
}

tagDBCONNECT FolderParameters(const Place& place) {
  RequireNoLogin(place);
  PracticeFolder(place.practice).UseForThisProcess();
  tagDBCONNECT parameters{};
  SetText(parameters.szDSN, kDataSource);
  return parameters;
}

}  // namespace

void AddLogin(CLI::App& command, Login& login) {
  command.add_option("--user", login.user, "The user to connect as");
  command.add_option("--password-file", login.password_file,
                     "A file whose first line is the password; without it KYODBC_PASSWORD in the "
                     "environment, and without that a question");
  command.add_option("--owner", login.owner, "What stands before table names, with its point");
}

void AddPlace(CLI::App& command, Place& place) {
  command
      .add_option("PRACTICE", place.practice,
                  fmt::format("The folder of the practice, or {}NAME, an ODBC data source", kSourcePrefix))
      ->required();
  AddLogin(command, place.login);
}

std::optional<std::string> SourceOf(const Place& place) {
  if (!place.practice.starts_with(kSourcePrefix)) return std::nullopt;
  return place.practice.substr(kSourcePrefix.size());
}

void RequireNoLogin(const Place& place) {
  const Login& login = place.login;
  if (login.user.empty() && login.password_file.empty() && login.owner.empty()) return;
  throw ToolError(kUsage, fmt::format("'{}' is a folder, which knows no users, passwords and owners; a "
                                      "data source is named {}NAME",
                                      place.practice, kSourcePrefix));
}

tagDBCONNECT Parameters(const std::string& source, const Login& login, const PasswordOf& whose) {
  if (source.empty()) throw ToolError(kUsage, "the name of the data source is missing");
  tagDBCONNECT parameters{};
  SetParameter(parameters.szDSN, source, "name of the data source");
  SetParameter(parameters.szUID, login.user, "name of the user");
  SetParameter(parameters.szPWD, Password(login.password_file, !login.user.empty(), whose), "password");
  SetParameter(parameters.szOwner, login.owner, "owner");
  return parameters;
}

tagDBCONNECT Parameters(const Place& place) {
  const std::optional<std::string> source = SourceOf(place);
  return source ? Parameters(*source, place.login) : FolderParameters(place);
}
