// The call interface of KyODBC for C#: records, named numbers and functions. KyODBC.h documents them.
//
// Written by generate.py from the C headers; not to be edited.
//
// Texts of records are the bytes of UTF-8 with a zero byte behind them; KyODBC.Text and KyODBC.Bytes convert. The
// values of a filter are pointers to an int, to a text or to a TIMESTAMP_STRUCT, or IntPtr.Zero. Arrays inside a
// new record are null, which counts as zeros.
using System;
using System.Runtime.InteropServices;
using System.Text;

[StructLayout(LayoutKind.Sequential, Pack = 1, Size = 16)]
public struct TIMESTAMP_STRUCT
{
    public short year;      // offset 0
    public ushort month;    // offset 2
    public ushort day;      // offset 4
    public ushort hour;     // offset 6
    public ushort minute;   // offset 8
    public ushort second;   // offset 10
    public uint fraction;   // offset 12, nanoseconds
}

[StructLayout(LayoutKind.Sequential, Pack = 1, Size = 363)]
public struct tagDBCONNECT
{
    [MarshalAs(UnmanagedType.ByValArray, SizeConst = 33)]
    public byte[] szDSN;    // offset 0, 33 bytes
    [MarshalAs(UnmanagedType.ByValArray, SizeConst = 33)]
    public byte[] szUID;    // offset 33, 33 bytes
    [MarshalAs(UnmanagedType.ByValArray, SizeConst = 33)]
    public byte[] szPWD;    // offset 66, 33 bytes
    [MarshalAs(UnmanagedType.ByValArray, SizeConst = 260)]
    public byte[] szOwner;    // offset 99, 260 bytes
    public int bExclusive;    // offset 359, 4 bytes
}

[StructLayout(LayoutKind.Sequential, Pack = 1, Size = 81)]
public struct tagDBINFO
{
    [MarshalAs(UnmanagedType.ByValArray, SizeConst = 33)]
    public byte[] szDSN;    // offset 0, 33 bytes
    [MarshalAs(UnmanagedType.ByValArray, SizeConst = 33)]
    public byte[] szDatabase;    // offset 33, 33 bytes
    [MarshalAs(UnmanagedType.ByValArray, SizeConst = 15)]
    public byte[] abReserved;    // offset 66, 15 bytes
}

[StructLayout(LayoutKind.Sequential, Pack = 1, Size = 166)]
public struct tagTCONFIG
{
    public int lCfgID;    // offset 0, 4 bytes
    public int lDrID;    // offset 4, 4 bytes
    public int lStatID;    // offset 8, 4 bytes
    [MarshalAs(UnmanagedType.ByValArray, SizeConst = 25)]
    public byte[] szKey;    // offset 12, 25 bytes
    [MarshalAs(UnmanagedType.ByValArray, SizeConst = 129)]
    public byte[] szSet;    // offset 37, 129 bytes
}

[StructLayout(LayoutKind.Sequential, Pack = 1, Size = 334)]
public struct tagTDIAGNOSIS
{
    public int lDiagID;    // offset 0, 4 bytes
    public int lImgID;    // offset 4, 4 bytes
    public int lDrID;    // offset 8, 4 bytes
    [MarshalAs(UnmanagedType.ByValArray, SizeConst = 17)]
    public byte[] szRegio;    // offset 12, 17 bytes
    public TIMESTAMP_STRUCT ts;    // offset 29, 16 bytes
    [MarshalAs(UnmanagedType.ByValArray, SizeConst = 33)]
    public byte[] szCode;    // offset 45, 33 bytes
    [MarshalAs(UnmanagedType.ByValArray, SizeConst = 256)]
    public byte[] szText;    // offset 78, 256 bytes
}

[StructLayout(LayoutKind.Sequential, Pack = 1, Size = 102)]
public struct tagTDOCTOR
{
    public int lDrID;    // offset 0, 4 bytes
    [MarshalAs(UnmanagedType.ByValArray, SizeConst = 33)]
    public byte[] szName;    // offset 4, 33 bytes
    [MarshalAs(UnmanagedType.ByValArray, SizeConst = 65)]
    public byte[] szSrvID;    // offset 37, 65 bytes
}

[StructLayout(LayoutKind.Sequential, Pack = 1, Size = 159)]
public struct tagTGROUP
{
    public int lGrpID;    // offset 0, 4 bytes
    public int lPatID;    // offset 4, 4 bytes
    [MarshalAs(UnmanagedType.ByValArray, SizeConst = 33)]
    public byte[] szName;    // offset 8, 33 bytes
    public TIMESTAMP_STRUCT ts;    // offset 41, 16 bytes
    [MarshalAs(UnmanagedType.ByValArray, SizeConst = 2)]
    public byte[] szLoc;    // offset 57, 2 bytes
    [MarshalAs(UnmanagedType.ByValArray, SizeConst = 48)]
    public byte[] szFile;    // offset 59, 48 bytes
    public ushort wMakNo;    // offset 107, 2 bytes
    [MarshalAs(UnmanagedType.ByValArray, SizeConst = 48)]
    public byte[] szPvwFile;    // offset 109, 48 bytes
    [MarshalAs(UnmanagedType.ByValArray, SizeConst = 2)]
    public byte[] szPvwLoc;    // offset 157, 2 bytes
}

[StructLayout(LayoutKind.Sequential, Pack = 1, Size = 378)]
public struct tagTIMAGE
{
    public int lImgID;    // offset 0, 4 bytes
    public int lPatID;    // offset 4, 4 bytes
    public int lUnitID;    // offset 8, 4 bytes
    public int lDrID;    // offset 12, 4 bytes
    [MarshalAs(UnmanagedType.ByValArray, SizeConst = 5)]
    public byte[] szType;    // offset 16, 5 bytes
    [MarshalAs(UnmanagedType.ByValArray, SizeConst = 17)]
    public byte[] szRegio;    // offset 21, 17 bytes
    [MarshalAs(UnmanagedType.ByValArray, SizeConst = 33)]
    public byte[] szName;    // offset 38, 33 bytes
    public TIMESTAMP_STRUCT ts;    // offset 71, 16 bytes
    [MarshalAs(UnmanagedType.ByValArray, SizeConst = 2)]
    public byte[] szPreg;    // offset 87, 2 bytes
    [MarshalAs(UnmanagedType.ByValArray, SizeConst = 5)]
    public byte[] szOrdType;    // offset 89, 5 bytes
    [MarshalAs(UnmanagedType.ByValArray, SizeConst = 17)]
    public byte[] szOrdRegio;    // offset 94, 17 bytes
    [MarshalAs(UnmanagedType.ByValArray, SizeConst = 65)]
    public byte[] szOrdReason;    // offset 111, 65 bytes
    [MarshalAs(UnmanagedType.ByValArray, SizeConst = 5)]
    public byte[] szArcType;    // offset 176, 5 bytes
    [MarshalAs(UnmanagedType.ByValArray, SizeConst = 2)]
    public byte[] szArcLoc;    // offset 181, 2 bytes
    [MarshalAs(UnmanagedType.ByValArray, SizeConst = 48)]
    public byte[] szArcFile;    // offset 183, 48 bytes
    [MarshalAs(UnmanagedType.ByValArray, SizeConst = 11)]
    public byte[] szArcVol;    // offset 231, 11 bytes
    public TIMESTAMP_STRUCT dArcOut;    // offset 242, 16 bytes
    public TIMESTAMP_STRUCT dArcIn;    // offset 258, 16 bytes
    [MarshalAs(UnmanagedType.ByValArray, SizeConst = 2)]
    public byte[] szPvwLoc;    // offset 274, 2 bytes
    [MarshalAs(UnmanagedType.ByValArray, SizeConst = 48)]
    public byte[] szPvwFile;    // offset 276, 48 bytes
    [MarshalAs(UnmanagedType.ByValArray, SizeConst = 2)]
    public byte[] szLoc;    // offset 324, 2 bytes
    [MarshalAs(UnmanagedType.ByValArray, SizeConst = 48)]
    public byte[] szFile;    // offset 326, 48 bytes
    public int lMakIDLast;    // offset 374, 4 bytes
}

