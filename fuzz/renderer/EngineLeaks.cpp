// What the script engine allocates once and never frees is no leak of ours.

extern "C" const char* __lsan_default_suppressions();

extern "C" const char* __lsan_default_suppressions() {
  return "leak:libjavascriptcoregtk";
}
