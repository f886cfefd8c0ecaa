#pragma once

// With this glibc, the address sanitizer's tracking of dynamic thread-local storage misreads what
// Qt's plugins (image formats, icon engines) set up, and its leak check then dies at exit with
// "Tracer caught signal 11". Without that tracking the leak check works and stays on.
#if defined(__SANITIZE_ADDRESS__)
extern "C" const char* __asan_default_options() { return "intercept_tls_get_addr=0"; }
#endif
