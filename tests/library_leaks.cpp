// Fontconfig keeps its configuration until the process ends; the leak sanitizer must not report it.
extern "C" const char* __lsan_default_suppressions();
extern "C" const char* __lsan_default_suppressions() { return "leak:libfontconfig\n"; }
// A report of them would show as messages of the program.
extern "C" const char* __lsan_default_options();
extern "C" const char* __lsan_default_options() { return "print_suppressions=0"; }
