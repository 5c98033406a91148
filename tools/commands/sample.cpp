// kyodbc sample: fills an empty practice with made-up rows.
#include <fmt/format.h>

#include <CLI/CLI.hpp>
#include <chrono>
#include <cstdint>
#include <cstring>
#include <memory>
#include <nlohmann/json.hpp>
#include <string>
#include <vector>

#include "tools/commands/commands.h"
#include "tools/connection.h"
#include "tools/interruption.h"
#include "tools/output.h"
#include "tools/progress.h"
#include "tools/sample/practice.h"
#include "tools/tool_error.h"

namespace {

constexpr LONG kDefaultKey = 1;  // of the rows "-" that stand for "none"

struct SampleOptions {
  Place place;
  int patients = 0;
  std::uint64_t seed = 1;
};

// The database's keys of a table's sample rows.
class Keys {
 public:
  void Add(LONG key) { m_keys.push_back(key); }
  // For the sample's number of a row, from 1; 0 is the default row.
  LONG Of(LONG number) const {
    return number == 0 ? kDefaultKey : m_keys.at(static_cast<std::size_t>(number) - 1);
  }

 private:
  std::vector<LONG> m_keys;
};

// A record begins with its key.
template <class Record>
LONG KeyOf(const Record& record) {
  LONG key = 0;
  std::memcpy(&key, &record, sizeof key);
  return key;
}

// Stores a sample through the library, table by table.
class Loader {
 public:
  explicit Loader(const sample::Practice& practice) : m_practice(practice) {}

  void Load() {
    LoadRooms();
    LoadPeople();
    LoadPictures();
    m_batches.Finish();
  }

 private:
  void LoadRooms();
  void LoadPeople();
  void LoadPictures();

  // Stores `rows` rows that `make` delivers.
  template <class Make, class Record>
  void AddAll(const char* what, int rows, Make make, WORD (*add)(Record*), Keys* keys) {
    Progress progress(what, static_cast<std::uint64_t>(rows));
    for (int row = 0; row < rows; ++row) {
      Record record = make(row);
      Check(add(&record), fmt::format("adding row {} of the {}", row + 1, what));
      if (keys != nullptr) keys->Add(KeyOf(record));
      m_batches.Step();
      progress.Step();
    }
  }

