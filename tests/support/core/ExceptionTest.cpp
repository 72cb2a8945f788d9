#include <CommonKit/support/core/Exception.h>

#include <gtest/gtest.h>

namespace {

TEST(Exception, CarriesMessagesAndCause)
{
    std::exception_ptr cause;
    try {
        throw ko::Exception("disk full");
    } catch (...) {
        cause = std::current_exception();
    }
    const QString umlaut = QString::fromUtf8("Gr\xc3\xb6\xc3\x9f" "e");
    try {
        throw ko::UnexpectedTypeException(QStringLiteral("speed"), QStringLiteral("QString"),
                                          QStringLiteral("int"), umlaut, cause);
    } catch (const ko::ExceptionQt& error) {
        EXPECT_EQ(error.messageQt(), umlaut);
        EXPECT_STREQ(error.what(), "Gr\xc3\xb6\xc3\x9f" "e");
        const auto* typed = dynamic_cast<const ko::UnexpectedTypeException*>(&error);
        ASSERT_NE(typed, nullptr);
        EXPECT_EQ(typed->name(), QStringLiteral("speed"));
        EXPECT_EQ(typed->actualType(), QStringLiteral("QString"));
        EXPECT_EQ(typed->expectedType(), QStringLiteral("int"));
        ASSERT_TRUE(error.cause());
        try {
            std::rethrow_exception(error.cause());
        } catch (const ko::Exception& inner) {
            EXPECT_EQ(inner.message(), "disk full");
            EXPECT_FALSE(inner.cause());
        }
    }
}

TEST(Exception, IllegalArgumentIsAnExceptionQt)
{
    try {
        throw ko::IllegalArgumentException(QStringLiteral("-3"), QStringLiteral("negative size"));
    } catch (const ko::Exception& error) {
        const auto& illegal = dynamic_cast<const ko::IllegalArgumentException&>(error);
        EXPECT_EQ(illegal.text(), QStringLiteral("-3"));
        EXPECT_EQ(illegal.messageQt(), QStringLiteral("negative size"));
    }
}

} // namespace
