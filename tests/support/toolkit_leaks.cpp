// Read by the leak checker: the toolkit keeps a few bytes for every area that is scrolled by
// finger, and its bus library some for every connection.
extern "C" const char* __lsan_default_suppressions();
extern "C" const char* __lsan_default_suppressions() {
  return "leak:QScroller::grabGesture\nleak:libQt6DBus.so\n";
}
