-- A practice database of version 4.0 for MariaDB.
--
-- Every table is reached under two names. The short name (TPatient) is the table; the full name
-- (TPatientRaw) is a view over it that takes inserts, updates and deletes. Table names are case-sensitive on
-- most servers.
--
-- Keys are assigned here when an insert leaves them out. No foreign key is declared: a deleted patient's
-- images stay, and 0 in a key column means "none". Natural keys are not unique either; a caller that finds
-- two rows for one is told so. Texts compare and sort by their bytes, as on every other database.
--
-- Applying this file to a practice that has all this already changes nothing. Paragraphs are set apart by
-- empty lines; each but this first one is exactly one statement, so a program can run them one by one.

-- Doctors. The natural key is the server identifier, then the name.
CREATE TABLE IF NOT EXISTS TDoctor (
  tDrCulIntDrIDPk INT NOT NULL AUTO_INCREMENT PRIMARY KEY,
  tDrSSrvID       VARCHAR(255),
  tDrSName        VARCHAR(255),
  tDrFAct         SMALLINT,
  tDrSAdd         MEDIUMTEXT
) ENGINE=InnoDB CHARACTER SET utf8mb4 COLLATE utf8mb4_nopad_bin;

CREATE INDEX IF NOT EXISTS TDoctor_SSrvID ON TDoctor (tDrSSrvID);

CREATE INDEX IF NOT EXISTS TDoctor_SName ON TDoctor (tDrSName);

-- Workstations, found by name.
CREATE TABLE IF NOT EXISTS TStation (
  tStatCulIntStatIDPk INT NOT NULL AUTO_INCREMENT PRIMARY KEY,
  tStatSName          VARCHAR(255),
  tStatSAdd           MEDIUMTEXT
) ENGINE=InnoDB CHARACTER SET utf8mb4 COLLATE utf8mb4_nopad_bin;

CREATE INDEX IF NOT EXISTS TStation_SName ON TStation (tStatSName);

-- X-ray units with the serial numbers of their components, found by name.
CREATE TABLE IF NOT EXISTS TUnit (
  tUnitCulIntUnitIDPk INT NOT NULL AUTO_INCREMENT PRIMARY KEY,
  tUnitSType          VARCHAR(255),
  tUnitSName          VARCHAR(255),
  tUnitDAccept        DATE,
  tUnitSCtrlUnitSNo   VARCHAR(255),
  tUnitSSensSNo       VARCHAR(255),
  tUnitSGenSNo        VARCHAR(255),
  tUnitSTubeSNo       VARCHAR(255),
  tUnitSCtrlElemSNo   VARCHAR(255),
  tUnitSConeSNo       VARCHAR(255),
  tUnitSTestBodySNo   VARCHAR(255),
  tUnitSAdd           MEDIUMTEXT
) ENGINE=InnoDB CHARACTER SET utf8mb4 COLLATE utf8mb4_nopad_bin;

CREATE INDEX IF NOT EXISTS TUnit_SName ON TUnit (tUnitSName);

-- Patients, each with a doctor. Found by Slida id, then server id, then name, first name and birthday.
CREATE TABLE IF NOT EXISTS TPatient (
  tPatCulIntPatIDPk INT NOT NULL AUTO_INCREMENT PRIMARY KEY,
  tPatCulIntDrIDFk  INT,
  tPatSExtPatID     VARCHAR(255),
  tPatSSrvID        VARCHAR(255),
  tPatSSlidaID      VARCHAR(255),
  tPatSSocID        VARCHAR(255),
  tPatSName         VARCHAR(255),
  tPatSFirstname    VARCHAR(255),
  tPatDBirthday     DATE,
  tPatSSex          VARCHAR(255),
  tPatDEntry        DATE,
  tPatTsLastDisp    DATETIME(6),
  tPatSIDDisp       VARCHAR(255),
  tPatFSelect       SMALLINT,
  tPatSResponsible  VARCHAR(255),
  tPatSAdd          MEDIUMTEXT
) ENGINE=InnoDB CHARACTER SET utf8mb4 COLLATE utf8mb4_nopad_bin;

CREATE INDEX IF NOT EXISTS TPatient_CulIntDrIDFk ON TPatient (tPatCulIntDrIDFk);

CREATE INDEX IF NOT EXISTS TPatient_SSlidaID ON TPatient (tPatSSlidaID);

CREATE INDEX IF NOT EXISTS TPatient_SSrvID ON TPatient (tPatSSrvID);

CREATE INDEX IF NOT EXISTS TPatient_SName_SFirstname_DBirthday ON TPatient (tPatSName, tPatSFirstname, tPatDBirthday);

