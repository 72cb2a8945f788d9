#pragma once

// Symbol visibility for the CommonKit shared library. The library is built
// with hidden symbols; every public class and function carries
// COMMONKIT_EXPORT. This header has no dependencies so that the Qt-free
// platform layer can use it too.

/// \def COMMONKIT_EXPORT
/// Marks a class or function as part of the library's interface: exported
/// while the library is built (COMMONKIT_BUILDING_LIBRARY), imported by its
/// users on Windows unless they link it statically (COMMONKIT_STATIC), and of
/// default visibility elsewhere.

#if defined(_WIN32) || defined(__CYGWIN__)
#  if defined(COMMONKIT_BUILDING_LIBRARY)
#    define COMMONKIT_EXPORT __declspec(dllexport)
#  elif defined(COMMONKIT_STATIC)
#    define COMMONKIT_EXPORT
#  else
#    define COMMONKIT_EXPORT __declspec(dllimport)
#  endif
#else
#  define COMMONKIT_EXPORT __attribute__((visibility("default")))
#endif