[StructLayout(LayoutKind.Sequential, Pack = 1, Size = 109)]
public struct tagTMAKRO
{
    public int lMakID;    // offset 0, 4 bytes
    public int lImgID;    // offset 4, 4 bytes
    [MarshalAs(UnmanagedType.ByValArray, SizeConst = 33)]
    public byte[] szName;    // offset 8, 33 bytes
    public TIMESTAMP_STRUCT tsLast;    // offset 41, 16 bytes
    [MarshalAs(UnmanagedType.ByValArray, SizeConst = 48)]
    public byte[] szFile;    // offset 57, 48 bytes
    [MarshalAs(UnmanagedType.ByValArray, SizeConst = 2)]
    public byte[] szLoc;    // offset 105, 2 bytes
    public ushort wNo;    // offset 107, 2 bytes
}

[StructLayout(LayoutKind.Sequential, Pack = 1, Size = 297)]
public struct tagTPATIENT
{
    public int lPatID;    // offset 0, 4 bytes
    public int lDrID;    // offset 4, 4 bytes
    [MarshalAs(UnmanagedType.ByValArray, SizeConst = 33)]
    public byte[] szExtPatID;    // offset 8, 33 bytes
    [MarshalAs(UnmanagedType.ByValArray, SizeConst = 65)]
    public byte[] szSrvID;    // offset 41, 65 bytes
    [MarshalAs(UnmanagedType.ByValArray, SizeConst = 21)]
    public byte[] szSlidaID;    // offset 106, 21 bytes
    [MarshalAs(UnmanagedType.ByValArray, SizeConst = 17)]
    public byte[] szSocID;    // offset 127, 17 bytes
    [MarshalAs(UnmanagedType.ByValArray, SizeConst = 33)]
    public byte[] szName;    // offset 144, 33 bytes
    [MarshalAs(UnmanagedType.ByValArray, SizeConst = 33)]
    public byte[] szFirstname;    // offset 177, 33 bytes
    public TIMESTAMP_STRUCT dBirthday;    // offset 210, 16 bytes
    [MarshalAs(UnmanagedType.ByValArray, SizeConst = 2)]
    public byte[] szSex;    // offset 226, 2 bytes
    public int lSelect;    // offset 228, 4 bytes
    public TIMESTAMP_STRUCT dEntry;    // offset 232, 16 bytes
    [MarshalAs(UnmanagedType.ByValArray, SizeConst = 33)]
    public byte[] szIDDisp;    // offset 248, 33 bytes
    public TIMESTAMP_STRUCT tsLastDisp;    // offset 281, 16 bytes
}

[StructLayout(LayoutKind.Sequential, Pack = 1, Size = 330)]
public struct tagTPATIENTEX
{
    public int lPatID;    // offset 0, 4 bytes
    public int lDrID;    // offset 4, 4 bytes
    [MarshalAs(UnmanagedType.ByValArray, SizeConst = 33)]
    public byte[] szExtPatID;    // offset 8, 33 bytes
    [MarshalAs(UnmanagedType.ByValArray, SizeConst = 65)]
    public byte[] szSrvID;    // offset 41, 65 bytes
    [MarshalAs(UnmanagedType.ByValArray, SizeConst = 21)]
    public byte[] szSlidaID;    // offset 106, 21 bytes
    [MarshalAs(UnmanagedType.ByValArray, SizeConst = 17)]
    public byte[] szSocID;    // offset 127, 17 bytes
    [MarshalAs(UnmanagedType.ByValArray, SizeConst = 33)]
    public byte[] szName;    // offset 144, 33 bytes
    [MarshalAs(UnmanagedType.ByValArray, SizeConst = 33)]
    public byte[] szFirstname;    // offset 177, 33 bytes
    public TIMESTAMP_STRUCT dBirthday;    // offset 210, 16 bytes
    [MarshalAs(UnmanagedType.ByValArray, SizeConst = 2)]
    public byte[] szSex;    // offset 226, 2 bytes
    public int lSelect;    // offset 228, 4 bytes
    public TIMESTAMP_STRUCT dEntry;    // offset 232, 16 bytes
    [MarshalAs(UnmanagedType.ByValArray, SizeConst = 33)]
    public byte[] szIDDisp;    // offset 248, 33 bytes
    public TIMESTAMP_STRUCT tsLastDisp;    // offset 281, 16 bytes
    [MarshalAs(UnmanagedType.ByValArray, SizeConst = 33)]
    public byte[] szDrName;    // offset 297, 33 bytes
}

[StructLayout(LayoutKind.Sequential, Pack = 1, Size = 21)]
public struct tagTSTATION
{
    public int lStatID;    // offset 0, 4 bytes
    [MarshalAs(UnmanagedType.ByValArray, SizeConst = 17)]
    public byte[] szName;    // offset 4, 17 bytes
}

[StructLayout(LayoutKind.Sequential, Pack = 1, Size = 4356)]
public struct tagTTEST
{
    public int lTstID;    // offset 0, 4 bytes
    public int lUnitID;    // offset 4, 4 bytes
    [MarshalAs(UnmanagedType.ByValArray, SizeConst = 33)]
    public byte[] szPerson;    // offset 8, 33 bytes
    [MarshalAs(UnmanagedType.ByValArray, SizeConst = 5)]
    public byte[] szType;    // offset 41, 5 bytes
    [MarshalAs(UnmanagedType.ByValArray, SizeConst = 17)]
    public byte[] szRegio;    // offset 46, 17 bytes
    [MarshalAs(UnmanagedType.ByValArray, SizeConst = 33)]
    public byte[] szName;    // offset 63, 33 bytes
    public TIMESTAMP_STRUCT ts;    // offset 96, 16 bytes
    [MarshalAs(UnmanagedType.ByValArray, SizeConst = 4096)]
    public byte[] szResult;    // offset 112, 4096 bytes
    [MarshalAs(UnmanagedType.ByValArray, SizeConst = 5)]
    public byte[] szArcType;    // offset 4208, 5 bytes
    [MarshalAs(UnmanagedType.ByValArray, SizeConst = 2)]
    public byte[] szArcLoc;    // offset 4213, 2 bytes
    [MarshalAs(UnmanagedType.ByValArray, SizeConst = 48)]
    public byte[] szArcFile;    // offset 4215, 48 bytes
    [MarshalAs(UnmanagedType.ByValArray, SizeConst = 11)]
    public byte[] szArcVol;    // offset 4263, 11 bytes
    public TIMESTAMP_STRUCT dArcOut;    // offset 4274, 16 bytes
    public TIMESTAMP_STRUCT dArcIn;    // offset 4290, 16 bytes
    [MarshalAs(UnmanagedType.ByValArray, SizeConst = 2)]
    public byte[] szLoc;    // offset 4306, 2 bytes
    [MarshalAs(UnmanagedType.ByValArray, SizeConst = 48)]
    public byte[] szFile;    // offset 4308, 48 bytes
}

[StructLayout(LayoutKind.Sequential, Pack = 1, Size = 123)]
public struct tagTUNIT
{
    public int lUnitID;    // offset 0, 4 bytes
    [MarshalAs(UnmanagedType.ByValArray, SizeConst = 3)]
    public byte[] szType;    // offset 4, 3 bytes
    [MarshalAs(UnmanagedType.ByValArray, SizeConst = 23)]
    public byte[] szName;    // offset 7, 23 bytes
    public TIMESTAMP_STRUCT dAccept;    // offset 30, 16 bytes
    [MarshalAs(UnmanagedType.ByValArray, SizeConst = 11)]
    public byte[] szCtrlUnitSNo;    // offset 46, 11 bytes
    [MarshalAs(UnmanagedType.ByValArray, SizeConst = 11)]
    public byte[] szSensSNo;    // offset 57, 11 bytes
    [MarshalAs(UnmanagedType.ByValArray, SizeConst = 11)]
    public byte[] szGenSNo;    // offset 68, 11 bytes
    [MarshalAs(UnmanagedType.ByValArray, SizeConst = 11)]
    public byte[] szTubeSNo;    // offset 79, 11 bytes
    [MarshalAs(UnmanagedType.ByValArray, SizeConst = 11)]
    public byte[] szCtrlElemSNo;    // offset 90, 11 bytes
    [MarshalAs(UnmanagedType.ByValArray, SizeConst = 11)]
    public byte[] szConeSNo;    // offset 101, 11 bytes
    [MarshalAs(UnmanagedType.ByValArray, SizeConst = 11)]
    public byte[] szTestBodySNo;    // offset 112, 11 bytes
}

