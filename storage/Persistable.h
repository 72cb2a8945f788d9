#pragma once

#include <CommonKit/support/core/Export.h>

namespace ko {

class IPersistDestination;

/// Base of the classes that keep state between runs. A subclass overrides both
/// operations, arranges its own keys with groups and arrays, and calls sync()
/// on the destination when it needs the data on disk. The base versions only
/// write a warning to the diagnostic log.
class COMMONKIT_EXPORT Persistable
{
public:
    /// Destroys the object; the destination it used is not touched.
    virtual ~Persistable();
    /// Reads the state from `destination` (not owned).
    virtual void load(IPersistDestination* destination);
    /// Writes the state to `destination` (not owned).
    virtual void save(IPersistDestination* destination);
};

} // namespace ko
