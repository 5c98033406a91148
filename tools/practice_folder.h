// A folder that holds an embedded practice: its database and the ODBC files that name it. Nothing outside the
// folder is needed or touched.
#ifndef KYODBC_TOOLS_PRACTICE_FOLDER_H
#define KYODBC_TOOLS_PRACTICE_FOLDER_H

#include <filesystem>
#include <string>

inline constexpr const char* kDataSource = "practice";

class PracticeFolder {
 public:
  // A folder that may not exist yet; kept as an absolute path.
  explicit PracticeFolder(const std::filesystem::path& folder);

  const std::filesystem::path& Folder() const { return m_folder; }
  std::filesystem::path Database() const { return m_folder / "practice.db"; }
  std::filesystem::path Sources() const { return m_folder / "odbc.ini"; }
  std::filesystem::path Drivers() const { return m_folder / "odbcinst.ini"; }

  // Makes the folder with an empty practice in it. Throws ToolError when one of its files exists already,
  // which stays as it is, and when something cannot be made; nothing half made is left behind then.
  void Create() const;

  // Throws ToolError when there is no practice in the folder, or it was moved here and its odbc.ini still
  // names the old place.
  void RequirePractice() const;

  // A connection string for the database that needs no data source.
  std::string ConnectText() const;

  // Makes this process see the folder's data source instead of the machine's. Throws as
  // RequirePractice does.
  void UseForThisProcess() const;

 private:
  void WriteFiles(const std::string& driver) const;
  std::string DatabaseNamedInSources() const;

  std::filesystem::path m_folder;
};

// A connection string for a database file of SQLite, with the options that the library relies on. Throws
// ToolError when its name has a character that such a string cannot hold.
std::string SqliteConnectText(const std::filesystem::path& file);

#endif