[StructLayout(LayoutKind.Sequential, Pack = 1, Size = 114)]
public struct tagPATIENTCOMPACT
{
    [MarshalAs(UnmanagedType.ByValArray, SizeConst = 33)]
    public byte[] szName;    // offset 0, 33 bytes
    [MarshalAs(UnmanagedType.ByValArray, SizeConst = 33)]
    public byte[] szFirstname;    // offset 33, 33 bytes
    public ushort wYear;    // offset 66, 2 bytes
    public byte byMonth;    // offset 68, 1 bytes
    public byte byDay;    // offset 69, 1 bytes
    public ushort wDispYear;    // offset 70, 2 bytes
    public byte byDispMonth;    // offset 72, 1 bytes
    public byte byDispDay;    // offset 73, 1 bytes
    [MarshalAs(UnmanagedType.ByValArray, SizeConst = 13)]
    public byte[] szDrName;    // offset 74, 13 bytes
    public uint dwID;    // offset 87, 4 bytes
    [MarshalAs(UnmanagedType.ByValArray, SizeConst = 21)]
    public byte[] szIdent;    // offset 91, 21 bytes
    public byte bySex;    // offset 112, 1 bytes
    public byte byReserved;    // offset 113, 1 bytes
}

[StructLayout(LayoutKind.Sequential, Pack = 1, Size = 564)]
public struct tagDBERRORDETAIL
{
    public uint dwSize;    // offset 0, 4 bytes
    public ushort wCode;    // offset 4, 2 bytes
    [MarshalAs(UnmanagedType.ByValArray, SizeConst = 32)]
    public byte[] szFunction;    // offset 6, 32 bytes
    [MarshalAs(UnmanagedType.ByValArray, SizeConst = 6)]
    public byte[] szState;    // offset 38, 6 bytes
    public int lNative;    // offset 44, 4 bytes
    public int lRecords;    // offset 48, 4 bytes
    [MarshalAs(UnmanagedType.ByValArray, SizeConst = 512)]
    public byte[] szMessage;    // offset 52, 512 bytes
}

public static class KyODBC
{
    private const string Library = "libKyODBC.so.1";

    // The text in a field or buffer, up to its zero byte.
    public static string Text(byte[] bytes)
    {
        int end = Array.IndexOf(bytes, (byte)0);
        return Encoding.UTF8.GetString(bytes, 0, end < 0 ? bytes.Length : end);
    }

    // The text as the bytes of a field with `size` bytes, cut as the library cuts: never inside a character.
    public static byte[] Bytes(string text, int size)
    {
        byte[] field = new byte[size];
        byte[] all = Encoding.UTF8.GetBytes(text);
        int end = Math.Min(all.Length, size - 1);
        while (end < all.Length && end > 0 && (all[end] & 0xC0) == 0x80) --end;
        Array.Copy(all, field, end);
        return field;
    }

