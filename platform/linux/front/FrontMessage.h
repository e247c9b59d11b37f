// SPDX-FileCopyrightText: 2026 The Pallistrom authors
// SPDX-License-Identifier: MIT
#pragma once

#include "platform/linux/front/FrontReport.h"

#include <QString>
#include <QVariantList>

#include <optional>

namespace pallistrom::FrontMessage {

/// Reads what a desktop's script says of the window in front:
///
///     ShowWindow(s instance, s name)   this window; one of both may be empty
///     ShowNobody()                     none
///     Leave()                          the script ends, nobody can tell any more
///
/// None if it is no such call, or not made so.
[[nodiscard]] std::optional<FrontReport>
read(const QString& member, const QString& signature, const QVariantList& arguments);

/// Describes the calls, in the way of introspection on the bus.
[[nodiscard]] QString introspection();

} // namespace pallistrom::FrontMessage
