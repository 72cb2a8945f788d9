#include "Demo.h"

#include <algorithm>

namespace cktool {

DemoRegistry& DemoRegistry::instance()
{
    static DemoRegistry registry;
    return registry;
}

std::vector<DemoSection> DemoRegistry::sections() const
{
    std::vector<DemoSection> sorted = m_sections;
    std::stable_sort(sorted.begin(), sorted.end(),
                     [](const DemoSection& a, const DemoSection& b) { return a.rank < b.rank; });
    return sorted;
}

} // namespace cktool