    public const int KYODBC_OK = 0;
    public const int KYODBC_BAD_ARGUMENT = 1;
    public const int KYODBC_NOT_OPENED = 3;
    public const int KYODBC_CLOSE_FAILED = 4;
    public const int KYODBC_COUNT_FAILED = 5;
    public const int KYODBC_WRITE_FAILED = 6;
    public const int KYODBC_DELETE_FAILED = 8;
    public const int KYODBC_OUT_OF_MEMORY = 14;
    public const int KYODBC_PATIENT_NOT_FOUND = 21;
    public const int KYODBC_CONNECT_FAILED = 30;
    public const int KYODBC_DB_EXCEPTION = 31;
    public const int KYODBC_NOT_UNIQUE = 52;
    public const int KYODBC_NO_TRANSACTIONS = 55;
    public const int KYODBC_SCHEMA_TOO_OLD = 56;
    public const int KYODBC_RECONNECTED = 57;
    public const int KYODBC_NO_ROW = 64;
    public const int KYODBC_IMAGE_NOT_FOUND = 65;
    public const int KYODBC_UNIT_NOT_FOUND = 66;
    public const int KYODBC_TEST_NOT_FOUND = 67;
    public const int KYODBC_SETS_NOT_CREATED = 99;
    public const int KYODBC_FIELD_KEY = 1;
    public const int KYODBC_FIELD_IMAGE_KEY = 2;
    public const int KYODBC_FIELD_DOCTOR_KEY = 3;
    public const int KYODBC_FIELD_PATIENT_KEY = 4;
    public const int KYODBC_FIELD_UNIT_KEY = 5;
    public const int KYODBC_FIELD_STATION_KEY = 6;
    public const int KYODBC_FIELD_CONFIG_KEY = 7;
    public const int KYODBC_FIELD_TEST_KEY = 8;
    public const int KYODBC_FIELD_GROUP_KEY = 9;
    public const int KYODBC_FIELD_MAKRO_KEY = 10;
    public const int KYODBC_FIELD_DIAGNOSIS_KEY = 11;
    public const int KYODBC_FIELD_NAME = 17;
    public const int KYODBC_FIELD_PERSON = 18;
    public const int KYODBC_FIELD_SURNAME = 19;
    public const int KYODBC_FIELD_DOCTOR_NAME = 20;
    public const int KYODBC_FIELD_FIRSTNAME = 22;
    public const int KYODBC_FIELD_UNIT_NAME = 23;
    public const int KYODBC_FIELD_IMAGE_NAME = 24;
    public const int KYODBC_FIELD_TEST_NAME = 25;
    public const int KYODBC_FIELD_MAKRO_NAME = 26;
    public const int KYODBC_FIELD_SETTING_KEY = 42;
    public const int KYODBC_FIELD_SETTING = 43;
    public const int KYODBC_FIELD_EXTERNAL_ID = 49;
    public const int KYODBC_FIELD_SERVER_ID = 50;
    public const int KYODBC_FIELD_SLIDA_ID = 51;
    public const int KYODBC_FIELD_SOCIAL_ID = 52;
    public const int KYODBC_FIELD_DISPLAY_ID = 53;
    public const int KYODBC_FIELD_TYPE = 58;
    public const int KYODBC_FIELD_REGION = 59;
    public const int KYODBC_FIELD_DATE = 33;
    public const int KYODBC_FIELD_BIRTHDAY = 34;
    public const int KYODBC_FIELD_LAST_DISPLAY = 35;
    public const int KYODBC_FIELD_TIME = 36;
    public const int KYODBC_OR = 128;
    public const int KYODBC_DESCENDING = 128;
    public const int KYODBC_EQUAL = 0;
    public const int KYODBC_GREATER_EQUAL = 2;
    public const int KYODBC_GREATER = 3;
    public const int KYODBC_LESS_EQUAL = 4;
    public const int KYODBC_LESS = 5;
    public const int KYODBC_NOT_EQUAL = 7;
    public const int KYODBC_LIKE = 16;
    public const int KYODBC_BETWEEN = 17;
    public const uint KYODBC_MASK_CFG_DOCTOR = 0x1;
    public const uint KYODBC_MASK_CFG_STATION = 0x2;
    public const uint KYODBC_MASK_CFG_KEY = 0x4;
    public const uint KYODBC_MASK_CFG_SETTING = 0x8;
    public const uint KYODBC_MASK_DIAG_IMAGE = 0x1;
    public const uint KYODBC_MASK_DIAG_DOCTOR = 0x2;
    public const uint KYODBC_MASK_DIAG_REGION = 0x4;
    public const uint KYODBC_MASK_DIAG_TIME = 0x8;
    public const uint KYODBC_MASK_DIAG_CODE = 0x10;
    public const uint KYODBC_MASK_DIAG_TEXT = 0x20;
    public const uint KYODBC_MASK_DR_NAME = 0x1;
    public const uint KYODBC_MASK_DR_SERVER_ID = 0x2;
    public const uint KYODBC_MASK_GRP_PATIENT = 0x1;
    public const uint KYODBC_MASK_GRP_NAME = 0x2;
    public const uint KYODBC_MASK_GRP_TIME = 0x4;
    public const uint KYODBC_MASK_GRP_LOCATION = 0x8;
    public const uint KYODBC_MASK_GRP_FILE = 0x10;
    public const uint KYODBC_MASK_GRP_MAKRO_COUNT = 0x20;
    public const uint KYODBC_MASK_GRP_PREVIEW_LOCATION = 0x40;
    public const uint KYODBC_MASK_GRP_PREVIEW_FILE = 0x80;
    public const uint KYODBC_MASK_IMG_PATIENT = 0x1;
    public const uint KYODBC_MASK_IMG_UNIT = 0x2;
    public const uint KYODBC_MASK_IMG_DOCTOR = 0x4;
    public const uint KYODBC_MASK_IMG_TYPE = 0x8;
    public const uint KYODBC_MASK_IMG_REGION = 0x10;
    public const uint KYODBC_MASK_IMG_NAME = 0x20;
    public const uint KYODBC_MASK_IMG_TIME = 0x40;
    public const uint KYODBC_MASK_IMG_PREG = 0x80;
    public const uint KYODBC_MASK_IMG_ORDER_TYPE = 0x100;
    public const uint KYODBC_MASK_IMG_ORDER_REGION = 0x200;
    public const uint KYODBC_MASK_IMG_ORDER_REASON = 0x400;
    public const uint KYODBC_MASK_IMG_ARCHIVE_TYPE = 0x800;
    public const uint KYODBC_MASK_IMG_ARCHIVE_LOCATION = 0x1000;
    public const uint KYODBC_MASK_IMG_ARCHIVE_FILE = 0x2000;
    public const uint KYODBC_MASK_IMG_ARCHIVE_VOLUME = 0x4000;
    public const uint KYODBC_MASK_IMG_ARCHIVE_OUT = 0x8000;
    public const uint KYODBC_MASK_IMG_ARCHIVE_IN = 0x10000;
    public const uint KYODBC_MASK_IMG_PREVIEW_LOCATION = 0x20000;
    public const uint KYODBC_MASK_IMG_PREVIEW_FILE = 0x40000;
    public const uint KYODBC_MASK_IMG_LOCATION = 0x80000;
    public const uint KYODBC_MASK_IMG_FILE = 0x100000;
    public const uint KYODBC_MASK_IMG_LAST_MAKRO = 0x200000;
    public const uint KYODBC_MASK_MAK_IMAGE = 0x1;
    public const uint KYODBC_MASK_MAK_NAME = 0x2;
    public const uint KYODBC_MASK_MAK_LAST_CHANGE = 0x4;
    public const uint KYODBC_MASK_MAK_FILE = 0x8;
    public const uint KYODBC_MASK_MAK_LOCATION = 0x10;
    public const uint KYODBC_MASK_MAK_ORDINAL = 0x20;
    public const uint KYODBC_MASK_PAT_DOCTOR = 0x1;
    public const uint KYODBC_MASK_PAT_EXTERNAL_ID = 0x2;
    public const uint KYODBC_MASK_PAT_SERVER_ID = 0x4;
    public const uint KYODBC_MASK_PAT_SLIDA_ID = 0x8;
    public const uint KYODBC_MASK_PAT_SOCIAL_ID = 0x10;
    public const uint KYODBC_MASK_PAT_SURNAME = 0x20;
    public const uint KYODBC_MASK_PAT_FIRSTNAME = 0x40;
    public const uint KYODBC_MASK_PAT_BIRTHDAY = 0x80;
    public const uint KYODBC_MASK_PAT_SEX = 0x100;
    public const uint KYODBC_MASK_PAT_SELECTED = 0x200;
    public const uint KYODBC_MASK_PAT_ENTRY = 0x400;
    public const uint KYODBC_MASK_PAT_DISPLAY_ID = 0x800;
    public const uint KYODBC_MASK_PAT_LAST_DISPLAY = 0x1000;
    public const uint KYODBC_MASK_STAT_NAME = 0x1;
    public const uint KYODBC_MASK_TEST_UNIT = 0x1;
    public const uint KYODBC_MASK_TEST_PERSON = 0x2;
    public const uint KYODBC_MASK_TEST_TYPE = 0x4;
    public const uint KYODBC_MASK_TEST_REGION = 0x8;
    public const uint KYODBC_MASK_TEST_NAME = 0x10;
    public const uint KYODBC_MASK_TEST_TIME = 0x20;
    public const uint KYODBC_MASK_TEST_RESULT = 0x40;
    public const uint KYODBC_MASK_TEST_ARCHIVE_TYPE = 0x80;
    public const uint KYODBC_MASK_TEST_ARCHIVE_LOCATION = 0x100;
    public const uint KYODBC_MASK_TEST_ARCHIVE_FILE = 0x200;
    public const uint KYODBC_MASK_TEST_ARCHIVE_VOLUME = 0x400;
    public const uint KYODBC_MASK_TEST_ARCHIVE_OUT = 0x800;
    public const uint KYODBC_MASK_TEST_ARCHIVE_IN = 0x1000;
    public const uint KYODBC_MASK_TEST_LOCATION = 0x2000;
    public const uint KYODBC_MASK_TEST_FILE = 0x4000;
    public const uint KYODBC_MASK_UNIT_TYPE = 0x1;
    public const uint KYODBC_MASK_UNIT_NAME = 0x2;
    public const uint KYODBC_MASK_UNIT_ACCEPTANCE = 0x4;
    public const uint KYODBC_MASK_UNIT_CONTROL_UNIT = 0x8;
    public const uint KYODBC_MASK_UNIT_SENSOR = 0x10;
    public const uint KYODBC_MASK_UNIT_GENERATOR = 0x20;
    public const uint KYODBC_MASK_UNIT_TUBE = 0x40;
    public const uint KYODBC_MASK_UNIT_CONTROL_ELEMENT = 0x80;
    public const uint KYODBC_MASK_UNIT_CONE = 0x100;
    public const uint KYODBC_MASK_UNIT_TEST_BODY = 0x200;
    public const uint KYODBC_MASK_ALL = 0xFFFFFFFF;
    public const int KYODBC_INTERFACE_VERSION = 261;
    public const int KYODBC_SET_TDR = 1;
    public const int KYODBC_SET_TSTAT = 2;
    public const int KYODBC_SET_TUNIT = 3;
    public const int KYODBC_SET_TPAT = 4;
    public const int KYODBC_SET_PATEX = 5;
    public const int KYODBC_SET_TIMG = 6;
    public const int KYODBC_SET_TMAK = 7;
    public const int KYODBC_SET_TGRP = 8;
    public const int KYODBC_SET_TDIAG = 9;
    public const int KYODBC_SET_TCFG = 10;
    public const int KYODBC_SET_TTEST = 11;
    public const int KYODBC_ERROR_DETAIL_SIZE_1 = 564;

    [DllImport(Library, CallingConvention = CallingConvention.Cdecl)]
    public static extern ushort DB_InitDatabase(ref tagDBCONNECT parameters);

    [DllImport(Library, CallingConvention = CallingConvention.Cdecl)]
    public static extern ushort DB_CloseDatabase();

    [DllImport(Library, CallingConvention = CallingConvention.Cdecl)]
    public static extern int DB_IsDatabaseOpen();

    [DllImport(Library, CallingConvention = CallingConvention.Cdecl)]
    public static extern IntPtr DB_GetDatabase();

    [DllImport(Library, CallingConvention = CallingConvention.Cdecl)]
    public static extern int DB_CheckVersion(ushort version, ref ushort library_version);

    [DllImport(Library, CallingConvention = CallingConvention.Cdecl)]
    public static extern ushort DB_GetInfo(ref tagDBINFO info);

    [DllImport(Library, CallingConvention = CallingConvention.Cdecl)]
    public static extern ushort DB_GetDBVersion(ref double version);

    [DllImport(Library, CallingConvention = CallingConvention.Cdecl)]
    public static extern ushort DB_GetDBMS([Out] byte[] buffer, int size);

    [DllImport(Library, CallingConvention = CallingConvention.Cdecl)]
    public static extern ushort DB_GetDBOwner([Out] byte[] buffer, int size);

    [DllImport(Library, CallingConvention = CallingConvention.Cdecl)]
    public static extern ushort DB_BeginTransaction();

    [DllImport(Library, CallingConvention = CallingConvention.Cdecl)]
    public static extern ushort DB_CommitTransaction();

    [DllImport(Library, CallingConvention = CallingConvention.Cdecl)]
    public static extern ushort DB_RollbackTransaction();

    [DllImport(Library, CallingConvention = CallingConvention.Cdecl)]
    public static extern ushort DB_GetProfileString([MarshalAs(UnmanagedType.LPUTF8Str)] string key, [MarshalAs(UnmanagedType.LPUTF8Str)] string station, [MarshalAs(UnmanagedType.LPUTF8Str)] string default_text, [Out] byte[] buffer, int size, ref int length);

    [DllImport(Library, CallingConvention = CallingConvention.Cdecl)]
    public static extern ushort DB_WriteProfileString([MarshalAs(UnmanagedType.LPUTF8Str)] string key, [MarshalAs(UnmanagedType.LPUTF8Str)] string station, [MarshalAs(UnmanagedType.LPUTF8Str)] string value);

