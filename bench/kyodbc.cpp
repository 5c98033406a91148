// This library, by its flat functions.
#include <cstring>
#include <stdexcept>
#include <string>

#include "bench/task.h"
#include "frame/KyODBC.h"

namespace {

using bench::Task;

constexpr LONG kByName = KYODBC_FIELD_NAME;
constexpr LONG kByPerson = KYODBC_PACK(KYODBC_FIELD_NAME, KYODBC_FIELD_FIRSTNAME, KYODBC_FIELD_BIRTHDAY, 0);
constexpr LONG kByBirthday = KYODBC_PACK(KYODBC_FIELD_BIRTHDAY, KYODBC_FIELD_NAME, KYODBC_FIELD_FIRSTNAME, 0);
constexpr int kPage = 50;

std::string g_source;
std::int64_t g_empty = 0;  // memory of the process before it did anything

void Require(WORD code, const char* what) {
  if (code != 0) throw std::runtime_error(std::string(what) + " gave " + std::to_string(code));
}

void RequireRow(LONG position, const char* what) {
  if (position <= 0) throw std::runtime_error(std::string(what) + " reached no row");
}

void Connect() {
  tagDBCONNECT parameters{};
  g_source.copy(parameters.szDSN, sizeof parameters.szDSN - 1);
  Require(DB_InitDatabase(&parameters), "connect");
}

void Disconnect() {
  if (DB_IsDatabaseOpen() != 0) Require(DB_CloseDatabase(), "disconnect");
}

void EnsureConnected() {
  if (DB_IsDatabaseOpen() == 0) Connect();
}

void EnsurePatients() {
  EnsureConnected();
  if (DB_IsTPatOpen() != 0) return;
  Require(DB_SetTPatSortIndex(kByPerson), "sort");
  Require(DB_OpenTPat(), "open");
}

void Close(Task&) {
  if (DB_IsDatabaseOpen() == 0) return;
  Require(DB_CloseTPat(), "close");
  Require(DB_ClosePatEx(), "close");
  Require(DB_CloseTImg(), "close");
}

void ConnectAgain(Task& task) {
  for (int i = 0; i < task.count; ++i) {
    Disconnect();
    task.Start();
    Connect();
    task.Stop();
  }
}

void Get(Task& task) {
  EnsureConnected();
  for (int i = 0; i < task.count; ++i) {
    tagTPATIENT patient{};
    patient.lPatID = task.Random(task.rows);
    task.Start();
    const WORD code = DB_GetTPat(&patient);
    task.Stop();
    Require(code, "get");
    if (task.check) task.Take(patient);
  }
}

void EditOne(Task& task, int number, LONG key) {
  tagTPATIENT patient{};
  patient.lPatID = key;
  task.NewText(number).copy(patient.szSocID, sizeof patient.szSocID - 1);
  task.Start();
  const WORD code = DB_EditSelTPat(&patient, KYODBC_MASK_PAT_SOCIAL_ID);
  task.Stop();
  Require(code, "edit");
}

void CheckEdited(Task& task, int number, LONG key) {
  if (!task.check) return;
  tagTPATIENT patient{};
  patient.lPatID = key;
  Require(DB_GetTPat(&patient), "get");
  task.TakeWritten(task.NewText(number), patient.szSocID);
}

void BeginEmbedded(Task& task) {
  if (task.embedded) Require(DB_BeginTransaction(), "begin");
}

void EndEmbedded(Task& task) {
  if (task.embedded) Require(DB_RollbackTransaction(), "rollback");
}

void Edit(Task& task) {
  EnsureConnected();
  BeginEmbedded(task);
  for (int i = 0; i < task.count; ++i) {
    const LONG key = task.Random(task.rows);
    EditOne(task, i, key);
    CheckEdited(task, i, key);
  }
  EndEmbedded(task);
}

tagTPATIENT NewPatient(const Task& task, int number) {
  tagTPATIENT patient{};
  patient.lDrID = 1;
  std::strcpy(patient.szName, "Newcomer");
  std::strcpy(patient.szFirstname, "Nora");
  std::strcpy(patient.szSex, "f");
  task.NewIdentifier(number).copy(patient.szSlidaID, sizeof patient.szSlidaID - 1);
  patient.dBirthday.year = 1980;
  patient.dBirthday.month = patient.dBirthday.day = 5;
  return patient;
}

void Add(Task& task) {
  EnsureConnected();
  BeginEmbedded(task);
  for (int i = 0; i < task.count; ++i) {
    tagTPATIENT patient = NewPatient(task, i);
    task.Start();
    const WORD code = DB_AddNewTPat(&patient);
    task.Stop();
    Require(code, "add");
    if (task.check) task.TakeWritten(task.NewIdentifier(i), patient.szIDDisp);
  }
  EndEmbedded(task);
}

void Newest(Task& task) {
  EnsureConnected();
  for (int i = 0; i < task.count; ++i) {
    LONG key = 0;
    TIMESTAMP_STRUCT time{};
    const LONG patient = task.Random(task.rows / 10);
    task.Start();
    const WORD code = DB_GetLastTImgDate(patient, &key, &time);
    task.Stop();
    Require(code, "newest");
    task.Take(key);
    task.Take(time);
    task.EndRow();
  }
}

// A function that gives one number.
void Number(Task& task, WORD (*function)(LONG*)) {
  EnsureConnected();
  for (int i = 0; i < task.count; ++i) {
    LONG number = 0;
    task.Start();
    const WORD code = function(&number);
    task.Stop();
    Require(code, "number");
    task.Take(number);
    task.EndRow();
  }
}

void TakeCurrentPatient(Task& task) {
  if (!task.check) return;
  tagTPATIENT patient{};
  Require(DB_GetTPatByPos(0, &patient), "read");
  task.Take(patient);
}

// Only the name: which of several of that name comes first is nobody's promise.
void TakeCurrentName(Task& task) {
  if (!task.check) return;
  tagTPATIENT patient{};
  Require(DB_GetTPatByPos(0, &patient), "read");
  task.Take(std::string_view(patient.szName));
  task.EndRow();
}

void OpenPatients(Task& task) {
  EnsureConnected();
  Close(task);
  Require(DB_SetTPatSortIndex(kByName), "sort");
  for (int i = 0; i < task.count; ++i) {
    task.Start();
    const WORD code = DB_OpenTPat();
    task.Stop();
    Require(code, "open");
    TakeCurrentName(task);
    Require(DB_CloseTPat(), "close");
  }
}

void TakeCurrentImage(Task& task, bool is_sorted) {
  tagTIMAGE image{};
  Require(DB_GetTImgByPos(0, &image), "read");
  if (!is_sorted) return task.TakeAnyKey(image.lImgID);
  task.Take(LONG{image.lImgID});
  task.EndRow();
}

// A set that was sorted once stays so: requests for the images in no order come after a "disconnect".
void OpenImages(Task& task, bool is_sorted) {
  EnsureConnected();
  Close(task);
  if (is_sorted) Require(DB_SetTImgSortIndex(KYODBC_FIELD_TIME), "sort");
  for (int i = 0; i < task.count; ++i) {
    task.Start();
    const WORD code = DB_OpenTImg();
    task.Stop();
    Require(code, "open");
    if (task.check) TakeCurrentImage(task, is_sorted);
    Require(DB_CloseTImg(), "close");
  }
}

void Walk(Task& task) {
  EnsureConnected();
  Close(task);
  Require(DB_SetTPatSortIndex(kByName), "sort");
  LONG rows = 0;
  task.Start();
  Require(DB_OpenTPat(), "open");
  do {
    tagTPATIENT patient;
    Require(DB_GetTPatByPos(0, &patient), "read");
    ++rows;
    if (task.check) task.Take(patient);
  } while (DB_MoveToTPatByDelta(1) != 0);
  task.Stop();
  Require(DB_CloseTPat(), "close");
  task.Take(rows);
  task.EndRow();
}

void Positions(Task& task) {
  EnsurePatients();
  for (int i = 0; i < task.count; ++i) {
    const LONG position = task.Random(task.rows);
    tagTPATIENT patient;
    task.Start();
    const WORD code = DB_GetTPatByPos(position, &patient);
    task.Stop();
    Require(code, "read");
    if (task.check) task.Take(patient);
  }
}

void Jump(Task& task) {
  EnsurePatients();
  for (int i = 0; i < task.count; ++i) {
    LONG position = task.Random(task.rows - kPage);
    tagTPATIENT page[kPage];
    task.Start();
    for (tagTPATIENT& patient : page) Require(DB_GetTPatByPos(position++, &patient), "read");
    task.Stop();
    for (const tagTPATIENT& patient : page) {
      if (task.check) task.Take(patient);
    }
  }
}

void Sequence(Task& task) {
  EnsurePatients();
  const LONG from = task.rows / 2;
  for (int i = 0; i < task.count; ++i) {
    tagTPATIENT patient;
    task.Start();
    const WORD code = DB_GetTPatByPos(from + i, &patient);
    task.Stop();
    Require(code, "read");
    if (task.check) task.Take(patient);
  }
}

void MaxPos(Task& task) {
  EnsurePatients();
  Number(task, DB_GetTPatMaxPos);
}

// The set keeps the last filter: requests for other works come after a "disconnect".
void Refilter(Task& task) {
  EnsurePatients();
  for (int i = 0; i < task.count; ++i) {
    const char* beginning = task.Beginning(i);
    task.Start();
    const WORD code = DB_SetTPatFilter(KYODBC_FIELD_NAME, KYODBC_LIKE, beginning, nullptr, nullptr, nullptr);
    task.Stop();
    Require(code, "filter");
    TakeCurrentPatient(task);
  }
}

void Resort(Task& task) {
  EnsurePatients();
  for (int i = 0; i < task.count; ++i) {
    const LONG order = i % 2 == 0 ? kByBirthday : kByPerson;
    task.Start();
    const WORD code = DB_SetTPatSortIndex(order);
    task.Stop();
    Require(code, "sort");
    TakeCurrentPatient(task);
  }
}

void EditOpen(Task& task) {
  EnsurePatients();
  Edit(task);
}

void EditLook(Task& task) {
  EnsurePatients();
  BeginEmbedded(task);
  for (int i = 0; i < task.count; ++i) {
    const LONG key = task.Random(task.rows);
    EditOne(task, i, key);
    tagTPATIENT patient;
    task.Start();
    const WORD code = DB_GetTPatByPos(1, &patient);
    task.Stop();
    Require(code, "read");
    CheckEdited(task, i, key);
  }
  EndEmbedded(task);
}

void SeekImage(Task& task) {
  EnsureConnected();
  if (DB_IsTImgOpen() == 0) {
    Require(DB_SetTImgSortIndex(KYODBC_FIELD_KEY), "sort");
    Require(DB_OpenTImg(), "open");
  }
  for (int i = 0; i < task.count; ++i) {
    const LONG key = task.Random(task.rows);
    task.Start();
    const LONG position = DB_MoveToTImgByIntID(key);
    task.Stop();
    RequireRow(position, "seek");
    task.Take(position);
    task.EndRow();
  }
}

void SeekJoined(Task& task) {
  EnsureConnected();
  if (DB_IsPatExOpen() == 0) {
    Require(DB_SetPatExSortIndex(kByPerson), "sort");
    Require(DB_OpenPatEx(), "open");
  }
  for (int i = 0; i < task.count; ++i) {
    const LONG key = task.Random(task.rows);
    task.Start();
    const LONG position = DB_MoveToPatExByIntID(key);
    task.Stop();
    RequireRow(position, "seek");
    task.Take(position);
    task.EndRow();
  }
}

void SeekText(Task& task) {
  EnsurePatients();
  for (int i = 0; i < task.count; ++i) {
    const char beginning[] = {task.Beginning(i)[0], '\0'};
    task.Start();
    const LONG position = DB_MoveToTPatByString(beginning);
    task.Stop();
    RequireRow(position, "seek");
    task.Take(position);
    task.EndRow();
  }
}

void MemoryOpen(Task& task) {
  EnsureConnected();
  Require(DB_OpenTImg(), "open");
  task.Answer(bench::ResidentMemory() - g_empty);
}

void MemoryWalked(Task& task) {
  LONG rows = 0;
  do {
    tagTIMAGE image;
    Require(DB_GetTImgByPos(0, &image), "read");
    ++rows;
  } while (DB_MoveToTImgByDelta(1) != 0);
  task.Take(rows);
  task.EndRow();
  task.Answer(bench::ResidentMemory() - g_empty);
}

}  // namespace

