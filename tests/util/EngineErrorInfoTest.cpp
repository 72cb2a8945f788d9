#include <CommonKit/util/EngineErrorInfo.h>

#include <gtest/gtest.h>

#include <memory>

namespace {

using namespace ze::Engine;

// Records what dispatch delivered.
struct Receiver : ErrorInfoReceiver
{
    void receive(const ConnectionErrorInfo& info) override
    {
        received = &info;
        http = dynamic_cast<const HttpConnectionErrorInfo*>(&info);
    }
    const ConnectionErrorInfo* received = nullptr;
    const HttpConnectionErrorInfo* http = nullptr;
};

// A clone keeps its concrete class, which dispatch() hands to the receiver,
// and every field; an HTTP error has the unspecified connection category.
TEST(EngineErrorInfo, ClonesKeepTheirClassAndEveryField)
{
    const ConnectionErrorInfo timeout(ConnectionErrorTimeout, ErrorInfo::Fatal);
    const HttpConnectionErrorInfo http(L"Not Found: /stream", HttpErrorStatus, 404, true, ErrorInfo::Warning);
    struct Row { const ConnectionErrorInfo* info; int severity; int errorId; std::wstring message; int category; };
    const Row rows[] = {
        {&timeout, ErrorInfo::Fatal, ErrorInfo::NO_ERROR_ID, L"", ConnectionErrorTimeout},
        {&http, ErrorInfo::Warning, 404, L"Not Found: /stream", ConnectionErrorUnspecified},
    };
    for (const auto& row : rows) {
        std::unique_ptr<ErrorInfo> clone(row.info->clone());
        Receiver receiver;
        clone->dispatch(receiver);
        ASSERT_EQ(receiver.received, clone.get());
        EXPECT_EQ(receiver.http != nullptr, row.info == &http) << "an HTTP error arrives as itself, no other";
        EXPECT_EQ(clone->commandId(), ErrorInfo::NO_CMD_ID);
        EXPECT_EQ(clone->severity(), row.severity);
        EXPECT_EQ(clone->errorId(), row.errorId);
        EXPECT_EQ(clone->errorMessage(), row.message);
        EXPECT_EQ(receiver.received->category(), row.category);
        if (receiver.http) {
            EXPECT_TRUE(receiver.http->isHttpStatusCode());
            EXPECT_EQ(receiver.http->errorType(), HttpErrorStatus);
        }
    }
}

} // namespace