    [DllImport(Library, CallingConvention = CallingConvention.Cdecl)]
    public static extern ushort DB_GetProfileInt([MarshalAs(UnmanagedType.LPUTF8Str)] string key, [MarshalAs(UnmanagedType.LPUTF8Str)] string station, int default_value, ref int value);

    [DllImport(Library, CallingConvention = CallingConvention.Cdecl)]
    public static extern ushort DB_WriteProfileInt([MarshalAs(UnmanagedType.LPUTF8Str)] string key, [MarshalAs(UnmanagedType.LPUTF8Str)] string station, int value);

    [DllImport(Library, CallingConvention = CallingConvention.Cdecl)]
    public static extern ushort DB_OpenTDr();

    [DllImport(Library, CallingConvention = CallingConvention.Cdecl)]
    public static extern ushort DB_OpenTStat();

    [DllImport(Library, CallingConvention = CallingConvention.Cdecl)]
    public static extern ushort DB_OpenTUnit();

    [DllImport(Library, CallingConvention = CallingConvention.Cdecl)]
    public static extern ushort DB_OpenTPat();

    [DllImport(Library, CallingConvention = CallingConvention.Cdecl)]
    public static extern ushort DB_OpenPatEx();

    [DllImport(Library, CallingConvention = CallingConvention.Cdecl)]
    public static extern ushort DB_OpenTImg();

    [DllImport(Library, CallingConvention = CallingConvention.Cdecl)]
    public static extern ushort DB_OpenTMak();

    [DllImport(Library, CallingConvention = CallingConvention.Cdecl)]
    public static extern ushort DB_OpenTGrp();

    [DllImport(Library, CallingConvention = CallingConvention.Cdecl)]
    public static extern ushort DB_OpenTDiag();

    [DllImport(Library, CallingConvention = CallingConvention.Cdecl)]
    public static extern ushort DB_OpenTCfg();

    [DllImport(Library, CallingConvention = CallingConvention.Cdecl)]
    public static extern ushort DB_OpenTTest();

    [DllImport(Library, CallingConvention = CallingConvention.Cdecl)]
    public static extern ushort DB_CloseTDr();

    [DllImport(Library, CallingConvention = CallingConvention.Cdecl)]
    public static extern ushort DB_CloseTStat();

    [DllImport(Library, CallingConvention = CallingConvention.Cdecl)]
    public static extern ushort DB_CloseTUnit();

    [DllImport(Library, CallingConvention = CallingConvention.Cdecl)]
    public static extern ushort DB_CloseTPat();

    [DllImport(Library, CallingConvention = CallingConvention.Cdecl)]
    public static extern ushort DB_ClosePatEx();

    [DllImport(Library, CallingConvention = CallingConvention.Cdecl)]
    public static extern ushort DB_CloseTImg();

    [DllImport(Library, CallingConvention = CallingConvention.Cdecl)]
    public static extern ushort DB_CloseTMak();

    [DllImport(Library, CallingConvention = CallingConvention.Cdecl)]
    public static extern ushort DB_CloseTGrp();

    [DllImport(Library, CallingConvention = CallingConvention.Cdecl)]
    public static extern ushort DB_CloseTDiag();

    [DllImport(Library, CallingConvention = CallingConvention.Cdecl)]
    public static extern ushort DB_CloseTCfg();

    [DllImport(Library, CallingConvention = CallingConvention.Cdecl)]
    public static extern ushort DB_CloseTTest();

    [DllImport(Library, CallingConvention = CallingConvention.Cdecl)]
    public static extern int DB_IsTDrOpen();

    [DllImport(Library, CallingConvention = CallingConvention.Cdecl)]
    public static extern int DB_IsTStatOpen();

    [DllImport(Library, CallingConvention = CallingConvention.Cdecl)]
    public static extern int DB_IsTUnitOpen();

    [DllImport(Library, CallingConvention = CallingConvention.Cdecl)]
    public static extern int DB_IsTPatOpen();

    [DllImport(Library, CallingConvention = CallingConvention.Cdecl)]
    public static extern int DB_IsPatExOpen();

    [DllImport(Library, CallingConvention = CallingConvention.Cdecl)]
    public static extern int DB_IsTImgOpen();

    [DllImport(Library, CallingConvention = CallingConvention.Cdecl)]
    public static extern int DB_IsTMakOpen();

    [DllImport(Library, CallingConvention = CallingConvention.Cdecl)]
    public static extern int DB_IsTGrpOpen();

    [DllImport(Library, CallingConvention = CallingConvention.Cdecl)]
    public static extern int DB_IsTDiagOpen();

    [DllImport(Library, CallingConvention = CallingConvention.Cdecl)]
    public static extern int DB_IsTCfgOpen();

    [DllImport(Library, CallingConvention = CallingConvention.Cdecl)]
    public static extern int DB_IsTTestOpen();

    [DllImport(Library, CallingConvention = CallingConvention.Cdecl)]
    public static extern int DB_GetTDrIndexPos();

    [DllImport(Library, CallingConvention = CallingConvention.Cdecl)]
    public static extern int DB_GetTStatIndexPos();

    [DllImport(Library, CallingConvention = CallingConvention.Cdecl)]
    public static extern int DB_GetTUnitIndexPos();

    [DllImport(Library, CallingConvention = CallingConvention.Cdecl)]
    public static extern int DB_GetTPatIndexPos();

    [DllImport(Library, CallingConvention = CallingConvention.Cdecl)]
    public static extern int DB_GetPatExIndexPos();

    [DllImport(Library, CallingConvention = CallingConvention.Cdecl)]
    public static extern int DB_GetTImgIndexPos();

    [DllImport(Library, CallingConvention = CallingConvention.Cdecl)]
    public static extern int DB_GetTMakIndexPos();

    [DllImport(Library, CallingConvention = CallingConvention.Cdecl)]
    public static extern int DB_GetTGrpIndexPos();

    [DllImport(Library, CallingConvention = CallingConvention.Cdecl)]
    public static extern int DB_GetTDiagIndexPos();

    [DllImport(Library, CallingConvention = CallingConvention.Cdecl)]
    public static extern int DB_GetTCfgIndexPos();

    [DllImport(Library, CallingConvention = CallingConvention.Cdecl)]
    public static extern int DB_GetTTestIndexPos();

    [DllImport(Library, CallingConvention = CallingConvention.Cdecl)]
    public static extern int DB_MoveToTDrByPos(int position);

    [DllImport(Library, CallingConvention = CallingConvention.Cdecl)]
    public static extern int DB_MoveToTStatByPos(int position);

    [DllImport(Library, CallingConvention = CallingConvention.Cdecl)]
    public static extern int DB_MoveToTUnitByPos(int position);

    [DllImport(Library, CallingConvention = CallingConvention.Cdecl)]
    public static extern int DB_MoveToTPatByPos(int position);

    [DllImport(Library, CallingConvention = CallingConvention.Cdecl)]
    public static extern int DB_MoveToPatExByPos(int position);

    [DllImport(Library, CallingConvention = CallingConvention.Cdecl)]
    public static extern int DB_MoveToTImgByPos(int position);

    [DllImport(Library, CallingConvention = CallingConvention.Cdecl)]
    public static extern int DB_MoveToTMakByPos(int position);

    [DllImport(Library, CallingConvention = CallingConvention.Cdecl)]
    public static extern int DB_MoveToTGrpByPos(int position);

    [DllImport(Library, CallingConvention = CallingConvention.Cdecl)]
    public static extern int DB_MoveToTDiagByPos(int position);

    [DllImport(Library, CallingConvention = CallingConvention.Cdecl)]
    public static extern int DB_MoveToTCfgByPos(int position);

    [DllImport(Library, CallingConvention = CallingConvention.Cdecl)]
    public static extern int DB_MoveToTTestByPos(int position);

    [DllImport(Library, CallingConvention = CallingConvention.Cdecl)]
    public static extern int DB_MoveToTDrByDelta(int delta);

    [DllImport(Library, CallingConvention = CallingConvention.Cdecl)]
    public static extern int DB_MoveToTStatByDelta(int delta);

    [DllImport(Library, CallingConvention = CallingConvention.Cdecl)]
    public static extern int DB_MoveToTUnitByDelta(int delta);

    [DllImport(Library, CallingConvention = CallingConvention.Cdecl)]
    public static extern int DB_MoveToTPatByDelta(int delta);

