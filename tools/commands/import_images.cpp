// Images of CSV files. An image of the practice keeps its Id in the file as its file name and is found again
// by it.
#include <fmt/format.h>

#include <optional>
#include <utility>

#include "tools/commands/import_rows.h"
#include "tools/record_text.h"
#include "tools/time_text.h"
#include "tools/tool_error.h"

namespace {

constexpr LONG kDefaultUnit = 1;               // the row "-": the files do not tell which unit took an image
constexpr const char* kLibraryLocation = "9";  // where the library puts an added image
constexpr const char* kImportLocation = "1";   // where images go that share their second with another one

struct Image {
  tagTIMAGE record{};
  Stored stored;
};

tagTPATIENT PatientOf(const CsvTable& row) {
  tagTPATIENT patient{};
  SetIdentifier(patient.szSrvID, row, "PATIENT");
  const WORD code = DB_GetTPat(&patient);
  if (code == KYODBC_PATIENT_NOT_FOUND || code == KYODBC_NOT_UNIQUE) {
    throw RowRejected(fmt::format("{}: {}", row.Field("PATIENT"), MeaningOf(code)));
  }
  Check(code, "looking for the patient");
  return patient;
}

Image Read(const CsvTable& row) {
  Image image;
  const std::string date = row.Field("DATE");
  const std::optional<TIMESTAMP_STRUCT> time = ReadTime(date);
  if (!time) throw RowRejected(fmt::format("DATE '{}' is no date", date));
  image.record.ts = *time;
  SetIdentifier(image.record.szFile, row, "Id");
  image.stored.texts_cut += SetText(image.record.szRegio, row.Field("BODYSITE_DESCRIPTION")) ? 0 : 1;
  image.stored.texts_cut += SetText(image.record.szType, row.Field("MODALITY_CODE")) ? 0 : 1;
  const tagTPATIENT patient = PatientOf(row);
  image.record.lPatID = patient.lPatID;
  image.record.lDrID = patient.lDrID;
  image.record.lUnitID = kDefaultUnit;
  return image;
}

// The key of the patient's image with that file; 0 when there is none.
LONG FindByFile(const tagTIMAGE& wanted) {
  const LONG patient = wanted.lPatID;
  const LONG fields = KYODBC_PACK(KYODBC_FIELD_PATIENT_KEY, 0, 0, 0);
  Check(DB_SetTImgFilter(fields, KYODBC_EQUAL, &patient, nullptr, nullptr, nullptr), "filtering images");
  Check(DB_OpenTImg(), "opening the images");
  LONG found = 0;
  tagTIMAGE image{};
  for (LONG position = 1; found == 0; ++position) {
    const WORD code = DB_GetTImgByPos(position, &image);
    if (code == KYODBC_NO_ROW) break;
    Check(code, "looking for the image");
    if (FieldText(image.szFile) == FieldText(wanted.szFile)) found = image.lImgID;
  }
  Check(DB_CloseTImg(), "closing the images");
  return found;
}

// Whether another image of the patient than the one with key `own` has this second where added images go.
// Adding an image there would replace that one.
bool IsTaken(const tagTIMAGE& image, LONG own) {
  const TIMESTAMP_STRUCT time = image.ts;
  tagTIMAGE other{};
  other.lPatID = image.lPatID;
  other.ts = time;
  SetText(other.szLoc, kLibraryLocation);
  const WORD code = DB_GetTImg(&other);
  if (code == KYODBC_IMAGE_NOT_FOUND) return false;
  if (code == KYODBC_NOT_UNIQUE) return true;
  Check(code, "looking for an image of the same second");
  return other.lImgID != own;
}

TIMESTAMP_STRUCT NextSecond(TIMESTAMP_STRUCT time) {
  if (++time.second == 60) {
    time.second = 0;
    if (++time.minute == 60) {
      time.minute = 0;
      time.hour = static_cast<SQLUSMALLINT>((time.hour + 1) % 24);
    }
  }
  return time;
}

// The image is added at a free second and then moved to its own second and out of the way of others.
void AddBesideAnother(tagTIMAGE image) {
  const TIMESTAMP_STRUCT time = image.ts;
  do {
    image.ts = NextSecond(image.ts);
  } while (IsTaken(image, 0));
  Check(DB_AddNewTImg(&image), "adding an image");
  image.ts = time;
  SetText(image.szLoc, kImportLocation);
  Check(DB_EditSelTImg(&image, KYODBC_MASK_IMG_TIME | KYODBC_MASK_IMG_LOCATION), "moving an image");
}

void Update(tagTIMAGE image, bool taken) {
  DWORD mask = KYODBC_MASK_IMG_TYPE | KYODBC_MASK_IMG_REGION | KYODBC_MASK_IMG_TIME;
  if (taken) {
    SetText(image.szLoc, kImportLocation);
    mask |= KYODBC_MASK_IMG_LOCATION;
  }
  Check(DB_EditSelTImg(&image, mask), "updating an image");
}

}  // namespace

Stored StoreImage(const CsvTable& row) {
  Image image = Read(row);
  image.record.lImgID = FindByFile(image.record);
  const bool taken = IsTaken(image.record, image.record.lImgID);
  image.stored.added = image.record.lImgID == 0;
  if (!image.stored.added) {
    Update(image.record, taken);
  } else if (taken) {
    AddBesideAnother(image.record);
  } else {
    Check(DB_AddNewTImg(&image.record), "adding an image");
  }
  return image.stored;
}
