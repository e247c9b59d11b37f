// SPDX-FileCopyrightText: 2026 The Pallistrom authors
// SPDX-License-Identifier: MIT
#include "platform/Image.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cstddef>
#include <numeric>
#include <string>

namespace pallistrom {

namespace {

class Symbols : public testing::TestWithParam<std::string> {
protected:
    static SymbolCoverage drawn(int height) {
        const auto image = imageWithSystemSymbolName(GetParam(), "Pallistrom");
        return image ? drawSymbol(*image, height) : SymbolCoverage{};
    }

    /// Which part of its area a symbol covers.
    static double ink(const SymbolCoverage& coverage) {
        const double sum = std::accumulate(coverage.pixels.begin(), coverage.pixels.end(), 0.0);
        return sum / 255.0 / static_cast<double>(coverage.pixels.size());
    }
};

TEST_P(Symbols, areThereByName) {
    const auto image = imageWithSystemSymbolName(GetParam(), "Pallistrom");
    ASSERT_TRUE(image);
    EXPECT_EQ(image->symbolName, GetParam());
    EXPECT_EQ(image->accessibilityDescription, "Pallistrom");
    EXPECT_FALSE(image->isTemplate);
}

TEST_P(Symbols, areDrawnInEverySizeWithTheSameShape) {
    const SymbolCoverage large = drawn(256);
    for (const int height : {16, 22, 33, 64, 1024}) {
        SCOPED_TRACE(height);
        const SymbolCoverage coverage = drawn(height);
        ASSERT_EQ(coverage.height, height);
        ASSERT_EQ(coverage.pixels.size(),
                  static_cast<std::size_t>(coverage.width) * static_cast<std::size_t>(height));
        EXPECT_NEAR(coverage.width, height * large.width / 256.0, 1.0);
        EXPECT_NEAR(ink(coverage), ink(large), 0.06);
    }
}

TEST_P(Symbols, canBeAsSmallAndAsLargeAsPromised) {
    EXPECT_FALSE(drawn(1).pixels.empty());
    EXPECT_EQ(drawn(4096).height, 4096);
}

TEST_P(Symbols, areDarkEnoughToBeSeenInTheSizeOfATray) {
    const SymbolCoverage coverage = drawn(16);
    EXPECT_GE(std::count_if(coverage.pixels.begin(),
                            coverage.pixels.end(),
                            [](std::uint8_t pixel) { return pixel > 200; }),
              24);
}

TEST_P(Symbols, areNotCutOffAtTheirEdges) {
    const SymbolCoverage coverage = drawn(256);
    const auto at = [&](int x, int y) {
        return coverage.pixels.at(static_cast<std::size_t>(y) *
                                      static_cast<std::size_t>(coverage.width) +
                                  static_cast<std::size_t>(x));
    };
    for (int x = 0; x < coverage.width; ++x) {
        EXPECT_EQ(at(x, 0) + at(x, 255), 0) << "column " << x;
    }
    for (int y = 0; y < 256; ++y) {
        EXPECT_EQ(at(0, y) + at(coverage.width - 1, y), 0) << "row " << y;
    }
}

INSTANTIATE_TEST_SUITE_P(,
                         Symbols,
                         testing::Values("delete.left",
                                         "delete.left.fill",
                                         "exclamationmark.triangle",
                                         "lock.shield",
                                         "checkmark.circle.fill"),
                         [](const auto& test) {
                             std::string name = test.param;
                             std::replace(name.begin(), name.end(), '.', '_');
                             return name;
                         });

TEST(SymbolNames, thatAreUnknownGiveNoImage) {
    EXPECT_FALSE(imageWithSystemSymbolName("delete.right", "Pallistrom"));
    EXPECT_FALSE(imageWithSystemSymbolName("", "Pallistrom"));
    EXPECT_FALSE(imageWithSystemSymbolName("../symbols/delete.left", "Pallistrom"));
    EXPECT_TRUE(drawSymbol({.symbolName = "delete.right", .accessibilityDescription = {}}, 16)
                    .pixels.empty());
}

} // namespace

} // namespace pallistrom
