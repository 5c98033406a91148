// Images with their makros and diagnoses, and groups of images.
#include <fmt/format.h>

#include <algorithm>

#include "tools/record_text.h"
#include "tools/sample/calendar.h"
#include "tools/sample/draw.h"
#include "tools/sample/practice.h"

namespace sample {
namespace {

constexpr int kImagesPerPatient = 3;  // on average

// Two of every four images have makros: the first one two, the third one one.
constexpr int kMakroImages = 4;
constexpr int kMakrosPerMakroImages = 3;
struct MakroPlace {
  int image;
  WORD ordinal;
};
constexpr MakroPlace kMakroPlaces[kMakrosPerMakroImages] = {
    {0, 1},
    {0, 2},
    {2, 1},
};

constexpr int kImagesPerDiagnosis = 2;
constexpr int kImagesPerGroup = 12;

struct View {
  const char* type;
  const char* region;
  const char* name;
};
constexpr View kViews[] = {
    {"PAN",  "Jaws",         "Panorama"             },
    {"INT",  "11-14",        "Upper right"          },
    {"INT",  "31-35",        "Lower left"           },
    {"BW",   "Molars right", "Bitewing"             },
    {"CEPH", "Skull",        "Lateral ceph"         },
    {"VOL",  "Lower jaw",    "Volume 8×8 cm"       },
    {"TMJ",  "Joints",       "Joints, open & closed"},
    {"HAND", "Left hand",    "Age of growth"        },
};

struct Finding {
  const char* code;
  const char* text;
};
constexpr Finding kFindings[] = {
    {"K02.1", "Caries of dentine, distal"                              },
    {"K04.5", "Chronic apical periodontitis"                           },
    {"K01.1", "Impacted tooth; patient says \"no pain\""               },
    {"K08.1", "Tooth missing after extraction"                         },
    {"Z01.2", "Nothing found. Next check in 12 months"                 },
    {"K05.3", "Bone loss of 30% in the lower jaw, see Müller\\2019\\4"},
};

TIMESTAMP_STRUCT DateOnly(TIMESTAMP_STRUCT time) {
  time.hour = time.minute = time.second = 0;
  return time;
}

}  // namespace

int Practice::Images() const { return m_patients * kImagesPerPatient; }

LONG Practice::PatientOfImage(int row) const {
  Draw draw(m_seed, Kind::kImage, row);
  return 1 + draw.Below(m_patients);
}

// Every image has a stretch of the opening hours to itself, so that no two are taken in the same second.
TIMESTAMP_STRUCT Practice::TimeOfImage(int row) const {
  Draw draw(m_seed, Kind::kImage, row);
  draw.Next();
  const std::int64_t stretch = kSecondsOpen / Images();
  const int within = draw.Below(static_cast<int>(std::min<std::int64_t>(stretch, 36'000)));
  return WhenOpenFor(row * stretch + within);
}

tagTIMAGE Practice::Image(int row) const {
  Draw draw(m_seed, Kind::kImage, -1 - row);
  const View& view = draw.Of(kViews);
  const LONG patient = PatientOfImage(row);
  tagTIMAGE image{};
  image.lPatID = patient;
  image.lUnitID = 1 + draw.Below(Units());
  image.lDrID = DoctorOfPatient(patient - 1);
  image.ts = TimeOfImage(row);
  SetText(image.szType, view.type);
  SetText(image.szRegio, view.region);
  SetText(image.szName, view.name);
  SetText(image.szOrdType, view.type);
  SetText(image.szOrdRegio, view.region);
  SetText(image.szOrdReason, draw.OneIn(4) ? "Pain" : "Check");
  SetText(image.szFile, fmt::format("p{:07}/i{:07}.img", patient, row + 1));
  SetText(image.szPvwFile, fmt::format("p{:07}/i{:07}.pvw", patient, row + 1));
  if (draw.OneIn(5)) {
    SetText(image.szArcType, "DVD");
    SetText(image.szArcLoc, "1");
    SetText(image.szArcFile, FieldText(image.szFile));
    SetText(image.szArcVol, fmt::format("VOL{:04}", row / 500 + 1));
    image.dArcIn = DateOnly(image.ts);
  }
  return image;
}

int Practice::Makros() const { return Images() / kMakroImages * kMakrosPerMakroImages; }

tagTMAKRO Practice::Makro(int row) const {
  constexpr const char* kNames[] = {"Sharpen", "Measure length", "Nerve canal", "Contrast +20%", "Implant"};
  Draw draw(m_seed, Kind::kMakro, row);
  const MakroPlace& place = kMakroPlaces[row % kMakrosPerMakroImages];
  const int image = row / kMakrosPerMakroImages * kMakroImages + place.image;
  tagTMAKRO makro{};
  makro.lImgID = 1 + image;
  makro.wNo = place.ordinal;
  makro.tsLast = TimeOfImage(image);
  SetText(makro.szName, draw.Of(kNames));
  SetText(makro.szFile, fmt::format("i{:07}.m{}", image + 1, place.ordinal));
  SetText(makro.szLoc, "9");
  return makro;
}

int Practice::Groups() const { return Images() / kImagesPerGroup; }

tagTGROUP Practice::Group(int row) const {
  constexpr const char* kNames[] = {"Full status", "Before treatment", "After treatment", "Implant 46"};
  Draw draw(m_seed, Kind::kGroup, row);
  const int image = row * kImagesPerGroup;
  tagTGROUP group{};
  group.lPatID = PatientOfImage(image);
  group.ts = TimeOfImage(image);
  SetText(group.szName, draw.Of(kNames));
  SetText(group.szFile, fmt::format("g{:07}.grp", row + 1));
  SetText(group.szPvwFile, fmt::format("g{:07}.pvw", row + 1));
  group.wMakNo = static_cast<WORD>(draw.Below(9));
  return group;
}

int Practice::Diagnoses() const { return Images() / kImagesPerDiagnosis; }

tagTDIAGNOSIS Practice::Diagnosis(int row) const {
  Draw draw(m_seed, Kind::kDiagnosis, row);
  const int image = row * kImagesPerDiagnosis;
  const Finding& finding = draw.Of(kFindings);
  tagTDIAGNOSIS diagnosis{};
  diagnosis.lImgID = 1 + image;
  diagnosis.lDrID = 1 + draw.Below(Doctors());
  SetText(diagnosis.szRegio, draw.Of(kViews).region);
  diagnosis.ts = TimeOfImage(image);
  SetText(diagnosis.szCode, finding.code);
  SetText(diagnosis.szText, finding.text);
  return diagnosis;
}

}  // namespace sample
