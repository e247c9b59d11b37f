// SPDX-FileCopyrightText: 2026 The Pallistrom authors
// SPDX-License-Identifier: MIT
#pragma once

#include <QProcess>
#include <QString>

#include <filesystem>
#include <string_view>

/// The system's own programs, run as children for what takes long.
namespace pallistrom::Tools {

/// Prepares `process` to run one of them: where it lies, and in an environment that changes
/// nothing of what it does.
void prepare(QProcess& process, const QString& program, const QStringList& arguments);

/// Returns by which program a compressed file that begins with `bytes` is unpacked; empty if by
/// none.
[[nodiscard]] QString unpackerFor(std::string_view bytes);

/// Removes a folder with all that it holds, and waits for nobody.
void removeLater(const std::filesystem::path& folder);

} // namespace pallistrom::Tools
