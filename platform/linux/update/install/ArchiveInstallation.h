// SPDX-FileCopyrightText: 2026 The Pallistrom authors
// SPDX-License-Identifier: MIT
#pragma once

#include "platform/linux/update/install/FolderWriter.h"
#include "platform/linux/update/install/TarReader.h"
#include "platform/linux/update/install/UpdateFolder.h"

#include <QProcess>
#include <QTimer>

#include <filesystem>
#include <functional>
#include <optional>
#include <string>

namespace pallistrom {

/// Puts the program that is packed in an archive in the place of the one that runs, in steps, each
/// of which may be the last one that comes to pass:
///
///     unpack   into a folder beside the program's, nothing of which anybody looks at
///     sync     until all of it is on the disk
///     examine  whether it is what was offered, for this computer
///     try      whether it starts here, with the libraries that this system has
///     exchange the two folders
///     remove   the one beside, which now holds the old version
///
/// Up to the exchange the program is the old one, from there on the new one, whole in both cases.
/// What takes long is done by children; nothing here holds up the loop. Whoever destroys this gives
/// the installation up, and nothing is left of it.
class ArchiveInstallation {
public:
    struct Order {
        std::filesystem::path archive;
        std::filesystem::path topFolder; ///< of the program that runs
        std::filesystem::path running;   ///< its file
        std::string version;             ///< which was offered
    };

    using Done = std::function<void(const std::string& problem)>;

    /// Starts. `done` is called from the loop, once, with a sentence or with nothing.
    ArchiveInstallation(Order order, Done done);
    ArchiveInstallation(const ArchiveInstallation&) = delete;
    ArchiveInstallation& operator=(const ArchiveInstallation&) = delete;
    ~ArchiveInstallation();

private:
    void begin();
    void unpack();
    void startProcess(const std::string& problemIfNot);
    void takeBytes();
    void unpacked();
    void sync();
    void examine();
    void tryOut();
    void exchange();
    void finish(const std::string& problem);
    void finishWithError(int error);

    Order m_order;
    Done m_done;
    std::optional<UpdateFolder> m_folder;
    std::optional<FolderWriter> m_writer;
    std::optional<TarReader> m_reader;
    bool m_isRefused = false;
    QTimer m_turn;
    QProcess m_process; ///< the child that runs now; ends before what it writes to
};

} // namespace pallistrom
