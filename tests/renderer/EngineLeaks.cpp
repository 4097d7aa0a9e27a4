// What the script engine allocates once and never frees is no leak of ours: the leak sanitizer asks here what to leave
// out. The executable itself needs none of this, since it leaves without looking for leaks.

extern "C" const char* __lsan_default_suppressions();

extern "C" const char* __lsan_default_suppressions() {
  return "leak:libjavascriptcoregtk";
}
