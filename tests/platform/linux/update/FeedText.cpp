// SPDX-FileCopyrightText: 2026 The Pallistrom authors
// SPDX-License-Identifier: MIT
#include "FeedText.h"

namespace pallistrom::FeedText {

std::string feed(std::string_view items) {
    return "<?xml version=\"1.0\" encoding=\"utf-8\"?>\n"
           "<rss version=\"2.0\" "
           "xmlns:sparkle=\"http://www.andymatuschak.org/xml-namespaces/sparkle\">\n"
           "<channel><title>Versions</title>\n" +
           std::string(items) + "</channel>\n</rss>";
}

std::string item(std::string_view version, std::string_view elements) {
    return "<item><title>Version</title><sparkle:version>" + std::string(version) +
           "</sparkle:version>" + std::string(elements) + "</item>\n";
}

std::string archive(std::string_view address,
                    std::uint64_t length,
                    std::string_view signature,
                    std::string_view system) {
    const std::string wellFormed(86, 'A');
    return "<enclosure url=\"" + std::string(address) + "\" length=\"" + std::to_string(length) +
           "\" type=\"application/octet-stream\" sparkle:edSignature=\"" +
           (signature.empty() ? wellFormed + "==" : std::string(signature)) + "\" sparkle:os=\"" +
           std::string(system) + "\"/>";
}

} // namespace pallistrom::FeedText
