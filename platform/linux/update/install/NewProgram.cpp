// SPDX-FileCopyrightText: 2026 The Pallistrom authors
// SPDX-License-Identifier: MIT
#include "platform/linux/update/install/NewProgram.h"

#include "pallistrom/Names.h"
#include "platform/Bundle.h"
#include "platform/linux/application/CommandLine.h"
#include "platform/linux/bundle/InformationList.h"
#include "platform/linux/update/install/PackedFiles.h"
#include "platform/linux/update/install/Tools.h"

#include <QFile>
#include <QProcessEnvironment>

#include <unistd.h>

#include <array>
#include <fstream>
#include <system_error>

namespace pallistrom::NewProgram {

namespace {

namespace fs = std::filesystem;

constexpr std::size_t headerSize = 20;

std::string headerOf(const fs::path& file) {
    std::array<char, headerSize> header{};
    std::ifstream stream(file, std::ios::binary);
    stream.read(header.data(), header.size());
    return {header.data(), static_cast<std::size_t>(stream.gcount())};
}

fs::path programIn(const fs::path& folder) {
    return folder / "bin" / Names::program;
}

// A file itself: a link might lead to something else by the time it is started.
bool isFile(const fs::path& path) {
    std::error_code ignored;
    return fs::is_regular_file(fs::symlink_status(path, ignored));
}

} // namespace

std::string machineIn(std::string_view header) {
    constexpr std::size_t classOffset = 4; // then the byte order
    constexpr std::size_t classLength = 2;
    constexpr std::size_t machineOffset = 18;
    if (header.size() < headerSize || !header.starts_with("\177ELF")) {
        return {};
    }
    // Without the byte between: it names systems of the same processor.
    return std::string(header.substr(classOffset, classLength)) +
           std::string(header.substr(machineOffset, headerSize - machineOffset));
}

void prepareTrial(QProcess& process, const fs::path& folder) {
    Tools::prepare(process,
                   QFile::decodeName(programIn(folder).c_str()),
                   {QString::fromLatin1(CommandLine::version)});
    QProcessEnvironment environment = process.processEnvironment();
    // A function that is missing is to be missed now, not when it is called.
    environment.insert(QStringLiteral("LD_BIND_NOW"), QStringLiteral("1"));
    const QString libraries = QStringLiteral("LD_LIBRARY_PATH");
    if (qEnvironmentVariableIsSet("LD_LIBRARY_PATH")) {
        environment.insert(libraries, qEnvironmentVariable("LD_LIBRARY_PATH"));
    }
    process.setProcessEnvironment(environment);
    process.setStandardInputFile(QProcess::nullDevice());
}

Verdict
examine(const fs::path& folder, const std::string& offeredVersion, const fs::path& running) {
    const fs::path program = programIn(folder);
    if (!isFile(PackedFiles::listIn(folder)) || !isFile(program) ||
        access(program.c_str(), X_OK) != 0) {
        return Verdict::Incomplete;
    }
    const auto list = InformationList::ofProgramIn(program.parent_path());
    if (list.entry(CFBundleShortVersionString) != offeredVersion) {
        return Verdict::OtherVersion;
    }
    const std::string machine = machineIn(headerOf(program));
    if (machine.empty()) {
        return Verdict::Incomplete;
    }
    return machine == machineIn(headerOf(running)) ? Verdict::Fits : Verdict::OtherMachine;
}

} // namespace pallistrom::NewProgram
