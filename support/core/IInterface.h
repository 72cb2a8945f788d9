#pragma once

#include <CommonKit/support/core/Export.h>

namespace ko {

/// Minimal interface query: an object answers getInterface(name) with a pointer
/// to the named interface it implements, or null.
class COMMONKIT_EXPORT IInterface
{
public:
    virtual ~IInterface() = default;
    virtual void* getInterface(const char* name) = 0;
    virtual const void* getInterface(const char* name) const = 0;
};

} // namespace ko
