/* A patient is added and edited: only the fields that the mask selects are written. The patient is deleted
 * again. Usage: edit_mask SOURCE [USER PASSWORD] */
#include <KyODBC.h>
#include <KyODBCDiag.h>
#include <stdio.h>
#include <stdlib.h>

/* Ends the program when a call failed, and tells why. */
static void Check(WORD code) {
  tagDBERRORDETAIL detail = {0};
  if (code == KYODBC_OK) return;
  DB_GetLastErrorDetail(&detail, sizeof detail);
  fprintf(stderr, "%s: code %d: %s %s\n", detail.szFunction, code, detail.szState, detail.szMessage);
  DB_CloseDatabase();
  exit(1);
}

static void Connect(int argc, char** argv) {
  tagDBCONNECT source = {0};
  snprintf(source.szDSN, sizeof source.szDSN, "%s", argc > 1 ? argv[1] : "practice");
  snprintf(source.szUID, sizeof source.szUID, "%s", argc > 3 ? argv[2] : "");
  snprintf(source.szPWD, sizeof source.szPWD, "%s", argc > 3 ? argv[3] : "");
  Check(DB_InitDatabase(&source));
}

/* The record comes back with its key and with what the library filled in. */
static tagTPATIENT Add(void) {
  tagTPATIENT patient = {0};
  snprintf(patient.szName, sizeof patient.szName, "O'Hara-Müller");
  snprintf(patient.szFirstname, sizeof patient.szFirstname, "Zoë");
  snprintf(patient.szSlidaID, sizeof patient.szSlidaID, "EX-0001");
  patient.lDrID = 1;
  patient.dBirthday.year = 1987;
  patient.dBirthday.month = 6;
  patient.dBirthday.day = 5;
  Check(DB_AddNewTPat(&patient));
  printf("added: %s %s, identifier %s\n", patient.szFirstname, patient.szName, patient.szIDDisp);
  return patient;
}

int main(int argc, char** argv) {
  tagTPATIENT patient, change = {0};
  Connect(argc, argv);
  patient = Add();

  change.lPatID = patient.lPatID;
  snprintf(change.szFirstname, sizeof change.szFirstname, "Zoë Anne");
  snprintf(change.szName, sizeof change.szName, "not in the mask");
  Check(DB_EditSelTPat(&change, KYODBC_MASK_PAT_FIRSTNAME));

  Check(DB_GetTPat(&patient));
  printf("edited: %s %s\n", patient.szFirstname, patient.szName);
  Check(DB_DeleteTPat(&patient));
  printf("deleted: %d\n", DB_GetTPat(&patient)); /* 21: there is no such patient */
  return DB_CloseDatabase();
}