    [DllImport(Library, CallingConvention = CallingConvention.Cdecl)]
    public static extern int DB_MoveToPatExByDelta(int delta);

    [DllImport(Library, CallingConvention = CallingConvention.Cdecl)]
    public static extern int DB_MoveToTImgByDelta(int delta);

    [DllImport(Library, CallingConvention = CallingConvention.Cdecl)]
    public static extern int DB_MoveToTMakByDelta(int delta);

    [DllImport(Library, CallingConvention = CallingConvention.Cdecl)]
    public static extern int DB_MoveToTGrpByDelta(int delta);

    [DllImport(Library, CallingConvention = CallingConvention.Cdecl)]
    public static extern int DB_MoveToTDiagByDelta(int delta);

    [DllImport(Library, CallingConvention = CallingConvention.Cdecl)]
    public static extern int DB_MoveToTCfgByDelta(int delta);

    [DllImport(Library, CallingConvention = CallingConvention.Cdecl)]
    public static extern int DB_MoveToTTestByDelta(int delta);

    [DllImport(Library, CallingConvention = CallingConvention.Cdecl)]
    public static extern int DB_MoveToTPatByIntID(int id);

    [DllImport(Library, CallingConvention = CallingConvention.Cdecl)]
    public static extern int DB_MoveToTImgByIntID(int id);

    [DllImport(Library, CallingConvention = CallingConvention.Cdecl)]
    public static extern int DB_MoveToPatExByIntID(int id);

    [DllImport(Library, CallingConvention = CallingConvention.Cdecl)]
    public static extern int DB_MoveToTPatByString([MarshalAs(UnmanagedType.LPUTF8Str)] string text);

    [DllImport(Library, CallingConvention = CallingConvention.Cdecl)]
    public static extern int DB_MoveToPatExByString([MarshalAs(UnmanagedType.LPUTF8Str)] string text);

    [DllImport(Library, CallingConvention = CallingConvention.Cdecl)]
    public static extern ushort DB_GetTDrMaxPos(ref int count);

    [DllImport(Library, CallingConvention = CallingConvention.Cdecl)]
    public static extern ushort DB_GetTStatMaxPos(ref int count);

    [DllImport(Library, CallingConvention = CallingConvention.Cdecl)]
    public static extern ushort DB_GetTUnitMaxPos(ref int count);

    [DllImport(Library, CallingConvention = CallingConvention.Cdecl)]
    public static extern ushort DB_GetTPatMaxPos(ref int count);

    [DllImport(Library, CallingConvention = CallingConvention.Cdecl)]
    public static extern ushort DB_GetPatExMaxPos(ref int count);

    [DllImport(Library, CallingConvention = CallingConvention.Cdecl)]
    public static extern ushort DB_GetTImgMaxPos(ref int count);

    [DllImport(Library, CallingConvention = CallingConvention.Cdecl)]
    public static extern ushort DB_GetTMakMaxPos(ref int count);

    [DllImport(Library, CallingConvention = CallingConvention.Cdecl)]
    public static extern ushort DB_GetTGrpMaxPos(ref int count);

    [DllImport(Library, CallingConvention = CallingConvention.Cdecl)]
    public static extern ushort DB_GetTDiagMaxPos(ref int count);

    [DllImport(Library, CallingConvention = CallingConvention.Cdecl)]
    public static extern ushort DB_GetTCfgMaxPos(ref int count);

    [DllImport(Library, CallingConvention = CallingConvention.Cdecl)]
    public static extern ushort DB_GetTTestMaxPos(ref int count);

    [DllImport(Library, CallingConvention = CallingConvention.Cdecl)]
    public static extern ushort DB_SetTDrFilter(int fields, int operators, IntPtr value1, IntPtr value2, IntPtr value3, IntPtr value4);

    [DllImport(Library, CallingConvention = CallingConvention.Cdecl)]
    public static extern ushort DB_SetTStatFilter(int fields, int operators, IntPtr value1, IntPtr value2, IntPtr value3, IntPtr value4);

    [DllImport(Library, CallingConvention = CallingConvention.Cdecl)]
    public static extern ushort DB_SetTUnitFilter(int fields, int operators, IntPtr value1, IntPtr value2, IntPtr value3, IntPtr value4);

    [DllImport(Library, CallingConvention = CallingConvention.Cdecl)]
    public static extern ushort DB_SetTPatFilter(int fields, int operators, IntPtr value1, IntPtr value2, IntPtr value3, IntPtr value4);

    [DllImport(Library, CallingConvention = CallingConvention.Cdecl)]
    public static extern ushort DB_SetPatExFilter(int fields, int operators, IntPtr value1, IntPtr value2, IntPtr value3, IntPtr value4);

    [DllImport(Library, CallingConvention = CallingConvention.Cdecl)]
    public static extern ushort DB_SetTImgFilter(int fields, int operators, IntPtr value1, IntPtr value2, IntPtr value3, IntPtr value4);

    [DllImport(Library, CallingConvention = CallingConvention.Cdecl)]
    public static extern ushort DB_SetTMakFilter(int fields, int operators, IntPtr value1, IntPtr value2, IntPtr value3, IntPtr value4);

    [DllImport(Library, CallingConvention = CallingConvention.Cdecl)]
    public static extern ushort DB_SetTGrpFilter(int fields, int operators, IntPtr value1, IntPtr value2, IntPtr value3, IntPtr value4);

    [DllImport(Library, CallingConvention = CallingConvention.Cdecl)]
    public static extern ushort DB_SetTDiagFilter(int fields, int operators, IntPtr value1, IntPtr value2, IntPtr value3, IntPtr value4);

    [DllImport(Library, CallingConvention = CallingConvention.Cdecl)]
    public static extern ushort DB_SetTCfgFilter(int fields, int operators, IntPtr value1, IntPtr value2, IntPtr value3, IntPtr value4);

    [DllImport(Library, CallingConvention = CallingConvention.Cdecl)]
    public static extern ushort DB_SetTTestFilter(int fields, int operators, IntPtr value1, IntPtr value2, IntPtr value3, IntPtr value4);

    [DllImport(Library, CallingConvention = CallingConvention.Cdecl)]
    public static extern ushort DB_SetTDrSortIndex(int sort_index);

    [DllImport(Library, CallingConvention = CallingConvention.Cdecl)]
    public static extern ushort DB_SetTStatSortIndex(int sort_index);

    [DllImport(Library, CallingConvention = CallingConvention.Cdecl)]
    public static extern ushort DB_SetTUnitSortIndex(int sort_index);

    [DllImport(Library, CallingConvention = CallingConvention.Cdecl)]
    public static extern ushort DB_SetTPatSortIndex(int sort_index);

    [DllImport(Library, CallingConvention = CallingConvention.Cdecl)]
    public static extern ushort DB_SetPatExSortIndex(int sort_index);

    [DllImport(Library, CallingConvention = CallingConvention.Cdecl)]
    public static extern ushort DB_SetTImgSortIndex(int sort_index);

    [DllImport(Library, CallingConvention = CallingConvention.Cdecl)]
    public static extern ushort DB_SetTMakSortIndex(int sort_index);

    [DllImport(Library, CallingConvention = CallingConvention.Cdecl)]
    public static extern ushort DB_SetTGrpSortIndex(int sort_index);

    [DllImport(Library, CallingConvention = CallingConvention.Cdecl)]
    public static extern ushort DB_SetTDiagSortIndex(int sort_index);

    [DllImport(Library, CallingConvention = CallingConvention.Cdecl)]
    public static extern ushort DB_SetTCfgSortIndex(int sort_index);

    [DllImport(Library, CallingConvention = CallingConvention.Cdecl)]
    public static extern ushort DB_SetTTestSortIndex(int sort_index);

    [DllImport(Library, CallingConvention = CallingConvention.Cdecl)]
    public static extern ushort DB_GetTDrByPos(int position, ref tagTDOCTOR record);

    [DllImport(Library, CallingConvention = CallingConvention.Cdecl)]
    public static extern ushort DB_GetTStatByPos(int position, ref tagTSTATION record);

    [DllImport(Library, CallingConvention = CallingConvention.Cdecl)]
    public static extern ushort DB_GetTUnitByPos(int position, ref tagTUNIT record);

    [DllImport(Library, CallingConvention = CallingConvention.Cdecl)]
    public static extern ushort DB_GetTPatByPos(int position, ref tagTPATIENT record);

