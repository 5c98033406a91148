// What C# makes of the declarations: "NAME SIZE" and "NAME.FIELD OFFSET" of every record, then calls without
// a connection. csharp_test.py compares and reads it.
using System;
using System.Reflection;
using System.Runtime.InteropServices;

public static class Layout
{
    private static void Describe(Type record)
    {
        Console.WriteLine("{0} {1}", record.Name, Marshal.SizeOf(record));
        foreach (FieldInfo field in record.GetFields(BindingFlags.Instance | BindingFlags.Public))
            Console.WriteLine("{0}.{1} {2}", record.Name, field.Name, Marshal.OffsetOf(record, field.Name));
    }

    private static void Call()
    {
        ushort version = 0;
        int fits = KyODBC.DB_CheckVersion((ushort)KyODBC.KYODBC_INTERFACE_VERSION, ref version);
        Console.WriteLine("version {0} {1}", fits, version);
        tagTPATIENT patient = new tagTPATIENT();
        patient.szName = KyODBC.Bytes("Müller", 33);
        Console.WriteLine("get {0} {1}", KyODBC.DB_GetTPat(ref patient), KyODBC.Text(patient.szName));
        tagDBERRORDETAIL detail = new tagDBERRORDETAIL();
        KyODBC.DB_GetLastErrorDetail(ref detail, (uint)Marshal.SizeOf(detail));
        Console.WriteLine("failed {0}", KyODBC.Text(detail.szFunction));
        byte[] text = new byte[4];
        int length = 0;
        ushort code = KyODBC.DB_GetProfileString("key", "-", "äää", text, text.Length, ref length);
        Console.WriteLine("setting {0} {1} {2}", code, KyODBC.Text(text), length);
        Console.WriteLine("cut {0}", KyODBC.Text(KyODBC.Bytes("xäöü", 5)));
    }

    public static void Main()
    {
        foreach (Type type in Assembly.GetExecutingAssembly().GetTypes())
            if (type.IsValueType && !type.IsEnum) Describe(type);
        Call();
    }
}
