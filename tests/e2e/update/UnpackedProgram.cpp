// SPDX-FileCopyrightText: 2026 The Pallistrom authors
// SPDX-License-Identifier: MIT
#include "UnpackedProgram.h"

#include "ChildProcess.h"
#include "Environment.h"

#include <fstream>
#include <iterator>
#include <stdexcept>

namespace pallistrom::e2e::UnpackedProgram {

namespace {

namespace fs = std::filesystem;

void runTool(const std::vector<std::string>& arguments) {
    run({.arguments = arguments,
         .environment = {{"PATH", Environment::value("PATH")}},
         .errorFile = "/dev/null"});
}

std::string textOf(const fs::path& file) {
    std::ifstream stream{file};
    return {std::istreambuf_iterator<char>{stream}, {}};
}

} // namespace

void install(const fs::path& folder) {
    for (const char* component : {"desktop", "archive"}) {
        runTool({CMAKE_PROGRAM,
                 "--install",
                 BUILD_FOLDER,
                 "--prefix",
                 folder,
                 "--component",
                 component,
                 "--strip"});
    }
}

void setInformation(const fs::path& folder, const std::map<std::string, std::string>& entries) {
    const fs::path file = folder / "share" / "pallistrom" / "Info.json";
    std::string text = textOf(file);
    for (const auto& [key, value] : entries) {
        const std::string start = '"' + key + "\": \"";
        const auto found = text.find(start);
        if (found == std::string::npos) {
            throw std::runtime_error{"the bundle information has no " + key};
        }
        const auto place = found + start.size();
        text.replace(place, text.find('"', place) - place, value);
    }
    std::ofstream{file} << text;
}

void pack(const fs::path& folder, const fs::path& archive) {
    // Packed in no time: it is unpacked soon.
    runTool({"tar",
             "--create",
             "--use-compress-program=xz -0",
             "--file",
             archive,
             "--directory",
             folder.parent_path(),
             folder.filename()});
}

void unpack(const fs::path& archive, const fs::path& folder) {
    fs::create_directories(folder);
    runTool({"tar", "--extract", "--file", archive, "--directory", folder, "--strip-components=1"});
}

} // namespace pallistrom::e2e::UnpackedProgram
