// Linked into every test program of a ThreadSanitizer build (ORVEXXML_TSAN). Suppresses only
// reports that come from code that is not ours and whose synchronisation ThreadSanitizer can't
// see, so that `ctest -L threads` needs no options to run clean.

extern "C" const char* __tsan_default_suppressions() {
    // glibc loads and unloads the iconv modules of the code pages (dlopen, dlclose) under a lock
    // of its own dynamic loader, which ThreadSanitizer doesn't intercept. When a thread ends it
    // closes its converters; the last close of a module frees loader records that the thread
    // which loaded the module wrote, and that looks like a race with it.
    return "race:_dl_close_worker\n";
}
