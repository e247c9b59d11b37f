// SPDX-FileCopyrightText: 2026 The Pallistrom authors
// SPDX-License-Identifier: MIT
#include "platform/linux/update/install/TarReader.h"

#include "TarMaker.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <string>
#include <vector>

namespace pallistrom {

namespace {

using testing::ElementsAre;

/// Writes down what it gets, a line for each entry.
class Listing final : public TarReader::Receiver {
public:
    bool begin(const TarEntry& entry) override {
        constexpr std::string_view kinds = "-dl";
        std::string line(1, kinds.at(static_cast<std::size_t>(entry.kind)));
        line += entry.isExecutable ? "x " : " ";
        line += entry.path;
        line += entry.target.empty() ? "" : " -> " + entry.target;
        lines.push_back(line);
        return !isFull;
    }

    bool addBytes(std::string_view bytes) override {
        m_content += bytes;
        return true;
    }

    bool end() override {
        lines.back() += m_content.empty() ? "" : ": " + m_content;
        m_content.clear();
        return true;
    }

    std::vector<std::string> lines;
    bool isFull = false;

private:
    std::string m_content;
};

// Reads an archive in pieces of `size`.
bool isRead(const std::string& archive, Listing& listing, std::size_t size = 100'000) {
    TarReader reader(listing);
    for (std::size_t i = 0; i < archive.size(); i += size) {
        if (!reader.take(std::string_view(archive).substr(i, size))) {
            EXPECT_FALSE(reader.take(std::string(1024, '\0'))) << "it stays refused";
            EXPECT_FALSE(reader.isComplete());
            return false;
        }
    }
    return reader.isComplete();
}

bool isRead(const TarMaker& maker) {
    Listing listing;
    return isRead(maker.archive(), listing);
}

TEST(TarReader, readsPiecesOfAnySize) {
    TarMaker maker;
    maker.folder("p/").folder("p/bin/").file("p/bin/tool", std::string(600, 'b'), 0755);
    maker.file("p/text", "words").file("p/empty", "").link("p/other", "text");
    for (const std::size_t size : {1U, 7U, 511U, 512U, 513U, 100'000U}) {
        Listing listing;
        EXPECT_TRUE(isRead(maker.archive(), listing, size)) << size;
        EXPECT_THAT(listing.lines,
                    ElementsAre("dx p",
                                "dx p/bin",
                                "-x p/bin/tool: " + std::string(600, 'b'),
                                "- p/text: words",
                                "- p/empty",
                                "lx p/other -> text"));
    }
}

TEST(TarReader, takesLongPathsFromNotes) {
    const std::string path = "p/" + std::string(200, 'n');
    for (const TarMaker& maker :
         {TarMaker().note("path", path).note("mtime", "1.5").file("p/short", "x"),
          TarMaker().add('L', "././@LongLink", path + '\0').file("p/short", "x")}) {
        Listing listing;
        EXPECT_TRUE(isRead(maker.archive(), listing));
        EXPECT_THAT(listing.lines, ElementsAre("- " + path + ": x"));
    }
    Listing listing;
    const auto links =
        TarMaker().note("linkpath", path).link("p/a", "").add('K', "@", path).link("p/b", "");
    EXPECT_TRUE(isRead(links.archive(), listing));
    EXPECT_THAT(listing.lines, ElementsAre("lx p/a -> " + path, "lx p/b -> " + path));
}

TEST(TarReader, aNoteCountsForOneEntry) {
    Listing listing;
    EXPECT_TRUE(isRead(TarMaker().note("path", "p/long").file("p/1", "").file("p/2", "").archive(),
                       listing));
    EXPECT_THAT(listing.lines, ElementsAre("- p/long", "- p/2"));
}

TEST(TarReader, refusesWhatIsNeitherFileNorFolderNorLink) {
    for (const char type : {'1', '3', '4', '6', '7', 'S', 'D', 'V', 'M', 'A'}) {
        EXPECT_FALSE(isRead(TarMaker().add(type, "p/thing", "", "p/target"))) << type;
    }
}

TEST(TarReader, refusesWhatHasNoEnd) {
    const std::string whole = TarMaker().file("p/a", std::string(700, 'a')).archive();
    for (const std::size_t missing : {1U, 512U, 1023U, 1024U, 1025U, 1600U}) {
        Listing listing;
        EXPECT_FALSE(isRead(whole.substr(0, whole.size() - missing), listing)) << missing;
    }
}

TEST(TarReader, refusesAnEntryAfterTheBeginningOfTheEnd) {
    Listing listing;
    const std::string entry = TarMaker().file("p/a", "").bytes();
    EXPECT_FALSE(isRead(std::string(512, '\0') + entry + std::string(1024, '\0'), listing));
}

TEST(TarReader, looksAtNothingAfterTheEnd) {
    Listing listing;
    EXPECT_TRUE(isRead(TarMaker().file("p/a", "").archive() + "rubbish", listing));
}

TEST(TarReader, refusesAHeaderWithAnyOtherByte) {
    const std::string header = TarMaker().file("p/a", "").bytes();
    for (std::size_t i = 0; i < header.size(); ++i) {
        std::string changed = header;
        changed[i] = static_cast<char>(changed[i] ^ 0x41);
        Listing listing;
        EXPECT_FALSE(isRead(changed + std::string(1024, '\0'), listing)) << i;
    }
}

TEST(TarReader, refusesNumbersThatAreNone) {
    for (const std::string_view size : {"\x80\x00\x00\x00\x00\x00\x00\x00\x00\x00\x00\x01",
                                        "-0000000001 ",
                                        "0000000001x ",
                                        "            ",
                                        "99999999999 "}) {
        std::string header = TarMaker().file("p/a", "").bytes();
        header.replace(124, 12, std::string(12, '\0'));
        header.replace(124, size.size(), size);
        Listing listing;
        EXPECT_FALSE(isRead(TarMaker::withRightSum(header) + std::string(2048, '\0'), listing))
            << size;
    }
}

TEST(TarReader, refusesAnOlderForm) {
    std::string header = TarMaker().file("p/a", "").bytes();
    header.replace(257, 8, std::string(8, '\0'));
    Listing listing;
    EXPECT_FALSE(isRead(TarMaker::withRightSum(header) + std::string(1024, '\0'), listing));
}

TEST(TarReader, refusesALinkOrAFolderWithBytes) {
    EXPECT_FALSE(isRead(TarMaker().add('5', "p/", "bytes")));
    EXPECT_FALSE(isRead(TarMaker().add('2', "p/a", "bytes", "b")));
}

TEST(TarReader, refusesNotesThatAreBroken) {
    for (const std::string_view text : {"",
                                        "x",
                                        "9",
                                        "11 path=p/b",
                                        "99 path=p/b\n",
                                        "0 \n",
                                        "3 \n",
                                        "8 path=\n7",
                                        "-5 path=p\n",
                                        "18446744073709551617 a=b\n",
                                        "13 pathpath/p\n"}) {
        EXPECT_FALSE(isRead(TarMaker().add('x', "note", text).file("p/a", ""))) << text;
    }
    EXPECT_FALSE(isRead(TarMaker().add('x', "note", std::string(70'000, 'x')).file("p/a", "")));
    EXPECT_FALSE(isRead(TarMaker().note("size", "5").file("p/a", "")));
    EXPECT_FALSE(isRead(TarMaker().note("GNU.sparse.size", "5").file("p/a", "")));
    EXPECT_FALSE(isRead(TarMaker().note("path", "p/b"))) << "about nothing";
}

TEST(TarReader, stopsWhenItsReceiverHasEnough) {
    Listing listing;
    listing.isFull = true;
    EXPECT_FALSE(isRead(TarMaker().file("p/a", "").file("p/b", "").archive(), listing));
    EXPECT_THAT(listing.lines, ElementsAre("- p/a"));
}

} // namespace

} // namespace pallistrom
