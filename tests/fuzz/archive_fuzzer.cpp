// SPDX-FileCopyrightText: 2026 The Pallistrom authors
// SPDX-License-Identifier: MIT
#include "platform/linux/update/install/ArchiveRules.h"
#include "platform/linux/update/install/TarReader.h"

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <cstdlib>
#include <string>
#include <string_view>

// The bytes are an archive of the program, but for the first, by which the reader gets it in
// pieces.

namespace {

using namespace pallistrom;

void promise(bool isKept) {
    if (!isKept) {
        std::abort();
    }
}

/// Takes what the rules allow, and looks whether it could do harm.
class Judge final : public TarReader::Receiver {
public:
    bool begin(const TarEntry& entry) override {
        promise(!m_isOpen);
        const auto place = m_rules.placeOf(entry);
        if (!place) {
            return false;
        }
        const std::string_view path = *place;
        promise(!path.starts_with('/') && path.find('\0') == std::string_view::npos);
        promise(("/" + *place + "/").find("/../") == std::string::npos);
        promise(entry.kind != TarEntry::Kind::Link || !entry.target.starts_with('/'));
        m_all += entry.size;
        promise(m_all <= ArchiveRules::mostBytes);
        m_isOpen = true;
        m_left = entry.size;
        return true;
    }

    bool addBytes(std::string_view bytes) override {
        promise(m_isOpen && bytes.size() <= m_left);
        m_left -= bytes.size();
        return true;
    }

    bool end() override {
        promise(m_isOpen && m_left == 0);
        m_isOpen = false;
        return true;
    }

private:
    ArchiveRules m_rules;
    bool m_isOpen = false;
    std::uint64_t m_left = 0;
    std::uint64_t m_all = 0;
};

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    std::string_view bytes(reinterpret_cast<const char*>(data), size);
    if (bytes.empty()) {
        return 0;
    }
    const std::size_t piece = static_cast<std::uint8_t>(bytes.front()) + std::size_t{1};
    bytes.remove_prefix(1);
    Judge judge;
    TarReader reader(judge);
    while (!bytes.empty() && reader.take(bytes.substr(0, piece))) {
        bytes.remove_prefix(std::min(piece, bytes.size()));
    }
    return 0;
}
