// Log values, entries, the category table and the entry factory.

#include "TestEntries.h"
#include "testlib/DataTable.h"

#include <CommonKit/logging/LogEntryFactory.h>
#include <CommonKit/logging/LogWriter.h>
#include <CommonKit/logging/XMLLogReader.h>
#include <CommonKit/resources/Translations.h>

#include <gtest/gtest.h>

#include <memory>
#include <stdexcept>

namespace {

using cktest::createNoteEntry;
using cktest::createTextEntry;
using cktest::NoteEntry;
using cktest::TextEntry;

TEST(LogValue, NumbersParseInDecimalOnlyAndAssignTakesTheSameTypeOnly)
{
    for (const cktest::DataRow& row : cktest::dataRows("logging/int-values.tsv", 2)) {
        ko::TLogValue<int> value("Numb", QStringLiteral("number"), 99);
        value.fromString(QString::fromStdString(row[0]));
        EXPECT_EQ(value.value, std::stoi(row[1])) << row.where;
        EXPECT_EQ(value.isSet(), row[1] != "0") << row.where;
        EXPECT_EQ(value.toString().toStdString(), row[1]) << row.where;
    }

    // assign() copies the value, not the id, and only from the same type.
    ko::TLogValue<int> number("Numb", QStringLiteral("number"), 5);
    number.assign(ko::TLogValue<QString>("Text", QStringLiteral("text"), QStringLiteral("17")));
    EXPECT_EQ(number.value, 5);
    number.assign(ko::TLogValue<int>("Othr", QStringLiteral("other"), 17));
    EXPECT_EQ(number.value, 17);
    EXPECT_EQ(number.idToString(), QStringLiteral("Numb"));
}

// The order of the values (time and user first) is checked by writeTo().
TEST(LogEntry, LookupFindsTheFirstMatchAndAppendSkipsNull)
{
    TextEntry entry(QStringLiteral("hello"), 3);
    EXPECT_EQ(entry.logValue("Text"), &entry.text);
    EXPECT_EQ(entry.logValue("Nope"), nullptr);

    // Values appended from outside the kind follow the kind's own; null is
    // not appended.
    ko::TLogValue<int> extra("Xtra", QStringLiteral("extra"), 5);
    entry.append(nullptr);
    entry.append(&extra);
    ASSERT_EQ(entry.values().size(), 6);
    EXPECT_EQ(entry.values().at(5), &extra);

    // Two values with the same id: the first one answers.
    struct Duplicated : TextEntry
    {
        Duplicated() : second("Text", QStringLiteral("second")) { append(&second); }
        ko::TLogValue<QString> second;
    } duplicated;
    EXPECT_EQ(duplicated.logValue("Text"), &duplicated.text);
}

TEST(LogEntry, DescriptionFillsTheTemplateOrListsTheValues)
{
    TextEntry entry(QStringLiteral("a%2b"), 7);
    entry.setUser(QStringLiteral("%1 user"));
    // Values fill the placeholders in turn by Qt's arg rules; time and user never do.
    EXPECT_EQ(entry.description(), QStringLiteral("Text 'a7b', number 7.")) << "arg replaces every copy of the lowest placeholder";

    // Only one value beyond the user, "x": what arg() makes of each template.
    struct OneValue : ko::LogEntry
    {
        OneValue() : text("Text", QStringLiteral("text"), QStringLiteral("x")) { append(&text); }
        ko::FourChars type() const override { return "OneV"; }
        ko::LogCategory category() const override { return {}; }
        QString format() const override { return templateText; }
        QString title() const override { return QString(); }
        ko::TLogValue<QString> text;
        QString templateText;
    } oneValue;
    for (const cktest::DataRow& row : cktest::dataRows("logging/description-templates.tsv", 2)) {
        oneValue.templateText = QString::fromStdString(row[0]);
        EXPECT_EQ(oneValue.description().toStdString(), row[1]) << row.where;
    }

    // No value beyond the user: the template as it is.
    struct Bare : cktest::UnregisteredEntry
    {
        QString format() const override { return QStringLiteral("Nothing %1"); }
    } bareWithTemplate;
    EXPECT_EQ(bareWithTemplate.description(), QStringLiteral("Nothing %1"));

    // Without a template: "name: text " per value after time and user.
    NoteEntry note;
    note.setUser(QStringLiteral("someone"));
    note.note.value = QStringLiteral("remember");
    EXPECT_EQ(note.description(), QStringLiteral("note: remember "));
}

// Values that carry placeholders for the next value multiply the length of
// the text; filling stops before that gets out of hand, while long plain
// values and ordinary chains are filled as always.
TEST(LogEntry, DescriptionStaysBoundedWhenValuesAreMadeOfPlaceholders)
{
    const QString tail = QStringLiteral("' reading action log '%1' in line '%2', column '%3'.");
    const QString twos = QStringLiteral("%2").repeated(20000);
    const QString threes = QStringLiteral("%3").repeated(20000);
    const QString longPlain = QStringLiteral("x").repeated(3 << 20);
    const struct { QString source; QString file; QString described; } rows[] = {
        // Chains fill as arg() always did: each value fills the one before.
        {QStringLiteral("%2 %2"), QStringLiteral("f%3"), QStringLiteral("Error 'f4 f4") + tail.arg(QStringLiteral("f4"), QStringLiteral("4"), QStringLiteral("5"))},
        // Long values without placeholders are filled whole.
        {longPlain, QStringLiteral("a.kol"), QStringLiteral("Error '") + longPlain + tail.arg(QStringLiteral("a.kol"), QStringLiteral("4"), QStringLiteral("5"))},
        {QStringLiteral("e"), longPlain, QStringLiteral("Error 'e") + tail.arg(longPlain, QStringLiteral("4"), QStringLiteral("5"))},
        // 20000 placeholders each filled with 40000 characters would make
        // 800 million: the file name and the numbers are left out.
        {twos, threes, QStringLiteral("Error '") + twos + QStringLiteral("' reading action log '%2' in line '%3', column '%4'.")},
        {threes, twos,
         QStringLiteral("Error '") + threes + QStringLiteral("' reading action log '%2' in line '%3', column '%4'.")},
    };
    for (const auto& row : rows) {
        ko::ParseXMLLogEntry entry(row.source, row.file, 4, 5);
        const QString described = entry.description();
        EXPECT_TRUE(described == row.described) << row.source.left(20).toStdString();
    }
}

TEST(LogEntry, CloneCopiesEveryValueAndEqualityIgnoresTheKindsOwnValues)
{
    // The log keeps clones: the values of other kinds are checked through it.
    TextEntry entry(QStringLiteral("copy me"), 42);
    entry.setUser(QStringLiteral("me"));
    std::unique_ptr<ko::LogEntry> copy(entry.clone());
    auto* text = dynamic_cast<TextEntry*>(copy.get());
    ASSERT_NE(text, nullptr);
    EXPECT_EQ(text->number.value, 42);
    EXPECT_TRUE(*copy == entry);

    cktest::UnregisteredEntry unregistered;
    EXPECT_EQ(unregistered.clone(), nullptr);

    // Equality looks at the type, category, time and user only.
    TextEntry first(QStringLiteral("one"), 1);
    TextEntry second(QStringLiteral("two"), 2);
    second.setTime(first.time());
    EXPECT_TRUE(first == second);

    second.setUser(QStringLiteral("other"));
    EXPECT_FALSE(first == second);
    second.setUser(QString());
    second.setTime(first.time().addSecs(1));
    EXPECT_TRUE(first != second);

    NoteEntry note;
    note.setTime(first.time());
    EXPECT_FALSE(first == note) << "different type and category";
}

// Records the calls a writer gets; throws on the attribute named throwOn. (That
// every value is passed in order, set or not, the prose writer's test shows.)
class RecordingWriter : public ko::ILogWriter
{
public:
    QStringList calls;
    QString throwOn;

