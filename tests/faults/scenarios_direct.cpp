// Sets for direct access to one row: inserting, reading and editing through them.
#include "tables/image_raw_rec.h"
#include "tables/makro_raw_rec.h"
#include "tables/patient_raw_rec.h"
#include "tables/station_raw_rec.h"
#include "tests/faults/scenario.h"

namespace faults {
namespace {

constexpr LONG kAllFields = -1;

// Each has a set, its record class, and two records: one that is added and a change of the one that is there.

struct Stations {
  using Set = CStatRawRec;
  static CTStatRaw Added(const Keys&) {
    CTStatRaw station;
    station.m_strName = kDirectText;
    return station;
  }
  static CTStatRaw Edited(const Keys& keys) {
    CTStatRaw station;
    station.m_lStatID = keys.at("TStat");
    station.m_strName = kChangedText;
    return station;
  }
};

struct Patients {
  using Set = CPatientRawRec;
  static CTPatientRaw Added(const Keys& keys) {
    CTPatientRaw patient;
    patient.m_strSlidaID = kDirectText;
    patient.m_strName = kDirectText;
    patient.m_lDrID = keys.at("TDr");
    return patient;
  }
  // The newest image decides the last display.
  static CTPatientRaw Edited(const Keys& keys) {
    CTPatientRaw patient = Added(keys);
    patient.m_lPatID = keys.at("TPat");
    return patient;
  }
};

struct Makros {
  using Set = CMakRawRec;
  static CTMakRaw Added(const Keys& keys) {
    CTMakRaw makro;
    makro.m_lImgID = keys.at("TImg");
    makro.m_lNo = 77;
    return makro;
  }
  static CTMakRaw Edited(const Keys& keys) {
    CTMakRaw makro = Added(keys);
    makro.m_lMakID = keys.at("TMak");
    return makro;
  }
};

struct Images {
  using Set = CImgRawRec;
  static CTImageRaw Added(const Keys& keys) {
    CTImageRaw image;
    image.m_lPatID = keys.at("TPat");
    image.m_ts = {2004, 5, 6, 7, 8, 9, 0};
    image.m_strLoc = "9";
    return image;
  }
  static CTImageRaw Edited(const Keys& keys) {
    CTImageRaw image = Added(keys);
    image.m_lImgID = keys.at("TImg");
    return image;
  }
};

template <class Table>
void Insert(Answers& answers, const Keys& keys) {
  const auto insert = [&] {
    typename Table::Set set(DB_GetDatabase(), "");
    auto record = Table::Added(keys);
    return set.Insert(record, kAllFields);
  };
  answers.Code("insert", CodeOf(insert), {1, 3, 6, 31, 52, 64});
}

template <class Table>
void ReadAndEdit(Answers& answers, const Keys& keys) {
  const auto edit = [&] {
    typename Table::Set set(DB_GetDatabase(), "");
    auto record = Table::Edited(keys);
    answers.Code("read", CodeOf([&] { return set.OpenQuery(record); }), {3, 31});
    return set.Edit(record, kAllFields);
  };
  answers.Code("edit", CodeOf(edit), {3, 6, 31, 52, 64});
}

template <class Table>
void Append(const std::string& name, bool derives, std::vector<Scenario>* scenarios) {
  scenarios->push_back({.name = "DirectInsert" + name,
                        .run = Insert<Table>,
                        .passes_exceptions_on = true,
                        .derives = derives});
  scenarios->push_back({.name = "DirectReadAndEdit" + name,
                        .run = ReadAndEdit<Table>,
                        .passes_exceptions_on = true,
                        .derives = derives});
}

}  // namespace

std::vector<Scenario> DirectScenarios() {
  std::vector<Scenario> scenarios;
  Append<Stations>("Stations", false, &scenarios);
  Append<Patients>("Patients", true, &scenarios);
  Append<Makros>("Makros", false, &scenarios);
  Append<Images>("Images", false, &scenarios);
  return scenarios;
}

}  // namespace faults