-- Images: who, on which unit, under which doctor, and where the picture, preview and archive files lie.
CREATE TABLE IF NOT EXISTS TImage (
  tImgCulIntImgIDPk   INT NOT NULL AUTO_INCREMENT PRIMARY KEY,
  tImgCulIntPatIDFk   INT,
  tImgCulIntUnitIDFk  INT,
  tImgCulIntDrIDFk    INT,
  tImgSType           VARCHAR(255),
  tImgSRegio          VARCHAR(255),
  tImgSName           VARCHAR(255),
  tImgTs              DATETIME(6),
  tImgSPreg           VARCHAR(255),
  tImgSOrdType        VARCHAR(255),
  tImgSOrdRegio       VARCHAR(255),
  tImgSOrdReason      VARCHAR(255),
  tImgSLoc            VARCHAR(255),
  tImgSFile           VARCHAR(255),
  tImgSPvwLoc         VARCHAR(255),
  tImgSPvwFile        VARCHAR(255),
  tImgSArcLoc         VARCHAR(255),
  tImgSArcFile        VARCHAR(255),
  tImgSArcType        VARCHAR(255),
  tImgSArcVol         VARCHAR(255),
  tImgDArcOut         DATE,
  tImgDArcIn          DATE,
  tImgCulIntMakIDLast INT,
  tImgSResponsible    VARCHAR(255),
  tImgIntRefImgID     INT,
  tImgSAdd            MEDIUMTEXT
) ENGINE=InnoDB CHARACTER SET utf8mb4 COLLATE utf8mb4_nopad_bin;

CREATE INDEX IF NOT EXISTS TImage_CulIntPatIDFk_Ts ON TImage (tImgCulIntPatIDFk, tImgTs);

CREATE INDEX IF NOT EXISTS TImage_CulIntUnitIDFk ON TImage (tImgCulIntUnitIDFk);

CREATE INDEX IF NOT EXISTS TImage_CulIntDrIDFk ON TImage (tImgCulIntDrIDFk);

CREATE INDEX IF NOT EXISTS TImage_SName ON TImage (tImgSName);

CREATE INDEX IF NOT EXISTS TImage_Ts ON TImage (tImgTs);

-- Makros of an image, numbered within the image.
CREATE TABLE IF NOT EXISTS TMakro (
  tMakCulIntMakIDPk INT NOT NULL AUTO_INCREMENT PRIMARY KEY,
  tMakCulIntImgIDFk INT,
  tMakSName         VARCHAR(255),
  tMakTsLast        DATETIME(6),
  tMakSLoc          VARCHAR(255),
  tMakSFile         VARCHAR(255),
  tMakUwNo          INT,
  tMakSAdd          MEDIUMTEXT,
  tMakSRegio        VARCHAR(255),
  tMakTsCreate      DATETIME(6)
) ENGINE=InnoDB CHARACTER SET utf8mb4 COLLATE utf8mb4_nopad_bin;

CREATE INDEX IF NOT EXISTS TMakro_CulIntImgIDFk_UwNo ON TMakro (tMakCulIntImgIDFk, tMakUwNo);

CREATE INDEX IF NOT EXISTS TMakro_SName ON TMakro (tMakSName);

-- Groups of images of one patient.
CREATE TABLE IF NOT EXISTS TGroup (
  tGrpCulIntGrpIDPk INT NOT NULL AUTO_INCREMENT PRIMARY KEY,
  tGrpCulIntPatIDFk INT,
  tGrpSName         VARCHAR(255),
  tGrpTs            DATETIME(6),
  tGrpSLoc          VARCHAR(255),
  tGrpSFile         VARCHAR(255),
  tGrpUwMakNo       INT,
  tGrpSPvwLoc       VARCHAR(255),
  tGrpSPvwFile      VARCHAR(255),
  tGrpTsLast        DATETIME(6),
  tGrpSResponsible  VARCHAR(255),
  tGrpSAdd          MEDIUMTEXT
) ENGINE=InnoDB CHARACTER SET utf8mb4 COLLATE utf8mb4_nopad_bin;

CREATE INDEX IF NOT EXISTS TGroup_CulIntPatIDFk_Ts ON TGroup (tGrpCulIntPatIDFk, tGrpTs);

CREATE INDEX IF NOT EXISTS TGroup_SName ON TGroup (tGrpSName);

-- Diagnoses of an image.
CREATE TABLE IF NOT EXISTS TDiagnosis (
  tDiagCulIntDiagIDPk INT NOT NULL AUTO_INCREMENT PRIMARY KEY,
  tDiagCulIntImgIDFk  INT,
  tDiagCulIntDrIDFk   INT,
  tDiagSRegio         VARCHAR(255),
  tDiagTs             DATETIME(6),
  tDiagSCode          VARCHAR(255),
  tDiagSText          MEDIUMTEXT,
  tDiagSResponsible   VARCHAR(255),
  tDiagIntMakID       INT,
  tDiagSAdd           MEDIUMTEXT
) ENGINE=InnoDB CHARACTER SET utf8mb4 COLLATE utf8mb4_nopad_bin;

CREATE INDEX IF NOT EXISTS TDiagnosis_CulIntImgIDFk ON TDiagnosis (tDiagCulIntImgIDFk);

CREATE INDEX IF NOT EXISTS TDiagnosis_CulIntDrIDFk ON TDiagnosis (tDiagCulIntDrIDFk);

