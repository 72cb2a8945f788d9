// The process-wide entry factory used from several threads at once: kinds
// registered, replaced, created and listed concurrently. Run under the
// ThreadSanitizer build, an unguarded map shows up as a data race.

#include "TestEntries.h"

#include <CommonKit/logging/LogEntryFactory.h>

#include <gtest/gtest.h>

#include <atomic>
#include <memory>
#include <thread>
#include <vector>

namespace {

TEST(LogEntryFactoryThreads, RegisterCreateAndListConcurrently)
{
    ko::LogEntryFactory& factory = ko::logEntryFactory();
    factory.registerCreator("TstE", cktest::createTextEntry, "Text");
    constexpr int k_threads = 4;
    constexpr int k_rounds = 300;
    std::atomic<int> failures{0};
    std::vector<std::thread> threads;
    for (int t = 0; t < k_threads; ++t) {
        threads.emplace_back([&, t] {
            // Each thread owns two codes and swaps their creators back and
            // forth; all threads create the shared kind.
            const ko::FourChars text("TxT" + QString::number(t));
            const ko::FourChars note("NtT" + QString::number(t));
            for (int round = 0; round < k_rounds; ++round) {
                const bool swap = round % 2 == 1;
                factory.registerCreator(text, swap ? cktest::createNoteEntry : cktest::createTextEntry, "Threaded text");
                factory.registerCreator(note, swap ? cktest::createTextEntry : cktest::createNoteEntry, "Threaded note");
                const std::unique_ptr<ko::LogEntry> shared(factory.create("TstE"));
                const std::unique_ptr<ko::LogEntry> own(factory.create(text));
                const std::unique_ptr<ko::LogEntry> unknown(factory.create("Unk" + QString::number(t)));
                if (!shared || shared->type() != ko::FourChars("TstE"))
                    ++failures;
                if (!own || own->type() != ko::FourChars(swap ? "TstN" : "TstE"))
                    ++failures;
                if (unknown)
                    ++failures;
                if (!factory.types().contains(note) || factory.entryNames().isEmpty())
                    ++failures;
            }
        });
    }
    for (std::thread& thread : threads)
        thread.join();
    EXPECT_EQ(failures.load(), 0);
}

} // namespace
