// SPDX-FileCopyrightText: 2026 The Pallistrom authors
// SPDX-License-Identifier: MIT
#pragma once

#include <cstdint>
#include <optional>
#include <string>

namespace pallistrom {

/// Whether the system starts the program when the user logs in. Values: ServiceManagement,
/// SMAppService.h.
enum class SMAppServiceStatus : std::int64_t {
    SMAppServiceStatusNotRegistered = 0,
    SMAppServiceStatusEnabled = 1,
    SMAppServiceStatusRequiresApproval = 2, ///< wished for, and switched off by the user elsewhere
    SMAppServiceStatusNotFound = 3,         ///< what is to be started, or kept, cannot be
};

/// Why something failed.
struct NSError {
    std::string localizedDescription;
};

/// This application as a login item. Holds nothing: every call looks at the system again.
class SMAppService {
public:
    /// Returns the service object for this application.
    static SMAppService mainAppService();

    [[nodiscard]] SMAppServiceStatus status() const;

    /// Makes the system start the program at login. Returns what went wrong, if anything did.
    [[nodiscard]] std::optional<NSError> registerAndReturnError() const;

    /// The opposite.
    [[nodiscard]] std::optional<NSError> unregisterAndReturnError() const;

private:
    SMAppService() = default;
};

} // namespace pallistrom
