// SPDX-FileCopyrightText: 2026 The Pallistrom authors
// SPDX-License-Identifier: MIT
#include "TarMaker.h"

#include <array>
#include <cstddef>
#include <cstdio>

namespace pallistrom {

namespace {

constexpr std::size_t blockSize = 512;

void put(std::string& header, std::size_t offset, std::string_view text) {
    header.replace(offset, text.size(), text);
}

std::string octal(std::size_t number, int digits) {
    std::array<char, 32> text{};
    std::snprintf(text.data(), text.size(), "%0*zo", digits, number);
    return text.data();
}

} // namespace

TarMaker& TarMaker::note(std::string_view key, std::string_view value) {
    // The length counts its own digits, too.
    const std::size_t rest = key.size() + value.size() + 3;
    std::size_t length = rest + 1;
    while (std::to_string(length).size() + rest != length) {
        ++length;
    }
    std::string line = std::to_string(length);
    line += ' ';
    line += key;
    line += '=';
    line += value;
    line += '\n';
    return add('x', "note", line);
}

TarMaker& TarMaker::add(char type,
                        std::string_view path,
                        std::string_view content,
                        std::string_view target,
                        unsigned mode) {
    std::string header(blockSize, '\0');
    put(header, 0, path);
    put(header, 100, octal(mode, 7));
    put(header, 108, octal(0, 7));
    put(header, 116, octal(0, 7));
    put(header, 124, octal(content.size(), 11));
    put(header, 136, octal(0, 11));
    header[156] = type;
    put(header, 157, target);
    put(header, 257, std::string_view("ustar\00000", 8));
    m_bytes += withRightSum(header);
    m_bytes += content;
    m_bytes.append((blockSize - content.size() % blockSize) % blockSize, '\0');
    return *this;
}

std::string TarMaker::withRightSum(std::string header) {
    put(header, 148, "        ");
    std::size_t sum = 0;
    for (const char c : header) {
        sum += static_cast<unsigned char>(c);
    }
    put(header, 148, octal(sum, 6) + std::string(1, '\0') + ' ');
    return header;
}

} // namespace pallistrom