  const sample::Practice& m_practice;
  Batches m_batches;
  Keys m_doctors;
  Keys m_stations;
  Keys m_units;
  Keys m_patients;
  Keys m_images;
};

void Loader::LoadRooms() {
  AddAll(
      "stations", m_practice.Stations(), [this](int row) { return m_practice.Station(row); }, DB_AddNewTStat,
      &m_stations);
  AddAll(
      "settings", m_practice.Settings(),
      [this](int row) {
        tagTCONFIG setting = m_practice.Setting(row);
        setting.lStatID = m_stations.Of(setting.lStatID);
        return setting;
      },
      DB_AddNewTCfg, nullptr);
  AddAll(
      "units", m_practice.Units(), [this](int row) { return m_practice.Unit(row); }, DB_AddNewTUnit,
      &m_units);
  AddAll(
      "tests", m_practice.Tests(),
      [this](int row) {
        tagTTEST test = m_practice.Test(row);
        test.lUnitID = m_units.Of(test.lUnitID);
        return test;
      },
      DB_AddNewTTest, nullptr);
}

void Loader::LoadPeople() {
  AddAll(
      "doctors", m_practice.Doctors(), [this](int row) { return m_practice.Doctor(row); }, DB_AddNewTDr,
      &m_doctors);
  AddAll(
      "patients", m_practice.Patients(),
      [this](int row) {
        tagTPATIENT patient = m_practice.Patient(row);
        patient.lDrID = m_doctors.Of(patient.lDrID);
        return patient;
      },
      DB_AddNewTPat, &m_patients);
}

void Loader::LoadPictures() {
  AddAll(
      "images", m_practice.Images(),
      [this](int row) {
        tagTIMAGE image = m_practice.Image(row);
        image.lPatID = m_patients.Of(image.lPatID);
        image.lUnitID = m_units.Of(image.lUnitID);
        image.lDrID = m_doctors.Of(image.lDrID);
        return image;
      },
      DB_AddNewTImg, &m_images);
  AddAll(
      "makros", m_practice.Makros(),
      [this](int row) {
        tagTMAKRO makro = m_practice.Makro(row);
        makro.lImgID = m_images.Of(makro.lImgID);
        return makro;
      },
      DB_AddNewTMak, nullptr);
  AddAll(
      "groups", m_practice.Groups(),
      [this](int row) {
        tagTGROUP group = m_practice.Group(row);
        group.lPatID = m_patients.Of(group.lPatID);
        return group;
      },
      DB_AddNewTGrp, nullptr);
  AddAll(
      "diagnoses", m_practice.Diagnoses(),
      [this](int row) {
        tagTDIAGNOSIS diagnosis = m_practice.Diagnosis(row);
        diagnosis.lImgID = m_images.Of(diagnosis.lImgID);
        diagnosis.lDrID = m_doctors.Of(diagnosis.lDrID);
        return diagnosis;
      },
      DB_AddNewTDiag, nullptr);
}

// A sample's identifiers would meet their like in a practice that has rows already.
void RequireEmptyPractice() {
  LONG patients = 0;
  LONG last_doctor = 0;
  Check(DB_GetNumTPat(&patients), "counting the patients");
  Check(DB_GetLastDrID(&last_doctor), "looking for doctors");
  if (patients != 0 || last_doctor != kDefaultKey) {
    throw ToolError(kFailed,
                    "the practice has patients or doctors already; a sample fills an empty one only");
  }
}

void PrintAsJson(const sample::Practice& practice, double seconds) {
  PrintJson({
      {"patients",  practice.Patients() },
      {"images",    practice.Images()   },
      {"makros",    practice.Makros()   },
      {"groups",    practice.Groups()   },
      {"diagnoses", practice.Diagnoses()},
      {"tests",     practice.Tests()    },
      {"doctors",   practice.Doctors()  },
      {"units",     practice.Units()    },
      {"stations",  practice.Stations() },
      {"settings",  practice.Settings() },
      {"seconds",   seconds             }
  });
}

void Sample(const SampleOptions& options) {
  const Interruption interruption;
  const Connection connection(options.place);
  RequireEmptyPractice();
  const auto start = std::chrono::steady_clock::now();
  const sample::Practice practice(options.seed, options.patients);
  Loader(practice).Load();
  const std::chrono::duration<double> taken = std::chrono::steady_clock::now() - start;
  if (AsJson()) return PrintAsJson(practice, taken.count());
  fmt::print(
      "Added {} patients, {} images, {} makros, {} groups, {} diagnoses, {} tests, {} doctors, {} units,\n"
      "{} stations and {} settings in {:.1f} seconds.\n",
      practice.Patients(), practice.Images(), practice.Makros(), practice.Groups(), practice.Diagnoses(),
      practice.Tests(), practice.Doctors(), practice.Units(), practice.Stations(), practice.Settings(),
      taken.count());
}

}  // namespace

void AddSample(CLI::App& program, Action& run) {
  CLI::App* command = program.add_subcommand("sample", "Fill an empty practice with made-up rows");
  const auto options = std::make_shared<SampleOptions>();
  AddPlace(*command, options->place);
  command->add_option("--patients", options->patients, "How many patients; the other tables grow with them")
      ->required()
      ->check(CLI::Range(1, sample::kMostPatients));
  command->add_option("--seed", options->seed, "Another number makes another practice")
      ->capture_default_str();
  AddJson(*command);
  command->footer("Ctrl-C ends it; the practice then holds a part of the sample.\n");
  command->callback([options, &run] { run = [options] { Sample(*options); }; });
}
