// The programs of examples/ and the one in Python, as a user runs them, on a practice of each database.
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <sys/wait.h>

#include <cstdio>
#include <memory>
#include <string>
#include <vector>

#include "frame/KyODBC.h"
#include "tests/support/fixtures.h"

using support::SetText;
using testing::HasSubstr;

namespace {

struct Output {
  int status = -1;
  std::string text;
};

std::string Quoted(const std::string& argument) { return "'" + argument + "'"; }

Output Started(const std::string& command) {
  Output output;
  std::FILE* pipe = popen(command.c_str(), "r");
  if (pipe == nullptr) return output;
  char part[512];
  for (std::size_t read = 0; (read = std::fread(part, 1, sizeof part, pipe)) > 0;)
    output.text.append(part, read);
  const int status = pclose(pipe);
  output.status = WIFEXITED(status) ? WEXITSTATUS(status) : -1;
  return output;
}

class Examples : public support::PracticeTest {
 protected:
  // "SOURCE ... [USER PASSWORD]"; `more` stands between them.
  std::string Arguments(const std::string& more = {}) {
    const auto& kind = support::CurrentKind();
    std::string text = " " + Quoted(m_practice.Dsn());
    if (!more.empty()) text += " " + Quoted(more);
    if (!kind.User().empty()) text += " " + Quoted(kind.User()) + " " + Quoted(kind.Password());
    return text;
  }
  Output Example(const std::string& name, const std::string& more = {}) {
    return Started("LSAN_OPTIONS=print_suppressions=0:suppressions=" KYODBC_LEAKS_OF_DRIVERS
                   " " KYODBC_EXAMPLES_FOLDER "/" +
                   name + Arguments(more));
  }

  void AddPatients(const std::vector<std::string>& names) {
    ASSERT_EQ(Connect(), 0);
    for (const std::string& name : names) {
      tagTPATIENT patient{};
      SetText(patient.szName, name);
      SetText(patient.szFirstname, "Anna");
      SetText(patient.szSlidaID, "id " + name);
      patient.lDrID = 1;
      ASSERT_EQ(DB_AddNewTPat(&patient), 0);
    }
    ASSERT_EQ(DB_CloseDatabase(), 0);
  }
};

TEST_F(Examples, PageShowsAllPatientsInOrderAndNoneTwice) {
  AddPatients({"Ce", "Ab", "Fa", "Da", "Be", "Ga", "Ea"});
  const Output output = Example("page_c");
  EXPECT_EQ(output.status, 0);
  EXPECT_EQ(output.text,
            "page 1 of 2\n   1  Ab, Anna\n   2  Be, Anna\n   3  Ce, Anna\n   4  Da, Anna\n   5  Ea, Anna\n"
            "page 2 of 2\n   6  Fa, Anna\n   7  Ga, Anna\n");
}

TEST_F(Examples, EditMaskWritesOnlyWhatItSelects) {
  const Output output = Example("edit_mask_c");
  EXPECT_EQ(output.status, 0);
  EXPECT_EQ(output.text,
            "added: Zoë O'Hara-Müller, identifier EX-0001\nedited: Zoë Anne O'Hara-Müller\ndeleted: 21\n");
  EXPECT_EQ(Raw().Count("TPatient"), 0);
}

TEST_F(Examples, EditMaskTellsWhyItFailed) {
  const Output output = Started(KYODBC_EXAMPLES_FOLDER "/edit_mask_c 'no such source' 2>&1");
  EXPECT_EQ(output.status, 1);
  EXPECT_THAT(output.text, HasSubstr("DB_InitDatabase: code 3: IM002 Data source name not found"));
}

TEST_F(Examples, SettingsGivesDefaultsAndWhatWasStored) {
  const int before = Raw().Count("TConfig");
  const Output output = Example("settings_c");
  EXPECT_EQ(output.status, 0);
  EXPECT_EQ(output.text, "colour none, rows 20\ncolour blue, rows 50\ncolour none, rows 20\n");
  EXPECT_EQ(Raw().Count("TConfig"), before);
}

TEST_F(Examples, TransactionKeepsBothOrNone) {
  const Output output = Example("transaction");
  EXPECT_EQ(output.status, 0);
  EXPECT_EQ(output.text,
            "before: 1 stations\nafter a pair that failed: 1 stations\nafter a pair that worked: 3 stations\n"
            "in the end: 1 stations\n");
}

TEST_F(Examples, ProcedurePrintsWhateverColumnsThereAre) {
  AddPatients({"Ab", "Be"});
  for (const std::string& statement : support::CurrentKind().ProcedureStatements(
           "recall_list", "SELECT tPatSName, tPatSFirstname FROM TPatient")) {
    Raw().Exec(statement);
  }
  const Output output = Example("procedure", "recall_list");
  EXPECT_EQ(output.status, 0);
  EXPECT_THAT(output.text, HasSubstr("Ab\tAnna\t\n"));
  EXPECT_THAT(output.text, HasSubstr("Be\tAnna\t\n"));
  EXPECT_THAT(output.text, HasSubstr("2 rows\n"));
  EXPECT_EQ(Example("procedure", "nosuchlist").status, 1);
}

TEST_F(Examples, OwnSetUsesItsOwnTable) {
  const Output output = Example("own_set");
  EXPECT_EQ(output.status, 0);
  EXPECT_EQ(output.text,
            "by borrower: 3\n  1: Dr. Adam, 2021\n  2: Dr. Weber, 2019\n  3: O'Hara, 2024\n"
            "since 2020: 2\n  1: Dr. Adam, 2021\n  2: O'Hara, 2024\n"
            "edited: 2\n  1: Dr. Adam, 2021\n  2: O'Hara-Müller, 2024\n"
            "left: 2\n");
  EXPECT_ANY_THROW(Raw().Count("TLoan"));
}

TEST_F(Examples, PythonDoesTheSame) {
  AddPatients({"Moe", "Ab", "Maa"});
  const std::string folder = KYODBC_SOURCE_DIR "/bindings/python";
  const Output output = Started(KYODBC_PYTHON_COMMAND " " + folder + "/example.py" + Arguments());
  EXPECT_EQ(output.status, 0);
  EXPECT_EQ(output.text,
            "2 patients whose names begin with M\n   1  Maa, Anna\n   2  Moe, Anna\n"
            "added: Müller-Lüdenscheidt 1987-06-05\nedited: Zoë Anne Müller-Lüdenscheidt\n"
            "DB_GetTPat: code 21: There is no such patient.\n");
  EXPECT_EQ(Raw().Count("TPatient"), 3);
}

}  // namespace
