// One program among several on one practice: it has the library to itself. What it does goes to its standard
// output a line at a time, before and after it is done, so that a reader knows how far it came even when it
// was killed:
//   ? WHAT         about to do it
//   + KEY TEXT     a patient was added or edited; TEXT is what its texts hold
//   - KEY          a patient was deleted
//   i KEY PATIENT  an image was added
//   r KEY PATIENT OLD  an image took the place of another one
//   s NAME TEXT    a setting was written
//   ~ LINE         done in a transaction that is not committed yet; "~ commit": it is about to be
//   x WHAT CODE    something failed
//   ready, refused, done
#include <unistd.h>

#include <cstdio>
#include <cstdlib>
#include <map>
#include <random>
#include <string>
#include <vector>

#include "frame/KyODBC.h"
#include "tests/support/records.h"

namespace {

using Lines = std::vector<std::string>;

void Tell(const std::string& line) {
  const std::string text = line + "\n";
  if (write(STDOUT_FILENO, text.data(), text.size()) < 0) std::exit(3);
}

std::string Number(LONG number) { return std::to_string(number); }

class Writer {
 public:
  Writer(const std::string& name, unsigned seed) : m_name(name), m_random(seed) {}

  void Work(int operations) {
    for (int count = 0; count < operations; ++count) {
      switch (m_random() % 11) {
        case 0:
        case 1:
        case 2:
          AddPatient();
          break;
        case 3:
        case 4:
          EditPatient();
          break;
        case 5:
          DeletePatient();
          break;
        case 6:
          AddImage();
          break;
        case 7:
          WriteSetting(m_name);
          break;
        case 8:
          WriteSetting("Shared");
          break;
        case 9:
          ReplaceImage();
          break;
        default:
          RunTransaction();
          break;
      }
    }
  }

 private:
  // Tells at once, or after the commit.
  void Done(const std::string& line) {
    if (m_in_transaction) {
      Tell("~ " + line);
      m_held.push_back(line);
    } else {
      Tell(line);
    }
  }
  bool Check(const std::string& what, WORD code) {
    if (code != 0) Tell("x " + what + " " + Number(code));
    return code == 0;
  }
  void Intend(const std::string& what) {
    if (!m_in_transaction) Tell("? " + what);
  }
  tagTPATIENT NewTexts() {
    tagTPATIENT patient{};
    patient.lDrID = 1;
    patient.dBirthday = support::Ts(1970, 1, 2);
    const std::string text = m_name + "n" + std::to_string(++m_serial);
    support::SetText(patient.szName, m_name);
    support::SetText(patient.szFirstname, text);
    support::SetText(patient.szExtPatID, text);
    return patient;
  }
  LONG AnyOwn() {
    if (m_own.empty()) return 0;
    auto any = m_own.begin();
    std::advance(any, static_cast<int>(m_random() % m_own.size()));
    return any->first;
  }

  bool AddPatient() {
    tagTPATIENT patient = NewTexts();
    const std::string text = patient.szFirstname;
    Intend("+ 0 " + text);
    if (!Check("add", DB_AddNewTPat(&patient))) return false;
    m_own[patient.lPatID] = text;
    Done("+ " + Number(patient.lPatID) + " " + text);
    return true;
  }
  bool EditPatient() {
    tagTPATIENT patient = NewTexts();
    patient.lPatID = AnyOwn();
    if (patient.lPatID == 0) return true;
    const std::string line = "+ " + Number(patient.lPatID) + " " + patient.szFirstname;
    Intend(line);
    if (!Check("edit", DB_EditTPat(&patient))) return false;
    Done(line);
    return true;
  }
  bool DeletePatient() {
    tagTPATIENT patient{};
    patient.lPatID = AnyOwn();
    if (patient.lPatID == 0) return true;
    const std::string line = "- " + Number(patient.lPatID);
    Intend(line);
    if (!Check("delete", DB_DeleteTPat(&patient))) return false;
    m_own.erase(patient.lPatID);
    Done(line);
    return true;
  }
  void AddImage() {
    tagTIMAGE image{};
    image.lPatID = AnyOwn();
    if (image.lPatID == 0) return;
    image.lUnitID = image.lDrID = 1;
    support::SetText(image.szName, m_name);
    const int minutes = ++m_serial;
    image.ts = support::Ts(2020, 1, 1 + minutes / 1440, minutes / 60 % 24, minutes % 60);
    Intend("i 0 " + Number(image.lPatID));
    if (!Check("image", DB_AddNewTImg(&image))) return;
    m_image = image;
    Done("i " + Number(image.lImgID) + " " + Number(image.lPatID));
  }
  // An image of the same patient and time takes the place of the one that is there.
  void ReplaceImage() {
    if (m_image.lImgID == 0) return AddImage();
    tagTIMAGE image = m_image;
    image.szLoc[0] = '\0';
    const std::string old = " " + Number(image.lPatID) + " " + Number(image.lImgID);
    Intend("r 0" + old);
    if (!Check("replace", DB_AddNewTImg(&image))) return;
    m_image = image;
    Done("r " + Number(image.lImgID) + old);
  }
  void WriteSetting(const std::string& setting) {
    const std::string text = m_name + "v" + std::to_string(++m_serial);
    const std::string line = "s " + setting + " " + text;
    Intend(line);
    if (Check("setting", DB_WriteProfileString(setting.c_str(), "-", text.c_str()))) Done(line);
  }