    void* getInterface(const char*) override { return nullptr; }
    const void* getInterface(const char*) const override { return nullptr; }
    void writeStartDocument() override { calls << QStringLiteral("startDocument"); }
    void writeEndDocument() override { calls << QStringLiteral("endDocument"); }
    void writeStartElement(const ko::LogEntry& entry) override { calls << "start " + entry.type().toString(); }
    void writeEndElement(const ko::LogEntry& entry) override { calls << "end " + entry.type().toString(); }
    void writeAttribute(const ko::LogValue& value) override
    {
        if (value.idToString() == throwOn)
            throw std::runtime_error("attribute failed");
        calls << value.idToString();
    }
};

TEST(LogEntry, WriteToAlwaysEndsTheElement)
{
    TextEntry entry;
    RecordingWriter failing;
    failing.throwOn = QStringLiteral("Numb");
    EXPECT_THROW(entry.writeTo(failing), std::runtime_error);
    EXPECT_EQ(failing.calls, QStringList({"start TstE", "Time", "User", "Text", "end TstE"}));
}

ko::ELogCategory categoryOf(const char* letters)
{
    return static_cast<ko::ELogCategory>(static_cast<unsigned int>(ko::FourChars(letters)));
}

TEST(LogCategory, TableHasThirtySevenRowsInOrder)
{
    const std::vector<cktest::DataRow> table = cktest::dataRows("logging/categories.tsv", 2);
    const QList<ko::ELogCategory> ids = ko::LogCategory::categoryIds();
    ASSERT_EQ(ids.size(), 37);
    ASSERT_EQ(table.size(), 37u);
    QStringList names;
    for (int i = 0; i < ids.size(); ++i) {
        const cktest::DataRow& row = table[static_cast<std::size_t>(i)];
        EXPECT_EQ(ko::FourChars(ids.at(i)).toString().toStdString(), row[0]) << row.where;
        const ko::LogCategory category(categoryOf(row[0].c_str()));
        EXPECT_EQ(category.id, ids.at(i));
        EXPECT_EQ(category.name.toStdString(), row[1]) << row.where;
        names << QString::fromStdString(row[1]);
    }
    names.sort(Qt::CaseSensitive);
    EXPECT_EQ(ko::LogCategory::categoryNames(), names);
    EXPECT_EQ(static_cast<unsigned int>(ko::CategoryAccess), 0x41636573u);

    for (const char* unknown : {"Nope", "aces", "", "\x01\x02\x03\x04"}) {
        const ko::LogCategory category(categoryOf(unknown));
        EXPECT_EQ(category.id, ko::CategoryNone) << unknown;
        EXPECT_EQ(category.name, QStringLiteral("None"));
    }
}

// That every text is in both catalogues is checked with the catalogues
// themselves; here the names and texts follow the installed language.
TEST(LogCategory, TextsFollowTheInstalledLanguage)
{
    ASSERT_TRUE(ko::installTranslations(QLocale(QStringLiteral("de"))));
    EXPECT_EQ(ko::LogCategory(ko::CategoryError).name, QStringLiteral("Fehler"));
    EXPECT_EQ(ko::ParseXMLLogEntry().title(), QStringLiteral("Aktionsprotokollfehler"));
    EXPECT_TRUE(ko::LogCategory::categoryNames().contains(QStringLiteral("Geräte")));
    ASSERT_TRUE(ko::installTranslations(QLocale(QStringLiteral("fr"))));
    EXPECT_EQ(ko::ParseXMLLogEntry(QStringLiteral("e"), QStringLiteral("f"), 1, 2).description(),
              QStringLiteral("Erreur 'e' lors de la lecture du journal des actions 'f' à la ligne '1', colonne '2'."));
    ko::removeTranslations();
    EXPECT_EQ(ko::LogCategory(ko::CategoryError).name, QStringLiteral("Error"));
}

TEST(LogEntryFactory, RegistersReplacesAndRemembersUnknownCodes)
{
    ko::LogEntryFactory factory;
    EXPECT_EQ(factory.create("Abcd"), nullptr);
    EXPECT_EQ(factory.types(), QList<ko::FourChars>({"Abcd"})) << "insert-on-miss leaves the code behind";
    EXPECT_EQ(factory.create("Abcd"), nullptr) << "and it still creates nothing";
    EXPECT_TRUE(factory.entryNames().isEmpty());

    factory.registerCreator("Zzzz", createNoteEntry, "zeta");
    factory.registerCreator("Aaaa", createTextEntry, "Beta");
    factory.registerCreator("Mmmm", createTextEntry, "alpha");
    std::unique_ptr<ko::LogEntry> entry(factory.create("Zzzz"));
    ASSERT_NE(entry, nullptr);
    EXPECT_EQ(entry->type(), ko::FourChars("TstN"));
    EXPECT_EQ(factory.entryNames(), QStringList({"Beta", "alpha", "zeta"})) << "sorted case-sensitively";
    EXPECT_EQ(factory.types(), QList<ko::FourChars>({"Aaaa", "Abcd", "Mmmm", "Zzzz"})) << "numeric order";

    // A copy is independent of the original.
    ko::LogEntryFactory copy = factory;
    factory.registerCreator("Zzzz", createTextEntry, "omega");
    entry.reset(copy.create("Zzzz"));
    EXPECT_EQ(entry->type(), ko::FourChars("TstN"));
    entry.reset(factory.create("Zzzz"));
    EXPECT_EQ(entry->type(), ko::FourChars("TstE")) << "a second registration replaces the first";
    EXPECT_EQ(factory.entryNames(), QStringList({"Beta", "alpha", "omega"}));
}

} // namespace
