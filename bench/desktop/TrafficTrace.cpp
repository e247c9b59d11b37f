// SPDX-FileCopyrightText: 2026 The Pallistrom authors
// SPDX-License-Identifier: MIT
#include "TrafficTrace.h"

#include <charconv>
#include <fstream>
#include <map>
#include <stdexcept>

namespace pallistrom::bench {

namespace {

/// The number at the end of a line such as "12 write(3<UNIX-STREAM:[4->5]>, ..., 8) = 8".
long result(std::string_view line) {
    const auto equals = line.rfind(" = ");
    long value = 0;
    if (equals != std::string_view::npos) {
        const auto text = line.substr(equals + 3);
        std::from_chars(text.data(), text.data() + text.size(), value);
    }
    return value;
}

bool has(std::string_view line, std::string_view part) {
    return line.find(part) != std::string_view::npos;
}

} // namespace

std::vector<std::string> TrafficTrace::tracer() const {
    // -D: the tracer is the program's grandchild, and not the other way round.
    return {"strace",
            "-D",
            "-f",
            "-yy",
            "-s0",
            "-e",
            "signal=none",
            "-e",
            "trace=read,readv,recvfrom,recvmsg,write,writev,sendto,sendmsg,connect",
            "-o",
            m_file};
}

void TrafficTrace::begin() {
    m_start = 0;
    // No program starts without a word to the X server.
    if (onSockets().bytes == 0) {
        throw std::runtime_error("strace hears nothing");
    }
    m_start = std::filesystem::file_size(m_file);
}

Traffic TrafficTrace::onSockets() const {
    return on(Medium::Socket);
}

Traffic TrafficTrace::onOthers() const {
    return on(Medium::Other);
}

Traffic TrafficTrace::on(Medium medium) const {
    std::ifstream file(m_file);
    file.seekg(static_cast<std::streamoff>(m_start));
    if (!file) {
        throw std::runtime_error("strace has written nothing");
    }
    Traffic traffic;
    // A call that another thread's came in between has two lines; only the first names the medium.
    std::map<std::string, Medium> unfinished;
    for (std::string line; std::getline(file, line);) {
        const std::string thread = line.substr(0, line.find(' '));
        const bool isSecondHalf = has(line, " resumed>");
        const Medium ofLine = isSecondHalf                              ? unfinished[thread]
                              : has(line, "<UNIX") || has(line, "<TCP") ? Medium::Socket
                                                                        : Medium::Other;
        if (has(line, "<unfinished ...>")) {
            unfinished[thread] = ofLine;
        } else if (const long bytes = result(line); ofLine == medium && bytes > 0) {
            ++traffic.calls;
            traffic.bytes += bytes;
        }
    }
    return traffic;
}

} // namespace pallistrom::bench
