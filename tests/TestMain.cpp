#include "tests/TestSupport.h"

int main(int argumentCount, char** arguments) {
    ::testing::InitGoogleMock(&argumentCount, arguments);
    // A death test forks; the threadsafe style starts afresh and so holds under sanitizers too.
    ::testing::GTEST_FLAG(death_test_style) = "threadsafe";
    return RUN_ALL_TESTS();
}
