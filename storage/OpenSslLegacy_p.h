#pragma once

// libcrypto 3 marks its low-level DES crypt, MD5 and Blowfish functions
// deprecated; the password hashing routines are defined by them. Wrap exactly
// those calls in these macros, so that the warning stays an error elsewhere.

#include <QtGlobal>

#define COMMONKIT_OPENSSL_LEGACY_BEGIN QT_WARNING_PUSH QT_WARNING_DISABLE_DEPRECATED
#define COMMONKIT_OPENSSL_LEGACY_END QT_WARNING_POP
