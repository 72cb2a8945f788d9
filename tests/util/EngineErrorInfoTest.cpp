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

TEST(EngineErrorInfo, CopiesAndClonesKeepEveryField)
{
    const ConnectionErrorInfo original(ConnectionErrorTimeout, ErrorInfo::Fatal);
    const ConnectionErrorInfo copy(original);
    std::unique_ptr<ErrorInfo> clone(original.clone());
    for (const ErrorInfo* info : {static_cast<const ErrorInfo*>(&copy), const_cast<const ErrorInfo*>(clone.get())}) {
        EXPECT_EQ(info->commandId(), ErrorInfo::NO_CMD_ID);
        EXPECT_EQ(info->severity(), ErrorInfo::Fatal);
        EXPECT_EQ(info->errorId(), ErrorInfo::NO_ERROR_ID);
        EXPECT_TRUE(info->errorMessage().empty());
        Receiver receiver;
        info->dispatch(receiver);
        ASSERT_EQ(receiver.received, info);
        EXPECT_EQ(receiver.received->category(), ConnectionErrorTimeout);
        EXPECT_EQ(receiver.http, nullptr);
    }

    const HttpConnectionErrorInfo http(L"Not Found: /stream", HttpErrorStatus, 404, true, ErrorInfo::Warning);
    std::unique_ptr<ErrorInfo> httpClone(http.clone());
    Receiver receiver;
    httpClone->dispatch(receiver);
    ASSERT_NE(receiver.http, nullptr) << "an HTTP error arrives as itself";
    EXPECT_EQ(receiver.http->errorId(), 404);
    EXPECT_TRUE(receiver.http->isHttpStatusCode());
    EXPECT_EQ(receiver.http->errorType(), HttpErrorStatus);
    EXPECT_EQ(httpClone->errorMessage(), L"Not Found: /stream");
    EXPECT_EQ(httpClone->severity(), ErrorInfo::Warning);
    EXPECT_EQ(httpClone->commandId(), ErrorInfo::NO_CMD_ID);
    EXPECT_EQ(receiver.http->category(), ConnectionErrorUnspecified);
}

} // namespace