  // Several changes, now and then taken back.
  void RunTransaction() {
    const std::map<LONG, std::string> own = m_own;
    Tell("? transaction");
    if (!Check("begin", DB_BeginTransaction())) return;
    m_in_transaction = true;
    const bool good = AddPatient() && EditPatient() && AddPatient() && DeletePatient();
    const bool commit = good && m_random() % 4 != 0;
    if (commit) Tell("~ commit");
    const WORD code = commit ? DB_CommitTransaction() : DB_RollbackTransaction();
    m_in_transaction = false;
    if (Check(commit ? "commit" : "rollback", code) && commit) {
      for (const std::string& line : m_held) Tell(line);
    } else {
      m_own = own;
    }
    m_held.clear();
    Tell("? nothing");
  }

  const std::string m_name;
  std::mt19937 m_random;
  int m_serial = 0;
  std::map<LONG, std::string> m_own;
  tagTIMAGE m_image{};  // the newest one
  bool m_in_transaction = false;
  Lines m_held;
};

// Browses what the writers write; every row read must be whole.
class Reader {
 public:
  explicit Reader(unsigned seed) : m_random(seed) {}

  void Work(int operations) {
    if (Failed("open", DB_OpenTPat()) || Failed("open view", DB_OpenPatEx())) return;
    for (int count = 0; count < operations; ++count) {
      switch (m_random() % 4) {
        case 0:
          Filter();
          break;
        case 1:
          Failed("sort",
                 DB_SetTPatSortIndex(m_random() % 2 == 0 ? KYODBC_FIELD_NAME : KYODBC_FIELD_FIRSTNAME));
          break;
        case 2:
          Failed("open view", DB_OpenPatEx());
          break;
        default:
          ReadRows();
          break;
      }
    }
  }

 private:
  static bool Failed(const char* what, WORD code) {
    if (code != 0) Tell(std::string("x ") + what + " " + Number(code));
    return code != 0;
  }
  void Filter() {
    const LONG key = static_cast<LONG>(m_random() % 20);
    Failed("filter", DB_SetTPatFilter(KYODBC_FIELD_KEY, KYODBC_GREATER, &key, nullptr, nullptr, nullptr));
  }
  void ReadRows() {
    LONG count = 0;
    if (Failed("count", DB_GetTPatMaxPos(&count))) return;
    for (LONG position = 1; position <= 20; ++position) {
      tagTPATIENT patient{};
      const WORD code = DB_GetTPatByPos(position, &patient);
      if (code == 64) return;  // others have deleted meanwhile
      if (Failed("read", code)) return;
      if (support::Text(patient.szFirstname) != support::Text(patient.szExtPatID)) Tell("x torn 0");
    }
  }

  std::mt19937 m_random;
};

// Changes two patients in one transaction; waits for a line between the two.
void ChangeTwo(LONG first, LONG second, const std::string& text) {
  const auto edit = [&](LONG key) {
    tagTPATIENT patient{};
    patient.lPatID = key;
    support::SetText(patient.szFirstname, text);
    return DB_EditSelTPat(&patient, KYODBC_MASK_PAT_FIRSTNAME);
  };
  if (DB_BeginTransaction() != 0 || edit(first) != 0) {
    Tell("refused");
    return;
  }
  Tell("ready");
  char line[8];
  if (std::fgets(line, sizeof line, stdin) == nullptr) return;
  const WORD code = edit(second);
  Tell("edited " + Number(code));
  Tell("committed " + Number(DB_CommitTransaction()));
}

}  // namespace

// worker SOURCE USER PASSWORD writer|reader NAME SEED OPERATIONS
// worker SOURCE USER PASSWORD two FIRST SECOND TEXT
int main(int count, char** arguments) {
  if (count != 8) return 2;
  tagDBCONNECT parameters{};
  support::SetText(parameters.szDSN, arguments[1]);
  support::SetText(parameters.szUID, arguments[2]);
  support::SetText(parameters.szPWD, arguments[3]);
  const WORD code = DB_InitDatabase(&parameters);
  if (code != 0) {
    Tell("x connect " + Number(code));
    return 1;
  }
  const std::string role = arguments[4];
  if (role == "two") {
    ChangeTwo(std::stoi(arguments[5]), std::stoi(arguments[6]), arguments[7]);
  } else if (role == "writer") {
    Writer(arguments[5], static_cast<unsigned>(std::stoi(arguments[6]))).Work(std::stoi(arguments[7]));
  } else {
    Reader(static_cast<unsigned>(std::stoi(arguments[6]))).Work(std::stoi(arguments[7]));
  }
  Tell("done");
  return DB_CloseDatabase();
}
