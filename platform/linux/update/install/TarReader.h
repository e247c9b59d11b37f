// SPDX-FileCopyrightText: 2026 The Pallistrom authors
// SPDX-License-Identifier: MIT
#pragma once

#include "platform/linux/update/install/TarEntry.h"

#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>

namespace pallistrom {

/// Reads an archive in the form of tar, as POSIX or GNU write it, from pieces of any size. Takes
/// files, folders and symbolic links, and refuses everything else: what it does not know it does
/// not guess at. Whether a path is a good one is for others to say. Touches no file.
class TarReader {
public:
    /// Who gets what is read. Each returns whether to go on.
    class Receiver {
    public:
        Receiver() = default;
        Receiver(const Receiver&) = delete;
        Receiver& operator=(const Receiver&) = delete;
        virtual ~Receiver() = default;

        [[nodiscard]] virtual bool begin(const TarEntry& entry) = 0;
        [[nodiscard]] virtual bool addBytes(std::string_view bytes) = 0; ///< of the file begun last
        [[nodiscard]] virtual bool end() = 0;
    };

    /// `receiver` outlives the reader.
    explicit TarReader(Receiver& receiver) : m_receiver(receiver) {}

    /// Takes the next piece. Returns whether all is well so far.
    [[nodiscard]] bool take(std::string_view bytes);

    /// Whether the end of the archive has come, and it was a good one.
    [[nodiscard]] bool isComplete() const { return m_state == State::Ended; }

    static constexpr std::size_t blockSize = 512;

private:
    enum class State : std::uint8_t { Header, Bytes, Note, Padding, SecondZeros, Ended, Refused };
    /// What a note says of the entry after it, which does not fit into that one's header.
    enum class Note : std::uint8_t { Extended, Ignored, LongPath, LongTarget };

    [[nodiscard]] std::string_view takeBlock(std::string_view& bytes);
    [[nodiscard]] bool readHeader(std::string_view block);
    [[nodiscard]] bool beginEntry(std::string_view block, char type, std::uint64_t size);
    [[nodiscard]] bool beginNote(Note note, std::uint64_t size);
    [[nodiscard]] bool takeContent(std::string_view& bytes);
    [[nodiscard]] bool endContent();
    [[nodiscard]] bool readNote();
    [[nodiscard]] bool readExtended(std::string_view text);

    Receiver& m_receiver;
    State m_state = State::Header;
    std::string m_block;         ///< of a header that has not come whole yet
    std::uint64_t m_left = 0;    ///< of the content, or of its padding
    std::uint64_t m_padding = 0; ///< after the content
    Note m_noteKind = Note::Ignored;
    std::string m_note;
    std::string m_path;   ///< what notes said of the entry to come
    std::string m_target; ///< likewise
};

} // namespace pallistrom
