// Read by the leak checker: the toolkit keeps a few bytes for every area that is scrolled by
// finger.
extern "C" const char* __lsan_default_suppressions();
extern "C" const char* __lsan_default_suppressions() { return "leak:QScroller::grabGesture\n"; }
