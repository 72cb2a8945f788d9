#include <CommonKit/support/core/Exception.h>

#include <gtest/gtest.h>

namespace {

// what() gives the message as UTF-8, and the cause travels along. (The
// fields of the typed exceptions are checked where the properties throw them.)
TEST(Exception, CarriesUtf8MessageAndCause)
{
    std::exception_ptr cause;
    try {
        throw ko::Exception("disk full");
    } catch (...) {
        cause = std::current_exception();
    }
    const ko::UnexpectedTypeException error(QStringLiteral("speed"), QStringLiteral("QString"), QStringLiteral("int"),
                                            QString::fromUtf8("Gr\xc3\xb6\xc3\x9f" "e"), cause);
    EXPECT_STREQ(error.what(), "Gr\xc3\xb6\xc3\x9f" "e");
    ASSERT_TRUE(error.cause());
    try {
        std::rethrow_exception(error.cause());
    } catch (const ko::Exception& inner) {
        EXPECT_EQ(inner.message(), "disk full");
    }
}

} // namespace
