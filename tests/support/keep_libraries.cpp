// Keeps every loaded library until the process ends. The driver manager unloads a driver when the last
// connection closes; what the driver keeps for its next use can then no longer be reached, and the leak
// checker would take it for a leak of the library's.

extern "C" int dlclose(void*) { return 0; }

// What drivers forget by themselves; the leak checker asks this function. The one for Access files forgets
// some texts, which it allocates through GLib as nobody else does here. The one of PostgreSQL forgets what it
// has read of a prepared statement when the server refuses to run it. Handles that the library forgot would
// be found on the other databases, and are counted by tests/faults.
extern "C" const char* __lsan_default_suppressions();
const char* __lsan_default_suppressions() { return "leak:libglib-2.0\nleak:psqlodbcw.so"; }

// The leak checker guesses where a loaded library's thread-local storage lies. Where the storage begins 16
// bytes into a page it takes what stands before it for a header, and ends the process with "Tracer caught
// signal 11" after all tests have passed: once in many runs, as the addresses fall. Left off, it finds the
// storage all the same, as memory that the loader asked for.
extern "C" const char* __asan_default_options();
const char* __asan_default_options() { return "intercept_tls_get_addr=0"; }