    [DllImport(Library, CallingConvention = CallingConvention.Cdecl)]
    public static extern ushort DB_GetPatExByPos(int position, ref tagTPATIENTEX record);

    [DllImport(Library, CallingConvention = CallingConvention.Cdecl)]
    public static extern ushort DB_GetTImgByPos(int position, ref tagTIMAGE record);

    [DllImport(Library, CallingConvention = CallingConvention.Cdecl)]
    public static extern ushort DB_GetTMakByPos(int position, ref tagTMAKRO record);

    [DllImport(Library, CallingConvention = CallingConvention.Cdecl)]
    public static extern ushort DB_GetTGrpByPos(int position, ref tagTGROUP record);

    [DllImport(Library, CallingConvention = CallingConvention.Cdecl)]
    public static extern ushort DB_GetTDiagByPos(int position, ref tagTDIAGNOSIS record);

    [DllImport(Library, CallingConvention = CallingConvention.Cdecl)]
    public static extern ushort DB_GetTCfgByPos(int position, ref tagTCONFIG record);

    [DllImport(Library, CallingConvention = CallingConvention.Cdecl)]
    public static extern ushort DB_GetTTestByPos(int position, ref tagTTEST record);

    [DllImport(Library, CallingConvention = CallingConvention.Cdecl)]
    public static extern ushort DB_DeleteTDrByPos(int position);

    [DllImport(Library, CallingConvention = CallingConvention.Cdecl)]
    public static extern ushort DB_DeleteTStatByPos(int position);

    [DllImport(Library, CallingConvention = CallingConvention.Cdecl)]
    public static extern ushort DB_DeleteTUnitByPos(int position);

    [DllImport(Library, CallingConvention = CallingConvention.Cdecl)]
    public static extern ushort DB_DeleteTPatByPos(int position);

    [DllImport(Library, CallingConvention = CallingConvention.Cdecl)]
    public static extern ushort DB_DeleteTImgByPos(int position);

    [DllImport(Library, CallingConvention = CallingConvention.Cdecl)]
    public static extern ushort DB_DeleteTMakByPos(int position);

    [DllImport(Library, CallingConvention = CallingConvention.Cdecl)]
    public static extern ushort DB_DeleteTGrpByPos(int position);

    [DllImport(Library, CallingConvention = CallingConvention.Cdecl)]
    public static extern ushort DB_DeleteTDiagByPos(int position);

    [DllImport(Library, CallingConvention = CallingConvention.Cdecl)]
    public static extern ushort DB_DeleteTCfgByPos(int position);

    [DllImport(Library, CallingConvention = CallingConvention.Cdecl)]
    public static extern ushort DB_DeleteTTestByPos(int position);

    [DllImport(Library, CallingConvention = CallingConvention.Cdecl)]
    public static extern ushort DB_AddNewTDr(ref tagTDOCTOR record);

    [DllImport(Library, CallingConvention = CallingConvention.Cdecl)]
    public static extern ushort DB_AddNewTStat(ref tagTSTATION record);

    [DllImport(Library, CallingConvention = CallingConvention.Cdecl)]
    public static extern ushort DB_AddNewTUnit(ref tagTUNIT record);

    [DllImport(Library, CallingConvention = CallingConvention.Cdecl)]
    public static extern ushort DB_AddNewTPat(ref tagTPATIENT record);

    [DllImport(Library, CallingConvention = CallingConvention.Cdecl)]
    public static extern ushort DB_AddNewTImg(ref tagTIMAGE record);

    [DllImport(Library, CallingConvention = CallingConvention.Cdecl)]
    public static extern ushort DB_AddNewTMak(ref tagTMAKRO record);

    [DllImport(Library, CallingConvention = CallingConvention.Cdecl)]
    public static extern ushort DB_AddNewTGrp(ref tagTGROUP record);

    [DllImport(Library, CallingConvention = CallingConvention.Cdecl)]
    public static extern ushort DB_AddNewTDiag(ref tagTDIAGNOSIS record);

    [DllImport(Library, CallingConvention = CallingConvention.Cdecl)]
    public static extern ushort DB_AddNewTCfg(ref tagTCONFIG record);

    [DllImport(Library, CallingConvention = CallingConvention.Cdecl)]
    public static extern ushort DB_AddNewTTest(ref tagTTEST record);

    [DllImport(Library, CallingConvention = CallingConvention.Cdecl)]
    public static extern ushort DB_EditSelTDr(ref tagTDOCTOR record, uint mask);

    [DllImport(Library, CallingConvention = CallingConvention.Cdecl)]
    public static extern ushort DB_EditSelTStat(ref tagTSTATION record, uint mask);

    [DllImport(Library, CallingConvention = CallingConvention.Cdecl)]
    public static extern ushort DB_EditSelTUnit(ref tagTUNIT record, uint mask);

    [DllImport(Library, CallingConvention = CallingConvention.Cdecl)]
    public static extern ushort DB_EditSelTPat(ref tagTPATIENT record, uint mask);

    [DllImport(Library, CallingConvention = CallingConvention.Cdecl)]
    public static extern ushort DB_EditSelTImg(ref tagTIMAGE record, uint mask);

    [DllImport(Library, CallingConvention = CallingConvention.Cdecl)]
    public static extern ushort DB_EditSelTMak(ref tagTMAKRO record, uint mask);

    [DllImport(Library, CallingConvention = CallingConvention.Cdecl)]
    public static extern ushort DB_EditSelTGrp(ref tagTGROUP record, uint mask);

    [DllImport(Library, CallingConvention = CallingConvention.Cdecl)]
    public static extern ushort DB_EditSelTDiag(ref tagTDIAGNOSIS record, uint mask);

    [DllImport(Library, CallingConvention = CallingConvention.Cdecl)]
    public static extern ushort DB_EditSelTCfg(ref tagTCONFIG record, uint mask);

    [DllImport(Library, CallingConvention = CallingConvention.Cdecl)]
    public static extern ushort DB_EditSelTTest(ref tagTTEST record, uint mask);

    [DllImport(Library, CallingConvention = CallingConvention.Cdecl)]
    public static extern ushort DB_EditTDr(ref tagTDOCTOR record);

    [DllImport(Library, CallingConvention = CallingConvention.Cdecl)]
    public static extern ushort DB_EditTStat(ref tagTSTATION record);

    [DllImport(Library, CallingConvention = CallingConvention.Cdecl)]
    public static extern ushort DB_EditTUnit(ref tagTUNIT record);

    [DllImport(Library, CallingConvention = CallingConvention.Cdecl)]
    public static extern ushort DB_EditTPat(ref tagTPATIENT record);

    [DllImport(Library, CallingConvention = CallingConvention.Cdecl)]
    public static extern ushort DB_EditTImg(ref tagTIMAGE record);

    [DllImport(Library, CallingConvention = CallingConvention.Cdecl)]
    public static extern ushort DB_EditTMak(ref tagTMAKRO record);

    [DllImport(Library, CallingConvention = CallingConvention.Cdecl)]
    public static extern ushort DB_EditTGrp(ref tagTGROUP record);

    [DllImport(Library, CallingConvention = CallingConvention.Cdecl)]
    public static extern ushort DB_EditTDiag(ref tagTDIAGNOSIS record);

    [DllImport(Library, CallingConvention = CallingConvention.Cdecl)]
    public static extern ushort DB_EditTCfg(ref tagTCONFIG record);

    [DllImport(Library, CallingConvention = CallingConvention.Cdecl)]
    public static extern ushort DB_EditTTest(ref tagTTEST record);

    [DllImport(Library, CallingConvention = CallingConvention.Cdecl)]
    public static extern ushort DB_DeleteTDr(ref tagTDOCTOR record);

    [DllImport(Library, CallingConvention = CallingConvention.Cdecl)]
    public static extern ushort DB_DeleteTStat(ref tagTSTATION record);

    [DllImport(Library, CallingConvention = CallingConvention.Cdecl)]
    public static extern ushort DB_DeleteTUnit(ref tagTUNIT record);

    [DllImport(Library, CallingConvention = CallingConvention.Cdecl)]
    public static extern ushort DB_DeleteTPat(ref tagTPATIENT record);

    [DllImport(Library, CallingConvention = CallingConvention.Cdecl)]
    public static extern ushort DB_DeleteTImg(ref tagTIMAGE record);

    [DllImport(Library, CallingConvention = CallingConvention.Cdecl)]
    public static extern ushort DB_DeleteTMak(ref tagTMAKRO record);

