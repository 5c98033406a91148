// The exported names: what the header declares, the list names, the sources define and the library shows.
#include <cxxabi.h>
#include <dlfcn.h>
#include <gtest/gtest.h>

#include <cstdio>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <memory>
#include <regex>
#include <set>
#include <string>
#include <vector>

namespace {

using Names = std::set<std::string>;

const std::filesystem::path kSource = KYODBC_SOURCE_DIR;

std::string ReadFile(const std::filesystem::path& path) {
  std::ifstream file(path);
  EXPECT_TRUE(file.is_open()) << path;
  return {std::istreambuf_iterator<char>(file), {}};
}

// The first group of every match, repetitions included.
std::vector<std::string> AllMatches(const std::string& text, const char* pattern) {
  const std::regex regex(pattern, std::regex::ECMAScript | std::regex::multiline);
  std::vector<std::string> matches;
  for (std::sregex_iterator it(text.begin(), text.end(), regex), end; it != end; ++it)
    matches.push_back((*it)[1]);
  return matches;
}

Names Unique(const std::vector<std::string>& names) { return {names.begin(), names.end()}; }

std::vector<std::string> ListedNames() {
  return AllMatches(ReadFile(kSource / "frame/exports.txt"), R"(^(DB_\w+)$)");
}

// Extensions stand beside the call interface.
std::vector<std::string> ListedExtensions() {
  return AllMatches(ReadFile(kSource / "frame/exports_ext.txt"), R"(^(DB_\w+)$)");
}

std::vector<std::string> DeclaredNames() {
  return AllMatches(ReadFile(kSource / "frame/KyODBC.h"), R"(^KYODBC_API [\w* ]+\b(DB_\w+)\()");
}

std::vector<std::string> DefinedNames() {
  std::vector<std::string> names;
  for (const char* room : {"frame", "rowops"}) {
    for (const auto& entry : std::filesystem::directory_iterator(kSource / room)) {
      if (entry.path().extension() != ".cpp") continue;
      const auto found =
          AllMatches(ReadFile(entry.path()),
                     R"(^(?:extern "C" )?(?:KYODBC_API )?(?:WORD|LONG|BOOL|CDatabase\*) (DB_\w+)\()");
      names.insert(names.end(), found.begin(), found.end());
    }
  }
  return names;
}

// The names that the library defines for others, as the linker spells them.
Names VisibleNames() {
  const std::string command = "nm -D --defined-only --format=posix '" KYODBC_LIBRARY_FILE "'";
  const std::unique_ptr<std::FILE, int (*)(std::FILE*)> pipe(popen(command.c_str(), "r"), pclose);
  EXPECT_NE(pipe, nullptr);
  Names names;
  char line[4096];
  while (std::fgets(line, sizeof line, pipe.get()) != nullptr) {
    const std::string text = line;
    names.insert(text.substr(0, text.find_first_of(" @")));
  }
  return names;
}

std::string Demangled(const std::string& name) {
  int status = 0;
  const std::unique_ptr<char, void (*)(void*)> text(
      abi::__cxa_demangle(name.c_str(), nullptr, nullptr, &status), std::free);
  return status == 0 ? text.get() : name;
}

// The names as the families make them: verbs times tables.
// "*" stands for the table's short name.
const std::vector<std::string> kFamily = {
    "DB_OpenT*",          "DB_CloseT*",     "DB_IsT*Open",       "DB_GetT*IndexPos", "DB_MoveToT*ByPos",
    "DB_MoveToT*ByDelta", "DB_SetT*Filter", "DB_SetT*SortIndex", "DB_DeleteT*ByPos", "DB_GetT*ByPos",
    "DB_GetT*MaxPos",     "DB_AddNewT*",    "DB_EditT*",         "DB_EditSelT*",     "DB_DeleteT*",
    "DB_GetT*",           "DB_GetNumT*",    "DB_GetLast*ID",
};

Names ExpectedFamilyNames() {
  Names names;
  for (const char* table : {"Dr", "Stat", "Unit", "Pat", "Img", "Mak", "Grp", "Diag", "Cfg", "Test"}) {
    for (std::string name : kFamily) names.insert(name.replace(name.find('*'), 1, table));
  }
  return names;
}

Names ExpectedOtherNames() {
  return {"DB_OpenPatEx",
          "DB_ClosePatEx",
          "DB_IsPatExOpen",
          "DB_GetPatExIndexPos",
          "DB_MoveToPatExByPos",
          "DB_MoveToPatExByDelta",
          "DB_MoveToPatExByIntID",
          "DB_MoveToPatExByString",
          "DB_SetPatExFilter",
          "DB_SetPatExSortIndex",
          "DB_GetPatExMaxPos",
          "DB_GetPatExByPos",
          "DB_GetPatEx",
          "DB_GetNumPatEx",
          "DB_MoveToTPatByIntID",
          "DB_MoveToTPatByString",
          "DB_MoveToTImgByIntID",
          "DB_GetLastTImgDate",
          "DB_GetLastTMakDate",
          "DB_GetLastTTestDate",
          "DB_InitDatabase",
          "DB_CloseDatabase",
          "DB_IsDatabaseOpen",
          "DB_GetDatabase",
          "DB_CheckVersion",
          "DB_GetInfo",
          "DB_GetDBVersion",
          "DB_GetDBMS",
          "DB_GetDBOwner",
          "DB_BeginTransaction",
          "DB_CommitTransaction",
          "DB_RollbackTransaction",
          "DB_GetProfileString",
          "DB_WriteProfileString",
          "DB_GetProfileInt",
          "DB_WriteProfileInt",
          "DB_AddNewPat",
          "DB_EditPat",
          "DB_EditSelPat",
          "DB_DeletePat",
          "DB_GetPat",
          "DB_GetPatByPos",
          "DB_AddNewUnit",
          "DB_EditUnit",
          "DB_EditSelUnit",
          "DB_DeleteUnit",
          "DB_GetUnit",
          "DB_GetUnitByPos"};
}

Names ExpectedNames() {
  Names names = ExpectedFamilyNames();
  names.merge(ExpectedOtherNames());
  return names;
}

Names ExpectedExtensions() { return {"DB_GetLastErrorDetail", "DB_ReopenAtKey"}; }

const std::vector<std::string> kClasses = {
    "CObject",      "CRuntimeClass",  "CString",      "CDatabase",   "CRecordset",   "CFieldExchange",
    "CDBVariant",   "CODBCFieldInfo", "COleDateTime", "CException",  "CDBException", "CKyRecSet",
    "CDBTimeStamp", "CTCfgRaw",       "CTDiagRaw",    "CTDrRaw",     "CTGrpRaw",     "CTImageRaw",
    "CTMakRaw",     "CTPatientRaw",   "CTStatRaw",    "CTTestRaw",   "CTUnitRaw",    "CCfgRawRec",
    "CDiagRawRec",  "CDrRawRec",      "CGrpRawRec",   "CImgRawRec",  "CMakRawRec",   "CPatientRawRec",
    "CStatRawRec",  "CTestRawRec",    "CUnitRawRec",  "CDynamicRec",
};

bool BelongsToAnExportedClass(const std::string& name) {
  for (const std::string& kind : kClasses) {
    if (name.rfind(kind + "::", 0) == 0) return true;
    for (const char* of : {"vtable for ", "typeinfo for ", "typeinfo name for "}) {
      if (name == of + kind) return true;
    }
  }
  return false;
}

bool BelongsToTheFramework(const std::string& name) {
  static const std::regex free_functions(R"((RFX_(Long|Int|Bool|Text|Date)|AfxThrowDBException)\(.*)");
  static const std::regex operators(R"(operator(\+|==|!=|<|>|<=|>=|<=>)\(.*\bCString const&.*\))");
  return std::regex_match(name, free_functions) || std::regex_match(name, operators);
}

TEST(ExportedNames, ListHoldsThe228NamesOnceEach) {
  const auto listed = ListedNames();
  EXPECT_EQ(listed.size(), 228u);
  EXPECT_EQ(Unique(listed), ExpectedNames());
}

TEST(ExportedNames, HeaderDeclaresEachOnce) {
  const auto declared = DeclaredNames();
  EXPECT_EQ(declared.size(), 228u);
  EXPECT_EQ(Unique(declared), ExpectedNames());
}

TEST(ExportedNames, SourcesDefineEachOnceSpelledOut) {
  const auto defined = DefinedNames();
  Names expected = ExpectedNames();
  expected.merge(ExpectedExtensions());
  EXPECT_EQ(defined.size(), 230u);
  EXPECT_EQ(Unique(defined), expected);
}

TEST(ExportedNames, ExtensionsAreListedAndDeclaredApart) {
  EXPECT_EQ(Unique(ListedExtensions()), ExpectedExtensions());
  const auto declared =
      AllMatches(ReadFile(kSource / "frame/KyODBCDiag.h"), R"(^KYODBC_API [\w* ]+\b(DB_\w+)\()");
  EXPECT_EQ(Unique(declared), ExpectedExtensions());
}

TEST(ExportedNames, LibraryShowsThemWithCLinkage) {
  Names shown;
  for (const std::string& name : VisibleNames()) {
    if (name.rfind("DB_", 0) == 0) shown.insert(name);
  }
  Names expected = ExpectedNames();
  expected.merge(ExpectedExtensions());
  EXPECT_EQ(shown, expected);
}

TEST(ExportedNames, LoadedLibraryAnswersToEach) {
  void* library = dlopen(KYODBC_LIBRARY_FILE, RTLD_NOW | RTLD_LOCAL);
  ASSERT_NE(library, nullptr) << dlerror();
  for (const std::string& name : ExpectedNames()) EXPECT_NE(dlsym(library, name.c_str()), nullptr) << name;
  dlclose(library);
}

TEST(ExportedNames, NothingElseIsVisibleButTheExportedClasses) {
  Names functions = ExpectedNames();
  functions.merge(ExpectedExtensions());
  for (const std::string& name : VisibleNames()) {
    const std::string text = Demangled(name);
    EXPECT_TRUE(functions.count(name) > 0 || BelongsToAnExportedClass(text) || BelongsToTheFramework(text))
        << text;
  }
}

TEST(ExportedNames, EveryExportedClassIsVisible) {
  Names shown;
  for (const std::string& name : VisibleNames()) {
    const std::string text = Demangled(name);
    shown.insert(text.substr(0, text.find("::")));
  }
  for (const std::string& kind : kClasses) {
    if (kind == "CODBCFieldInfo") continue;  // a plain structure: everything of it is inline
    EXPECT_EQ(shown.count(kind), 1u) << kind;
  }
}

TEST(ExportedNames, VirtualTablesOfDerivableClassesAreVisible) {
  Names shown;
  for (const std::string& name : VisibleNames()) shown.insert(Demangled(name));
  for (const std::string kind : {"CObject", "CDatabase", "CRecordset", "CKyRecSet", "CDBTimeStamp",
                                 "CDBException", "CPatientRawRec", "CUnitRawRec", "CDynamicRec"}) {
    EXPECT_EQ(shown.count("vtable for " + kind), 1u) << kind;
    EXPECT_EQ(shown.count("typeinfo for " + kind), 1u) << kind;
  }
}

}  // namespace
