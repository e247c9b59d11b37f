// SPDX-FileCopyrightText: 2026 The Pallistrom authors
// SPDX-License-Identifier: MIT
#pragma once

#include <QByteArray>
#include <QString>
#include <QVariantList>

#include <optional>

namespace pallistrom {

/// What somebody on the session bus asks of the program, by the interface
/// org.freedesktop.Application.
struct ApplicationRequest {
    enum class Kind { Activate, Action };

    Kind kind = Kind::Activate;
    QString action;    ///< its name
    QString parameter; ///< of the action; empty for none
    QByteArray activationToken;

    /// Reads a call. None if there is no such call, or if it is not made as the interface says.
    [[nodiscard]] static std::optional<ApplicationRequest>
    read(const QString& member, const QString& signature, const QVariantList& arguments);

    /// Whether one of both is enough, whatever their tokens. What has a parameter flips something,
    /// so that twice is not once.
    [[nodiscard]] bool asksLike(const ApplicationRequest& other) const {
        return kind == other.kind && action == other.action && parameter.isEmpty() &&
               other.parameter.isEmpty();
    }
};

} // namespace pallistrom