-- Settings: one value for a doctor, a station and a key.
CREATE TABLE IF NOT EXISTS TConfig (
  tCfgCulIntCfgIDPk  INT NOT NULL AUTO_INCREMENT PRIMARY KEY,
  tCfgCulIntDrIDFk   INT,
  tCfgCulIntStatIDFk INT,
  tCfgSKey           VARCHAR(255),
  tCfgSSet           VARCHAR(255),
  tCfgSAdd           MEDIUMTEXT,
  tCfgSPerson        VARCHAR(255)
) ENGINE=InnoDB CHARACTER SET utf8mb4 COLLATE utf8mb4_nopad_bin;

CREATE INDEX IF NOT EXISTS TConfig_CulIntDrIDFk_CulIntStatIDFk_SKey ON TConfig (tCfgCulIntDrIDFk, tCfgCulIntStatIDFk, tCfgSKey);

CREATE INDEX IF NOT EXISTS TConfig_CulIntStatIDFk ON TConfig (tCfgCulIntStatIDFk);

-- Constancy tests of a unit with their results and files.
CREATE TABLE IF NOT EXISTS TTest (
  tTstCulIntTstIDPk  INT NOT NULL AUTO_INCREMENT PRIMARY KEY,
  tTstCulIntUnitIDFk INT,
  tTstSPerson        VARCHAR(255),
  tTstSType          VARCHAR(255),
  tTstSRegio         VARCHAR(255),
  tTstSName          VARCHAR(255),
  tTstTs             DATETIME(6),
  tTstSResult        MEDIUMTEXT,
  tTstSLoc           VARCHAR(255),
  tTstSFile          VARCHAR(255),
  tTstSArcLoc        VARCHAR(255),
  tTstSArcFile       VARCHAR(255),
  tTstSArcVol        VARCHAR(255),
  tTstSArcType       VARCHAR(255),
  tTstDArcOut        DATE,
  tTstDArcIn         DATE,
  tTstSAdd           MEDIUMTEXT
) ENGINE=InnoDB CHARACTER SET utf8mb4 COLLATE utf8mb4_nopad_bin;

CREATE INDEX IF NOT EXISTS TTest_CulIntUnitIDFk_Ts ON TTest (tTstCulIntUnitIDFk, tTstTs);

CREATE INDEX IF NOT EXISTS TTest_SName ON TTest (tTstSName);

-- The full names.
CREATE OR REPLACE VIEW TDoctorRaw AS SELECT * FROM TDoctor;

CREATE OR REPLACE VIEW TStationRaw AS SELECT * FROM TStation;

CREATE OR REPLACE VIEW TUnitRaw AS SELECT * FROM TUnit;

CREATE OR REPLACE VIEW TPatientRaw AS SELECT * FROM TPatient;

CREATE OR REPLACE VIEW TImageRaw AS SELECT * FROM TImage;

CREATE OR REPLACE VIEW TMakroRaw AS SELECT * FROM TMakro;

CREATE OR REPLACE VIEW TGroupRaw AS SELECT * FROM TGroup;

CREATE OR REPLACE VIEW TDiagnosisRaw AS SELECT * FROM TDiagnosis;

CREATE OR REPLACE VIEW TConfigRaw AS SELECT * FROM TConfig;

CREATE OR REPLACE VIEW TTestRaw AS SELECT * FROM TTest;

-- The default rows, which every reference may point to. They are protected against change.
INSERT IGNORE INTO TDoctor (tDrCulIntDrIDPk, tDrSName, tDrFAct) VALUES (1, '-', 1);

INSERT IGNORE INTO TStation (tStatCulIntStatIDPk, tStatSName) VALUES (1, '-');

INSERT IGNORE INTO TUnit (tUnitCulIntUnitIDPk, tUnitSType, tUnitSName) VALUES (1, '-', '-');

-- The settings read at every connection: for the default doctor and the default station.
INSERT INTO TConfig (tCfgCulIntDrIDFk, tCfgCulIntStatIDFk, tCfgSKey, tCfgSSet)
  SELECT 1, 1, 'DBVersion', '4.0' FROM DUAL WHERE NOT EXISTS (
    SELECT 1 FROM TConfig
    WHERE tCfgCulIntDrIDFk = 1 AND tCfgCulIntStatIDFk = 1 AND tCfgSKey = 'DBVersion');

INSERT INTO TConfig (tCfgCulIntDrIDFk, tCfgCulIntStatIDFk, tCfgSKey, tCfgSSet)
  SELECT 1, 1, 'DBMS', 'MariaDB' FROM DUAL WHERE NOT EXISTS (
    SELECT 1 FROM TConfig
    WHERE tCfgCulIntDrIDFk = 1 AND tCfgCulIntStatIDFk = 1 AND tCfgSKey = 'DBMS');

-- Called to see whether the connection lives.
CREATE OR REPLACE PROCEDURE spky_ping() SELECT 1 AS alive;
