// SPDX-FileCopyrightText: 2026 The Pallistrom authors
// SPDX-License-Identifier: MIT
#include "FakePlatform.h"
#include "platform/Precondition.h"
#include "platform/StatusItem.h"

#include <algorithm>
#include <array>
#include <utility>

namespace pallistrom {

using fake::Platform;

namespace {

class FakeStatusBarButton final : public NSStatusBarButton {
public:
    void setToolTip(std::string_view text) override {
        Platform::current().calls.emplace_back("setToolTip");
        Platform::current().toolTips.emplace_back(text);
    }

    void setImage(const std::optional<NSImage>& image) override {
        Platform::current().calls.emplace_back("setImage");
        Platform::current().images.push_back(image);
    }
};

class FakeStatusItem final : public NSStatusItem {
public:
    NSStatusBarButton* button() override {
        return Platform::current().hasStatusButton ? &m_button : nullptr;
    }

    void setMenu(NSMenu menu) override {
        Platform::current().calls.emplace_back("setMenu");
        Platform::current().menus.push_back(std::move(menu));
    }

private:
    FakeStatusBarButton m_button;
};

} // namespace

NSStatusItemRef statusItemWithLength(double length) {
    auto& platform = Platform::current();
    platform.calls.emplace_back("statusItemWithLength");
    precondition(length == NSVariableStatusItemLength, "another length");
    if (platform.whenCalled) {
        platform.whenCalled("statusItemWithLength");
    }
    if (!platform.hasStatusBar) {
        return nullptr;
    }
    auto item = std::make_shared<FakeStatusItem>();
    platform.statusItem = item;
    return item;
}

std::optional<NSImage> imageWithSystemSymbolName(std::string_view name,
                                                 std::string_view accessibilityDescription) {
    constexpr std::array<std::string_view, 5> symbols{"delete.left",
                                                      "delete.left.fill",
                                                      "exclamationmark.triangle",
                                                      "lock.shield",
                                                      "checkmark.circle.fill"};
    if (std::find(symbols.begin(), symbols.end(), name) == symbols.end() ||
        Platform::current().missingSymbols.contains(name)) {
        return std::nullopt;
    }
    return NSImage{.symbolName = std::string(name),
                   .accessibilityDescription = std::string(accessibilityDescription)};
}

// A full square.
SymbolCoverage drawSymbol(const NSImage& /*image*/, int height) {
    const auto side = static_cast<std::size_t>(height);
    return {
        .width = height, .height = height, .pixels = std::vector<std::uint8_t>(side * side, 255)};
}

} // namespace pallistrom
