#include "tools/field_names.h"

#include <fmt/format.h>

#include <algorithm>
#include <cctype>
#include <set>

namespace {

// One row per word. Of the rows with the same word, the first one whose id the table knows counts: "doctor"
// is the doctor's name where there is one, else the key.
constexpr FieldName kNames[] = {
    {"key",          KYODBC_FIELD_KEY,          ValueType::kKey },
    {"image",        KYODBC_FIELD_IMAGE_KEY,    ValueType::kKey },
    {"doctor",       KYODBC_FIELD_DOCTOR_NAME,  ValueType::kText},
    {"doctor",       KYODBC_FIELD_DOCTOR_KEY,   ValueType::kKey },
    {"doctor-key",   KYODBC_FIELD_DOCTOR_KEY,   ValueType::kKey },
    {"doctor-name",  KYODBC_FIELD_DOCTOR_NAME,  ValueType::kText},
    {"patient",      KYODBC_FIELD_PATIENT_KEY,  ValueType::kKey },
    {"unit",         KYODBC_FIELD_UNIT_KEY,     ValueType::kKey },
    {"station",      KYODBC_FIELD_STATION_KEY,  ValueType::kKey },
    {"name",         KYODBC_FIELD_NAME,         ValueType::kText},
    {"firstname",    KYODBC_FIELD_FIRSTNAME,    ValueType::kText},
    {"person",       KYODBC_FIELD_PERSON,       ValueType::kText},
    {"setting",      KYODBC_FIELD_SETTING_KEY,  ValueType::kText},
    {"value",        KYODBC_FIELD_SETTING,      ValueType::kText},
    {"external-id",  KYODBC_FIELD_EXTERNAL_ID,  ValueType::kText},
    {"server-id",    KYODBC_FIELD_SERVER_ID,    ValueType::kText},
    {"slida-id",     KYODBC_FIELD_SLIDA_ID,     ValueType::kText},
    {"social-id",    KYODBC_FIELD_SOCIAL_ID,    ValueType::kText},
    {"display-id",   KYODBC_FIELD_DISPLAY_ID,   ValueType::kText},
    {"type",         KYODBC_FIELD_TYPE,         ValueType::kText},
    {"region",       KYODBC_FIELD_REGION,       ValueType::kText},
    {"birthday",     KYODBC_FIELD_BIRTHDAY,     ValueType::kDate},
    {"date",         KYODBC_FIELD_DATE,         ValueType::kDate},
    {"time",         KYODBC_FIELD_TIME,         ValueType::kTime},
    {"last-display", KYODBC_FIELD_LAST_DISPLAY, ValueType::kTime},
};

bool Knows(FieldIds known, int id) { return std::find(known.begin(), known.end(), id) != known.end(); }

bool SameWord(std::string_view left, std::string_view right) {
  return std::equal(left.begin(), left.end(), right.begin(), right.end(),
                    [](unsigned char a, unsigned char b) { return std::tolower(a) == std::tolower(b); });
}

}  // namespace

const FieldName& FindField(std::string_view word, FieldIds known) {
  for (const FieldName& name : kNames) {
    if (SameWord(name.word, word) && Knows(known, name.id)) return name;
  }
  throw WordsError(fmt::format("there is no field '{}' here; there are: {}", word, FieldNames(known)));
}

std::string FieldNames(FieldIds known) {
  std::set<std::string_view> words;
  for (const FieldName& name : kNames) {
    if (Knows(known, name.id)) words.insert(name.word);
  }
  return fmt::format("{}", fmt::join(words, ", "));
}
