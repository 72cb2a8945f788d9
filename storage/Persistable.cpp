#include <CommonKit/storage/Persistable.h>

#include <CommonKit/support/core/Log.h>

#include <typeinfo>

namespace ko {

Persistable::~Persistable() = default;

// The warnings name typeid(this), the static type ko::Persistable*, not the
// class of the object: they say that some class forgot to override.
void Persistable::load(IPersistDestination* /*destination*/)
{
    LogLine(Log::Warning, "ko::Persistable::load")
        << "You should overwrite Persistable::load for class " << typeid(this).name();
}

void Persistable::save(IPersistDestination* /*destination*/)
{
    LogLine(Log::Warning, "ko::Persistable::save")
        << "You should overwrite Persistable::save for class " << typeid(this).name();
}

} // namespace ko
