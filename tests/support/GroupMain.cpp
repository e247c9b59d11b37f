// SPDX-FileCopyrightText: 2026 The Pallistrom authors
// SPDX-License-Identifier: MIT
#include <gtest/gtest.h>

// For a program whose cases are one test to CTest, which has one outcome for all of them: failed if
// one has, else skipped if one was, so that its reason is listed.
int main(int argc, char** argv) {
    constexpr int skipped = 77;
    testing::InitGoogleTest(&argc, argv);
    const int status = RUN_ALL_TESTS();
    const bool hasSkipped = testing::UnitTest::GetInstance()->skipped_test_count() > 0;
    return status == 0 && hasSkipped ? skipped : status;
}
