#pragma once

#include <CommonKit/support/core/Export.h>

#include <QString>

namespace ko {

/// Supplied by the application: who is working, for the user name of action
/// log entries. The log writes "userName (groupName)", or userName alone when
/// groupName is empty.
class COMMONKIT_EXPORT IAccessGroup
{
public:
    /// The name of the user working now.
    virtual QString userName() const = 0;
    /// The user's group or another qualifier; may be empty.
    virtual QString groupName() const = 0;
    /// Declared after the two operations, which keep the first two slots.
    virtual ~IAccessGroup() = default;
};

} // namespace ko
