#pragma once

#include <QDir>
#include <QString>
#include <QTextStream>

#include <vector>

namespace cktool {

// What a demo section gets: a private scratch directory and the output.
struct DemoContext
{
    QDir workDir;
    QTextStream& out;

    QString path(const QString& fileName) const { return workDir.filePath(fileName); }
};

// One section of "commonkit demo". Sections register themselves with a static
// DemoRegistration and run in the order of their rank (lowest first). A
// section returns false when something it shows did not work as expected.
struct DemoSection
{
    int rank;
    const char* title; // translatable, context "cktool"
    bool (*run)(DemoContext& context);
};

class DemoRegistry
{
public:
    static DemoRegistry& instance();
    void add(const DemoSection& section) { m_sections.push_back(section); }
    std::vector<DemoSection> sections() const; // sorted by rank

private:
    std::vector<DemoSection> m_sections;
};

struct DemoRegistration
{
    explicit DemoRegistration(const DemoSection& section) { DemoRegistry::instance().add(section); }
};

} // namespace cktool