int main(int count, char** arguments) {
  if (count != 2) return 2;
  g_source = arguments[1];
  g_empty = bench::ResidentMemory();
  return bench::Serve({
      {"connect",            ConnectAgain                                     },
      {"get",                Get                                              },
      {"edit",               Edit                                             },
      {"add",                Add                                              },
      {"newest",             Newest                                           },
      {"last_id",            [](Task& task) { Number(task, DB_GetLastPatID); }},
      {"count",              [](Task& task) { Number(task, DB_GetNumTPat); }  },
      {"open_patients",      OpenPatients                                     },
      {"open_images",        [](Task& task) { OpenImages(task, false); }      },
      {"open_images_sorted", [](Task& task) { OpenImages(task, true); }       },
      {"walk",               Walk                                             },
      {"positions",          Positions                                        },
      {"jump",               Jump                                             },
      {"sequence",           Sequence                                         },
      {"maxpos",             MaxPos                                           },
      {"refilter",           Refilter                                         },
      {"resort",             Resort                                           },
      {"edit_open",          EditOpen                                         },
      {"edit_look",          EditLook                                         },
      {"seek_image",         SeekImage                                        },
      {"seek_joined",        SeekJoined                                       },
      {"seek_text",          SeekText                                         },
      {"close",              Close                                            },
      {"disconnect",         [](Task&) { Disconnect(); }                      },
      {"memory_open",        MemoryOpen                                       },
      {"memory_walked",      MemoryWalked                                     },
  });
}
