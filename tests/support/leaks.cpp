// What the leak checker of a sanitized build leaves out: fontconfig keeps what it has read.

extern "C" const char* __lsan_default_suppressions() { return "leak:libfontconfig\n"; }
extern "C" const char* __lsan_default_options() { return "print_suppressions=0"; }
