// Doctors and patients.
#include <fmt/format.h>

#include <numeric>
#include <stdexcept>
#include <string_view>

#include "tools/record_text.h"
#include "tools/sample/calendar.h"
#include "tools/sample/draw.h"
#include "tools/sample/names.h"
#include "tools/sample/practice.h"

namespace sample {
namespace {

// Coprime with the number of birthdays, so that patients in a row are born all over the years and each day
// comes once before any comes again.
constexpr int kBirthdayStep = 7919;
static_assert(std::gcd(kBirthdayStep, kBirthdays) == 1);

template <class T>
const T& Pick(std::span<const T> choice, int index) {
  return choice[static_cast<std::size_t>(index) % choice.size()];
}

TIMESTAMP_STRUCT Birthday(std::uint64_t seed, int row) {
  const auto first = static_cast<std::int64_t>(seed % static_cast<std::uint64_t>(kBirthdays));
  const std::int64_t day = (first + std::int64_t{row} * kBirthdayStep) % kBirthdays;
  return Date(kFirstBirthday + std::chrono::days(day));
}

// Patients born on the same day are kBirthdays rows apart; they go on to the next surname each time, so that
// name and birthday together never come twice.
const char* Surname(std::uint64_t seed, int row) {
  const int first = row % kBirthdays;
  const int names = static_cast<int>(Surnames().size());
  const int start = first < kOddSurnames ? first : Draw(seed, Kind::kSurname, first).Below(names);
  return Pick(Surnames(), start + row / kBirthdays);
}

// Five patients in eight have a Slida id alone, one in eight an external one alone.
void SetIdentifiers(tagTPATIENT& patient, int row) {
  const int kind = row % 8;
  if (kind != 7) SetText(patient.szSlidaID, fmt::format("S{:07}", row + 1));
  if (kind == 5 || kind == 7) SetText(patient.szExtPatID, fmt::format("EXT-{:07}", row + 1));
  if (kind == 6) SetText(patient.szSrvID, fmt::format("pat.{:07}.practice.example", row + 1));
}

}  // namespace

Practice::Practice(std::uint64_t seed, int patients) : m_seed(seed), m_patients(patients) {
  if (patients < 0 || patients > kMostPatients) throw std::out_of_range("number of patients");
}

int Practice::Doctors() const { return 4 + m_patients / 500; }

tagTDOCTOR Practice::Doctor(int row) const {
  Draw draw(m_seed, Kind::kDoctor, 0);
  const int names = static_cast<int>(Surnames().size());
  const int place = draw.Below(names) + row;
  tagTDOCTOR doctor{};
  if (row == 0) {
    SetText(doctor.szName, "Dr. Müller");
  } else {
    // Initials go on where surnames come again, which keeps the names apart.
    const char initial = static_cast<char>('A' + row / names % 26);
    SetText(doctor.szName, fmt::format("Dr. {}. {}", initial, Pick(Surnames(), place)));
  }
  SetText(doctor.szSrvID, fmt::format("dr.{:05}.practice.example", row + 1));
  return doctor;
}

LONG Practice::DoctorOfPatient(int row) const {
  Draw draw(m_seed, Kind::kDoctor, row + 1);
  return draw.OneIn(40) ? 0 : 1 + draw.Below(Doctors());
}

tagTPATIENT Practice::Patient(int row) const {
  Draw draw(m_seed, Kind::kPatient, row);
  const int firstname = row < 4 ? row : draw.Below(static_cast<int>(Firstnames().size()));
  tagTPATIENT patient{};
  patient.lDrID = DoctorOfPatient(row);
  SetIdentifiers(patient, row);
  SetText(patient.szSocID,
          fmt::format("{:03}-{:02}-{:04}", draw.Below(900) + 100, draw.Below(100), row % 10000));
  SetText(patient.szName, Surname(m_seed, row));
  SetText(patient.szFirstname, Pick(Firstnames(), firstname).name);
  SetText(patient.szSex, Pick(Firstnames(), firstname).sex);
  patient.dBirthday = Birthday(m_seed, row);
  patient.lSelect = draw.OneIn(50) ? 1 : 0;
  return patient;
}

}  // namespace sample
