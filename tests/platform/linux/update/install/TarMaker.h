// SPDX-FileCopyrightText: 2026 The Pallistrom authors
// SPDX-License-Identifier: MIT
#pragma once

#include <string>
#include <string_view>

namespace pallistrom {

/// Makes archives, good ones and others, byte by byte.
class TarMaker {
public:
    TarMaker& folder(std::string_view path) { return add('5', path, {}); }

    TarMaker& file(std::string_view path, std::string_view content, unsigned mode = 0644) {
        return add('0', path, content, {}, mode);
    }

    TarMaker& link(std::string_view path, std::string_view target) {
        return add('2', path, {}, target);
    }

    /// Adds a note in the form of POSIX about the next entry.
    TarMaker& note(std::string_view key, std::string_view value);

    /// Adds an entry of any type.
    TarMaker& add(char type,
                  std::string_view path,
                  std::string_view content,
                  std::string_view target = {},
                  unsigned mode = 0755);

    /// Returns what was added, without an end.
    [[nodiscard]] const std::string& bytes() const { return m_bytes; }

    /// Returns the archive.
    [[nodiscard]] std::string archive() const { return m_bytes + std::string(1024, '\0'); }

    /// Returns a header whose sum is right again after a change of some of its bytes.
    [[nodiscard]] static std::string withRightSum(std::string header);

private:
    std::string m_bytes;
};

} // namespace pallistrom
