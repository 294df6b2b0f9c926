/// Asked by the leak sanitizer. What fontconfig and Pango keep to the end of the process is theirs, and they
/// stay in memory with it. A host's Xlib can't close a display whose server is gone.
extern "C" [[gnu::visibility("default"), gnu::used]] const char* __lsan_default_suppressions()
{
    return "leak:libfontconfig\nleak:libpango\nleak:libglib\nleak:libX11\n";
}
