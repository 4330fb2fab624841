// Read by the sanitizers in programs that draw pages. fontconfig keeps its configuration to the end
// of the process, and Pango's threads hand their results over by locks that the checker cannot see.
extern "C" const char* __lsan_default_suppressions();
extern "C" const char* __lsan_default_suppressions() { return "leak:libfontconfig.so\n"; }

extern "C" const char* __tsan_default_suppressions();
extern "C" const char* __tsan_default_suppressions() {
  return "race:libfontconfig.so\nrace:libpango\nrace:libharfbuzz.so\nrace:libcairo.so\n"
         "race:libglib-2.0.so\nrace:libgobject-2.0.so\n";
}
