// SPDX-FileCopyrightText: 2026 The Pallistrom authors
// SPDX-License-Identifier: MIT
#include "LoopbackServer.h"

#include <QCoreApplication>
#include <QPointer>
#include <QSocketNotifier>
#include <QTcpSocket>

#include <unistd.h>

#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <iostream>
#include <iterator>
#include <sstream>
#include <string>

// A web site on this computer: update-server FOLDER. Says its address, and then follows whoever
// writes to standard input, a line for each step:
//   serve NAME   from now on, gives away this file of the folder as it is at this moment
//   halve NAME   the same, but sends half of it and says "half"; the rest has to wait
//   go on        until this

namespace {

using pallistrom::LoopbackServer;

void say(const std::string& words) {
    std::cout << words << std::endl;
}

class Site {
public:
    explicit Site(std::filesystem::path folder) : m_folder(std::move(folder)) {}

    [[nodiscard]] std::string address() const { return m_server.address(""); }

    void follow(const std::string& line) {
        std::istringstream words(line);
        std::string step;
        std::string name;
        words >> step >> name;
        if (step == "serve") {
            m_server.serve(name, content(name));
        } else if (step == "halve") {
            m_server.answer(name, halving(content(name)));
        } else if (step == "go" && m_client) {
            LoopbackServer::saying(m_rest)(*m_client);
        } else {
            return say("no " + line);
        }
        say("done " + line);
    }

private:
    [[nodiscard]] std::string content(const std::string& name) const {
        std::ifstream stream(m_folder / name, std::ios::binary);
        return {std::istreambuf_iterator<char>(stream), {}};
    }

    [[nodiscard]] LoopbackServer::Answer halving(const std::string& body) {
        return [this, body](QTcpSocket& client) {
            const std::string start =
                "HTTP/1.1 200 OK\r\nContent-Length: " + std::to_string(body.size()) + "\r\n\r\n" +
                body.substr(0, body.size() / 2);
            client.write(start.data(), static_cast<qint64>(start.size()));
            m_client = &client;
            m_rest = body.substr(body.size() / 2);
            say("half");
        };
    }

    std::filesystem::path m_folder;
    LoopbackServer m_server;
    QPointer<QTcpSocket> m_client;
    std::string m_rest;
};

} // namespace

int main(int argc, char** argv) {
    const QCoreApplication application(argc, argv);
    const QStringList arguments = QCoreApplication::arguments();
    if (arguments.size() != 2) {
        std::cerr << "usage: update-server FOLDER\n";
        return EXIT_FAILURE;
    }
    Site site(arguments[1].toStdString());
    QSocketNotifier input(STDIN_FILENO, QSocketNotifier::Read);
    QObject::connect(&input, &QSocketNotifier::activated, &input, [&] {
        std::string line;
        // Each step waits for its answer, so there is one line at a time.
        if (std::getline(std::cin, line)) {
            site.follow(line);
        } else {
            QCoreApplication::quit();
        }
    });
    say(site.address());
    return QCoreApplication::exec();
}
