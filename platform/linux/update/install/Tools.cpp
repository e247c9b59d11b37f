// SPDX-FileCopyrightText: 2026 The Pallistrom authors
// SPDX-License-Identifier: MIT
#include "platform/linux/update/install/Tools.h"

#include <QFile>
#include <QProcessEnvironment>
#include <QStandardPaths>

namespace pallistrom::Tools {

namespace {

// First where nobody but the system puts programs.
QString pathOf(const QString& program) {
    const QString found = QStandardPaths::findExecutable(
        program, {QStringLiteral("/usr/bin"), QStringLiteral("/bin")});
    return found.isEmpty() ? program : found;
}

} // namespace

void prepare(QProcess& process, const QString& program, const QStringList& arguments) {
    QProcessEnvironment environment;
    environment.insert(QStringLiteral("PATH"), qEnvironmentVariable("PATH"));
    environment.insert(QStringLiteral("LC_ALL"), QStringLiteral("C"));
    process.setProcessEnvironment(environment);
    process.setProgram(pathOf(program));
    process.setArguments(arguments);
    process.setStandardErrorFile(QProcess::nullDevice());
}

QString unpackerFor(std::string_view bytes) {
    constexpr std::string_view xz("\xFD\x37\x7A\x58\x5A\x00", 6);
    constexpr std::string_view gzip("\x1F\x8B");
    if (bytes.starts_with(xz)) {
        return QStringLiteral("xz");
    }
    return bytes.starts_with(gzip) ? QStringLiteral("gzip") : QString();
}

void removeLater(const std::filesystem::path& folder) {
    QProcess process;
    prepare(process,
            QStringLiteral("rm"),
            {QStringLiteral("-rf"),
             QStringLiteral("--one-file-system"),
             QStringLiteral("--"),
             QFile::decodeName(folder.c_str())});
    process.startDetached();
}

} // namespace pallistrom::Tools
