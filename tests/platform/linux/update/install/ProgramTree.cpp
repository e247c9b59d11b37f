// SPDX-FileCopyrightText: 2026 The Pallistrom authors
// SPDX-License-Identifier: MIT
#include "ProgramTree.h"

#include "ChildProcess.h"

#include <fstream>
#include <iterator>

namespace pallistrom::ProgramTree {

namespace {

namespace fs = std::filesystem;

constexpr const char* program = "bin/pallistrom";

std::string contentOf(const fs::path& file) {
    std::ifstream stream(file, std::ios::binary);
    return {std::istreambuf_iterator<char>{stream}, {}};
}

// Of a link, where it leads, which no content begins with.
std::string linkTo(const std::string& target) {
    return "-> " + target;
}

} // namespace

Tree ofVersion(const std::string& version) {
    // What follows a program in its file does not keep it from running.
    Tree tree{
        {program, contentOf(STARTING_PROGRAM) + version},
        {"share/pallistrom/Info.json", "{\"CFBundleShortVersionString\": \"" + version + "\"}"},
        {"share/doc/" + version, std::string(3000, 'x') + version},
        {"share/doc/newest", linkTo(version)}};
    std::string& list = tree["share/pallistrom/relocatable"];
    for (const auto& entry : tree) {
        list += entry.first + '\n';
    }
    return tree;
}

void write(const Tree& tree, const fs::path& folder) {
    for (const auto& [path, content] : tree) {
        fs::create_directories((folder / path).parent_path());
        if (content.starts_with("-> ")) {
            fs::create_symlink(content.substr(3), folder / path);
        } else {
            std::ofstream(folder / path, std::ios::binary) << content;
        }
    }
    if (tree.contains(program)) {
        fs::permissions(folder / program, fs::perms::owner_all);
    }
}

TarMaker packed(const Tree& tree) {
    TarMaker maker;
    maker.folder("pallistrom-new/");
    for (const auto& [path, content] : tree) {
        const std::string place = "pallistrom-new/" + path;
        if (content.starts_with("-> ")) {
            maker.link(place, content.substr(3));
        } else {
            maker.file(place, content, path == program ? 0755 : 0644);
        }
    }
    return maker;
}

Tree read(const fs::path& folder) {
    Tree tree;
    for (const auto& entry : fs::recursive_directory_iterator(folder)) {
        const std::string path = entry.path().lexically_relative(folder).string();
        if (entry.is_symlink()) {
            tree[path] = linkTo(fs::read_symlink(entry.path()).string());
        } else if (!entry.is_directory()) {
            tree[path] = contentOf(entry.path());
        }
    }
    return tree;
}

void writeFile(const fs::path& file, const std::string& bytes, const std::string& compressor) {
    std::ofstream(file, std::ios::binary) << bytes;
    if (!compressor.empty()) {
        run({.arguments = {"/bin/sh",
                           "-c",
                           compressor + " --stdout '" + file.string() + "' >'" + file.string() +
                               ".packed' && mv '" + file.string() + ".packed' '" + file.string() +
                               "'"},
             .environment = {{"PATH", "/usr/bin:/bin"}}});
    }
}

} // namespace pallistrom::ProgramTree
