// SPDX-FileCopyrightText: 2026 The Pallistrom authors
// SPDX-License-Identifier: MIT
#pragma once

#include "service/devices/DeviceClass.h"
#include "service/devices/DeviceWatch.h"
#include "service/devices/EvdevKeyboard.h"
#include "service/devices/Keyboards.h"

#include <optional>
#include <string>
#include <vector>

namespace pallistrom {

/// The keyboards of this machine, on an event loop: the edge of `Keyboards`.
class DeviceLayer final : private KeyboardsHost,
                          private EvdevKeyboardOwner,
                          private DeviceWatch::Observer {
public:
    /// `loop` outlives the layer. One at a time.
    explicit DeviceLayer(sd_event& loop, ProgramsKeyboards programs = ProgramsKeyboards::LeftAlone);
    DeviceLayer(const DeviceLayer&) = delete;
    DeviceLayer& operator=(const DeviceLayer&) = delete;
    ~DeviceLayer() override;

    KeyControl& control() { return m_keyboards; }

private:
    struct Known {
        EvdevKeyboard* device = nullptr;
        KeyboardNumber number = 0;
    };

    Moment now() override;
    void wakeAt(Moment moment) override;
    void lookForKeyboards() override;
    [[nodiscard]] bool canMakeKeyboards() const override;

    void readable(EvdevKeyboard& keyboard) override;
    void ready(EvdevKeyboard& keyboard) override;
    void destroyed(EvdevKeyboard& keyboard) override;

    void found(const std::string& path, std::string_view place) override;
    void lost(const std::string& path) override;

    void open(const std::string& path, std::string_view place);
    void add(InputNode node, EvdevKeyboard::Pointer pointer);
    void virtualDeviceFound(InputNode node, std::string_view place);
    [[nodiscard]] std::optional<KeyboardNumber> numberAt(const std::string& path) const;
    [[nodiscard]] std::optional<KeyboardNumber> numberOf(const EvdevKeyboard& keyboard) const;

    sd_event& m_loop;
    ProgramsKeyboards m_programs;
    OwnedEventSource m_wake;
    DeviceWatch m_watch;
    std::vector<Known> m_known;
    bool m_hasToLook = true; ///< for keyboards that are there and not known
    Keyboards m_keyboards;   ///< its devices tell of their end
};

} // namespace pallistrom
