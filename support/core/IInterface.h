#pragma once

#include <CommonKit/support/core/Export.h>

namespace ko {

/// Minimal interface query: an object answers getInterface(name) with a pointer
/// to the named interface it implements, or null.
class COMMONKIT_EXPORT IInterface
{
public:
    /// Destroys the object through its interface.
    virtual ~IInterface() = default;
    /// A pointer to this object as the interface called name (its qualified
    /// class name, e.g. "ko::ILogWriter"), to be cast to that type by the
    /// caller; null for a null or unknown name. The object keeps ownership.
    virtual void* getInterface(const char* name) = 0;
    /// The const form of getInterface().
    virtual const void* getInterface(const char* name) const = 0;
};

} // namespace ko
