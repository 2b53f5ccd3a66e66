#include "phone/PhoneError.h"

#include <gtest/gtest.h>

namespace tessary {
namespace {

TEST(PhoneError, whatIsDecidedOnIsDecidedOnCodes) {
    struct Row {
        PhoneError code;
        bool ends;
        bool oneItem;
    };
    const Row rows[] = {
        {PhoneError::unplugged, true, false}, {PhoneError::nonsense, true, false},
        {PhoneError::busy, false, false},     {PhoneError::notFound, false, true},
        {PhoneError::refused, false, true},   {PhoneError::tooLarge, false, true},
        {PhoneError::full, false, false},
    };
    for (const Row& row : rows) {
        const Error error(row.code);
        EXPECT_EQ(endsEverything(error), row.ends) << error.what();
        EXPECT_EQ(concernsOneItem(error), row.oneItem) << error.what();
    }
}

TEST(Error, causesAreFoundAndLoggedButDoNotCountAsTheErrorItself) {
    const Error cause(PhoneError::noAnswer);
    const Error error(PhoneError::unreadable, {QStringLiteral("/a"), 3}, cause);
    EXPECT_TRUE(error.is(PhoneError::unreadable));
    EXPECT_FALSE(endsEverything(error));
    EXPECT_STREQ(error.what(), "unreadable (/a, 3), caused by noAnswer");
    EXPECT_EQ(error.find<PhoneError>(), PhoneError::unreadable);
    EXPECT_EQ(error.cause()->find<PhoneError>(), PhoneError::noAnswer);
}

} // namespace
} // namespace tessary
