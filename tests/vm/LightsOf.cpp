// SPDX-FileCopyrightText: 2026 The Pallistrom authors
// SPDX-License-Identifier: MIT
#include "LightsOf.h"

#include <fcntl.h>
#include <linux/input.h>
#include <sys/ioctl.h>
#include <unistd.h>

#include <array>
#include <system_error>

namespace pallistrom::vm {

LightsOf::LightsOf(const std::filesystem::path& node)
    : m_descriptor{::open(node.c_str(), O_RDWR | O_NONBLOCK | O_CLOEXEC)} {}

bool LightsOf::isLit(std::uint16_t light) const {
    std::array<unsigned char, (LED_CNT + 7) / 8> lit{};
    ::ioctl(m_descriptor.get(), EVIOCGLED(lit.size()), lit.data());
    return ((lit.at(light / 8U) >> (light % 8U)) & 1U) != 0;
}

void LightsOf::set(std::uint16_t light, bool isOn) const {
    std::array<input_event, 2> events{};
    events[0].type = EV_LED;
    events[0].code = light;
    events[0].value = isOn ? 1 : 0;
    if (::write(m_descriptor.get(), events.data(), sizeof(events)) < 0) {
        throw std::system_error{errno, std::generic_category(), "a light"};
    }
}

} // namespace pallistrom::vm
