// Fontconfig keeps its configuration until the process ends; the leak sanitizer must not report it.
extern "C" const char* __lsan_default_suppressions();
extern "C" const char* __lsan_default_suppressions() { return "leak:libfontconfig\n"; }
