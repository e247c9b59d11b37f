// SPDX-FileCopyrightText: 2026 The Pallistrom authors
// SPDX-License-Identifier: MIT
#include "platform/linux/update/install/TarReader.h"

#include <algorithm>
#include <charconv>
#include <optional>
#include <system_error>
#include <utility>

namespace pallistrom {

namespace {

constexpr std::size_t longestNote = 65536;

struct Field {
    std::size_t offset;
    std::size_t length;
};

// The header: ustar in POSIX.1.
constexpr Field nameField{0, 100};
constexpr Field modeField{100, 8};
constexpr Field sizeField{124, 12};
constexpr Field checksumField{148, 8};
constexpr Field targetField{157, 100};
constexpr Field magicField{257, 8};
constexpr Field prefixField{345, 155};
constexpr std::size_t typeOffset = 156;
constexpr std::string_view posixMagic("ustar\00000", 8);
constexpr std::string_view gnuMagic("ustar  \0", 8);

std::string_view bytesOf(std::string_view block, Field field) {
    return block.substr(field.offset, field.length);
}

std::string textOf(std::string_view block, Field field) {
    const std::string_view bytes = bytesOf(block, field);
    return std::string(bytes.substr(0, bytes.find('\0')));
}

// Octal digits, and spaces or NULs after them. Anything else is no number, not even nothing.
std::optional<std::uint64_t> numberOf(std::string_view block, Field field) {
    std::string_view digits = bytesOf(block, field);
    digits.remove_prefix(std::min(digits.find_first_not_of(' '), digits.size()));
    std::uint64_t number = 0;
    const char* const end = digits.data() + digits.size();
    const auto [rest, error] = std::from_chars(digits.data(), end, number, 8);
    const bool isPadded = std::all_of(rest, end, [](char c) { return c == ' ' || c == '\0'; });
    return error == std::errc() && isPadded ? std::optional(number) : std::nullopt;
}

bool isZeros(std::string_view block) {
    return std::all_of(block.begin(), block.end(), [](char c) { return c == '\0'; });
}

// The sum of all bytes, those of the sum itself taken for spaces.
bool hasRightSum(std::string_view block) {
    std::uint64_t sum = 0;
    for (std::size_t i = 0; i < block.size(); ++i) {
        const bool isOfSum =
            i >= checksumField.offset && i < checksumField.offset + checksumField.length;
        sum += static_cast<unsigned char>(isOfSum ? ' ' : block[i]);
    }
    return numberOf(block, checksumField) == sum;
}

std::uint64_t paddingAfter(std::uint64_t size) {
    return (TarReader::blockSize - size % TarReader::blockSize) % TarReader::blockSize;
}

std::string withoutNul(std::string text) {
    text.resize(std::min(text.find('\0'), text.size()));
    return text;
}

} // namespace

bool TarReader::take(std::string_view bytes) {
    bool isGood = m_state != State::Refused;
    while (isGood && !bytes.empty() && m_state != State::Ended) {
        switch (m_state) {
        case State::Header:
        case State::SecondZeros:
            if (const std::string_view block = takeBlock(bytes); !block.empty()) {
                isGood = readHeader(block);
                m_block.clear();
            }
            break;
        case State::Bytes:
        case State::Note:
        case State::Padding:
            isGood = takeContent(bytes);
            break;
        case State::Ended:
        case State::Refused:
            break;
        }
    }
    if (!isGood) {
        m_state = State::Refused;
    }
    return isGood;
}

// Returns a block once it is whole. It is valid until m_block changes.
std::string_view TarReader::takeBlock(std::string_view& bytes) {
    const std::size_t count = std::min(blockSize - m_block.size(), bytes.size());
    m_block.append(bytes.substr(0, count));
    bytes.remove_prefix(count);
    return m_block.size() == blockSize ? std::string_view(m_block) : std::string_view();
}

bool TarReader::readHeader(std::string_view block) {
    if (isZeros(block)) {
        m_state = m_state == State::SecondZeros ? State::Ended : State::SecondZeros;
        // A note has to be followed by what it is about.
        return m_path.empty() && m_target.empty();
    }
    const auto size = numberOf(block, sizeField);
    const std::string_view magic = bytesOf(block, magicField);
    if (m_state == State::SecondZeros || (magic != posixMagic && magic != gnuMagic) || !size ||
        !hasRightSum(block)) {
        return false;
    }
    switch (const char type = block[typeOffset]; type) {
    case 'x':
        return beginNote(Note::Extended, *size);
    case 'g':
        return beginNote(Note::Ignored, *size);
    case 'L':
        return beginNote(Note::LongPath, *size);
    case 'K':
        return beginNote(Note::LongTarget, *size);
    default:
        return beginEntry(block, type, *size);
    }
}

bool TarReader::beginEntry(std::string_view block, char type, std::uint64_t size) {
    constexpr std::uint64_t executableBits = 0111;
    TarEntry entry{.path = std::exchange(m_path, {}), .target = std::exchange(m_target, {})};
    if (entry.path.empty()) {
        const bool hasPrefix = bytesOf(block, magicField) == posixMagic;
        const std::string prefix = hasPrefix ? textOf(block, prefixField) : std::string();
        entry.path = (prefix.empty() ? prefix : prefix + '/') + textOf(block, nameField);
    }
    if (entry.target.empty()) {
        entry.target = textOf(block, targetField);
    }
    switch (type) {
    case '0':
    case '\0':
        entry.kind = TarEntry::Kind::File;
        entry.size = size;
        break;
    case '2':
        entry.kind = TarEntry::Kind::Link;
        break;
    case '5':
        entry.kind = TarEntry::Kind::Folder;
        break;
    default: // hard links, devices, pipes, and what others have added
        return false;
    }
    if (entry.kind == TarEntry::Kind::Folder && entry.path.ends_with('/')) {
        entry.path.pop_back();
    }
    const auto mode = numberOf(block, modeField);
    entry.isExecutable = mode && (*mode & executableBits) != 0;
    if (!mode || size != entry.size || !m_receiver.begin(entry)) {
        return false;
    }
    m_state = State::Bytes;
    m_left = size;
    m_padding = paddingAfter(size);
    return m_left > 0 || endContent();
}

bool TarReader::beginNote(Note note, std::uint64_t size) {
    if (size == 0 || size > longestNote) {
        return false;
    }
    m_state = State::Note;
    m_noteKind = note;
    m_note.clear();
    m_left = size;
    m_padding = paddingAfter(size);
    return true;
}

bool TarReader::takeContent(std::string_view& bytes) {
    const auto count = static_cast<std::size_t>(std::min<std::uint64_t>(m_left, bytes.size()));
    const std::string_view piece = bytes.substr(0, count);
    bytes.remove_prefix(count);
    m_left -= count;
    if (m_state == State::Note) {
        m_note += piece;
    } else if (m_state == State::Bytes && !m_receiver.addBytes(piece)) {
        return false;
    }
    return m_left > 0 || endContent();
}

bool TarReader::endContent() {
    const State ended = m_state;
    m_left = std::exchange(m_padding, 0);
    m_state = m_left > 0 ? State::Padding : State::Header;
    switch (ended) {
    case State::Bytes:
        return m_receiver.end();
    case State::Note:
        return readNote();
    default:
        return true;
    }
}

bool TarReader::readNote() {
    switch (m_noteKind) {
    case Note::LongPath:
        m_path = withoutNul(std::move(m_note));
        return !m_path.empty();
    case Note::LongTarget:
        m_target = withoutNul(std::move(m_note));
        return !m_target.empty();
    case Note::Extended:
        return readExtended(m_note);
    case Note::Ignored:
        break;
    }
    return true;
}

// Lines of "length key=value", where the length counts the whole line.
bool TarReader::readExtended(std::string_view text) {
    while (!text.empty()) {
        std::size_t length = 0;
        const auto [rest, error] =
            std::from_chars(text.data(), text.data() + text.size(), length, 10);
        const auto digits = static_cast<std::size_t>(rest - text.data());
        if (error != std::errc() || length > text.size() || length < digits + 2 ||
            text[digits] != ' ' || text[length - 1] != '\n') {
            return false;
        }
        const std::string_view line = text.substr(digits + 1, length - digits - 2);
        const std::size_t equals = line.find('=');
        if (equals == std::string_view::npos) {
            return false;
        }
        const std::string_view key = line.substr(0, equals);
        const std::string_view value = line.substr(equals + 1);
        if (key == "path") {
            m_path = value;
        } else if (key == "linkpath") {
            m_target = value;
        } else if (key == "size" || key.starts_with("GNU.sparse")) {
            return false; // Files of that size, or with holes, are none of ours.
        }
        text.remove_prefix(length);
    }
    return true;
}

} // namespace pallistrom