    [DllImport(Library, CallingConvention = CallingConvention.Cdecl)]
    public static extern ushort DB_DeleteTGrp(ref tagTGROUP record);

    [DllImport(Library, CallingConvention = CallingConvention.Cdecl)]
    public static extern ushort DB_DeleteTDiag(ref tagTDIAGNOSIS record);

    [DllImport(Library, CallingConvention = CallingConvention.Cdecl)]
    public static extern ushort DB_DeleteTCfg(ref tagTCONFIG record);

    [DllImport(Library, CallingConvention = CallingConvention.Cdecl)]
    public static extern ushort DB_DeleteTTest(ref tagTTEST record);

    [DllImport(Library, CallingConvention = CallingConvention.Cdecl)]
    public static extern ushort DB_GetTDr(ref tagTDOCTOR record);

    [DllImport(Library, CallingConvention = CallingConvention.Cdecl)]
    public static extern ushort DB_GetTStat(ref tagTSTATION record);

    [DllImport(Library, CallingConvention = CallingConvention.Cdecl)]
    public static extern ushort DB_GetTUnit(ref tagTUNIT record);

    [DllImport(Library, CallingConvention = CallingConvention.Cdecl)]
    public static extern ushort DB_GetTPat(ref tagTPATIENT record);

    [DllImport(Library, CallingConvention = CallingConvention.Cdecl)]
    public static extern ushort DB_GetPatEx(ref tagTPATIENTEX record);

    [DllImport(Library, CallingConvention = CallingConvention.Cdecl)]
    public static extern ushort DB_GetTImg(ref tagTIMAGE record);

    [DllImport(Library, CallingConvention = CallingConvention.Cdecl)]
    public static extern ushort DB_GetTMak(ref tagTMAKRO record);

    [DllImport(Library, CallingConvention = CallingConvention.Cdecl)]
    public static extern ushort DB_GetTGrp(ref tagTGROUP record);

    [DllImport(Library, CallingConvention = CallingConvention.Cdecl)]
    public static extern ushort DB_GetTDiag(ref tagTDIAGNOSIS record);

    [DllImport(Library, CallingConvention = CallingConvention.Cdecl)]
    public static extern ushort DB_GetTCfg(ref tagTCONFIG record);

    [DllImport(Library, CallingConvention = CallingConvention.Cdecl)]
    public static extern ushort DB_GetTTest(ref tagTTEST record);

    [DllImport(Library, CallingConvention = CallingConvention.Cdecl)]
    public static extern ushort DB_GetNumTDr(ref int count);

    [DllImport(Library, CallingConvention = CallingConvention.Cdecl)]
    public static extern ushort DB_GetNumTStat(ref int count);

    [DllImport(Library, CallingConvention = CallingConvention.Cdecl)]
    public static extern ushort DB_GetNumTUnit(ref int count);

    [DllImport(Library, CallingConvention = CallingConvention.Cdecl)]
    public static extern ushort DB_GetNumTPat(ref int count);

    [DllImport(Library, CallingConvention = CallingConvention.Cdecl)]
    public static extern ushort DB_GetNumPatEx(ref int count);

    [DllImport(Library, CallingConvention = CallingConvention.Cdecl)]
    public static extern ushort DB_GetNumTDiag(ref int count);

    [DllImport(Library, CallingConvention = CallingConvention.Cdecl)]
    public static extern ushort DB_GetNumTCfg(ref int count);

    [DllImport(Library, CallingConvention = CallingConvention.Cdecl)]
    public static extern ushort DB_GetNumTImg(int patient_key, ref int count);

    [DllImport(Library, CallingConvention = CallingConvention.Cdecl)]
    public static extern ushort DB_GetNumTMak(int image_key, ref int count);

    [DllImport(Library, CallingConvention = CallingConvention.Cdecl)]
    public static extern ushort DB_GetNumTGrp(int patient_key, ref int count);

    [DllImport(Library, CallingConvention = CallingConvention.Cdecl)]
    public static extern ushort DB_GetNumTTest(int unit_key, ref int count);

    [DllImport(Library, CallingConvention = CallingConvention.Cdecl)]
    public static extern ushort DB_GetLastDrID(ref int id);

    [DllImport(Library, CallingConvention = CallingConvention.Cdecl)]
    public static extern ushort DB_GetLastStatID(ref int id);

    [DllImport(Library, CallingConvention = CallingConvention.Cdecl)]
    public static extern ushort DB_GetLastUnitID(ref int id);

    [DllImport(Library, CallingConvention = CallingConvention.Cdecl)]
    public static extern ushort DB_GetLastPatID(ref int id);

    [DllImport(Library, CallingConvention = CallingConvention.Cdecl)]
    public static extern ushort DB_GetLastImgID(ref int id);

    [DllImport(Library, CallingConvention = CallingConvention.Cdecl)]
    public static extern ushort DB_GetLastMakID(ref int id);

    [DllImport(Library, CallingConvention = CallingConvention.Cdecl)]
    public static extern ushort DB_GetLastGrpID(ref int id);

    [DllImport(Library, CallingConvention = CallingConvention.Cdecl)]
    public static extern ushort DB_GetLastDiagID(ref int id);

    [DllImport(Library, CallingConvention = CallingConvention.Cdecl)]
    public static extern ushort DB_GetLastCfgID(ref int id);

    [DllImport(Library, CallingConvention = CallingConvention.Cdecl)]
    public static extern ushort DB_GetLastTestID(ref int id);

    [DllImport(Library, CallingConvention = CallingConvention.Cdecl)]
    public static extern ushort DB_GetLastTImgDate(int patient_key, ref int image_key, ref TIMESTAMP_STRUCT time);

    [DllImport(Library, CallingConvention = CallingConvention.Cdecl)]
    public static extern ushort DB_GetLastTMakDate(int image_key, ref int makro_key, ref TIMESTAMP_STRUCT time);

    [DllImport(Library, CallingConvention = CallingConvention.Cdecl)]
    public static extern ushort DB_GetLastTTestDate(int unit_key, ref int test_key, ref TIMESTAMP_STRUCT time);

    [DllImport(Library, CallingConvention = CallingConvention.Cdecl)]
    public static extern ushort DB_AddNewPat(ref tagPATIENTCOMPACT record);

    [DllImport(Library, CallingConvention = CallingConvention.Cdecl)]
    public static extern ushort DB_EditPat(ref tagPATIENTCOMPACT record);

    [DllImport(Library, CallingConvention = CallingConvention.Cdecl)]
    public static extern ushort DB_EditSelPat(ref tagPATIENTCOMPACT record, uint mask);

    [DllImport(Library, CallingConvention = CallingConvention.Cdecl)]
    public static extern ushort DB_DeletePat(ref tagPATIENTCOMPACT record);

    [DllImport(Library, CallingConvention = CallingConvention.Cdecl)]
    public static extern ushort DB_GetPat(ref tagPATIENTCOMPACT record);

    [DllImport(Library, CallingConvention = CallingConvention.Cdecl)]
    public static extern ushort DB_GetPatByPos(ref tagPATIENTCOMPACT record, int position);

    [DllImport(Library, CallingConvention = CallingConvention.Cdecl)]
    public static extern ushort DB_AddNewUnit(ref tagPATIENTCOMPACT record);

    [DllImport(Library, CallingConvention = CallingConvention.Cdecl)]
    public static extern ushort DB_EditUnit(ref tagPATIENTCOMPACT record);

    [DllImport(Library, CallingConvention = CallingConvention.Cdecl)]
    public static extern ushort DB_EditSelUnit(ref tagPATIENTCOMPACT record, uint mask);

    [DllImport(Library, CallingConvention = CallingConvention.Cdecl)]
    public static extern ushort DB_DeleteUnit(ref tagPATIENTCOMPACT record);

    [DllImport(Library, CallingConvention = CallingConvention.Cdecl)]
    public static extern ushort DB_GetUnit(ref tagPATIENTCOMPACT record);

    [DllImport(Library, CallingConvention = CallingConvention.Cdecl)]
    public static extern ushort DB_GetUnitByPos(ref tagPATIENTCOMPACT record, int position);

    [DllImport(Library, CallingConvention = CallingConvention.Cdecl)]
    public static extern ushort DB_GetLastErrorDetail(ref tagDBERRORDETAIL detail, uint size);

    [DllImport(Library, CallingConvention = CallingConvention.Cdecl)]
    public static extern ushort DB_ReopenAtKey(int set, int key, ref int position);
}
