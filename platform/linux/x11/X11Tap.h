// SPDX-FileCopyrightText: 2026 The Pallistrom authors
// SPDX-License-Identifier: MIT
#pragma once

#include "platform/linux/TapWay.h"
#include "platform/linux/VerdictChords.h"
#include "platform/linux/applications/WindowClass.h"
#include "platform/linux/front/FrontRule.h"
#include "platform/linux/keys/OutputKeys.h"
#include "platform/linux/x11/X11Clock.h"
#include "platform/linux/x11/X11Connection.h"
#include "platform/linux/x11/X11Devices.h"
#include "platform/linux/x11/X11FrontWindow.h"
#include "platform/linux/x11/X11KeyWatch.h"
#include "platform/linux/x11/X11Keyboard.h"
#include "platform/linux/x11/X11Sender.h"

#include <chrono>
#include <functional>
#include <memory>
#include <optional>
#include <set>
#include <utility>
#include <vector>

namespace pallistrom {

/// The way to the keys of an X11 session: key grabs, and XTEST for what goes out. Needs nothing
/// installed and no permission.
///
/// Only combinations that the filter would touch now are grabbed, and none while an application is
/// in front that keeps its own keys: every other key goes its way without us, and a grabbed press
/// is always ours. Grabs are asynchronous, so nobody's keyboard waits for us, whatever becomes of
/// us. A press that we come to late, because this program was held up, does nothing: what was typed
/// after it has long been taken.
class X11Tap final : public TapWay {
public:
    static constexpr std::chrono::milliseconds usualPatience{1000};

    /// Tells how an application takes editing keys. It may answer otherwise after filterChanged().
    using KindOfApplication = std::function<FrontApplication(const WindowClass&)>;

    /// A press that is older than `patience` comes too late.
    explicit X11Tap(KindOfApplication kindOf, std::chrono::milliseconds patience = usualPatience)
        : m_kindOf(std::move(kindOf)), m_patience(patience) {}

    X11Tap(const X11Tap&) = delete;
    X11Tap& operator=(const X11Tap&) = delete;
    ~X11Tap() override = default;

    std::optional<Obstacle> obstacle() override;
    bool start(KeyFilter& filter) override;
    void stop() override;
    [[nodiscard]] bool isRunning() const override;
    [[nodiscard]] std::optional<int> descriptor() const override;
    void serve() override;
    void filterChanged() override;

private:
    /// What the tap knows of the server, and does to it, as long as it runs.
    struct Session {
        Session(const X11Connection& connection, const KindOfApplication& kindOf)
            : keyboard(connection),
              devices(connection),
              frontWindow(connection),
              front(kindOf),
              clock(connection),
              sender(connection),
              watch(devices, sender, keyboard) {}

        Session(const Session&) = delete;
        Session& operator=(const Session&) = delete;
        ~Session() = default;

        X11Keyboard keyboard;
        X11Devices devices;
        X11FrontWindow frontWindow;
        FrontRule front;
        X11Clock clock;
        X11Sender sender;
        X11KeyWatch watch;
    };

    /// What has to be read again.
    struct Changes {
        bool keyboard = false;
        bool devices = false;
        bool frontWindow = false;
    };

    [[nodiscard]] std::optional<Obstacle> findObstacle() const;
    [[nodiscard]] FrontApplication inFront() const;
    void grabKeys();
    void grabKey(const TappedKey& key);
    void handle(const xcb_generic_event_t& event, Changes& changes);
    [[nodiscard]] XcbOwned<xcb_generic_event_t> nextEvent() const;
    [[nodiscard]] bool follow(const Changes& changes);
    void pressed(const xcb_key_press_event_t& event);
    /// What a key press becomes; nothing if it is not ours.
    [[nodiscard]] std::optional<VerdictChords> chordsFor(EvdevCode key,
                                                         const xcb_key_press_event_t& event) const;
    void deliver(EvdevCode key, const VerdictChords& chords, const X11HeldKeys& held);
    [[nodiscard]] X11Devices::Question
    sendAndAsk(const std::vector<xcb_keycode_t>& repeating) const;

    KindOfApplication m_kindOf;
    std::chrono::milliseconds m_patience;
    std::unique_ptr<X11Connection> m_connection;
    std::optional<Obstacle> m_obstacle; ///< what keeps this server's keys from being filtered
    std::unique_ptr<Session> m_session;
    KeyFilter* m_filter = nullptr;        ///< while running
    std::set<std::int64_t> m_refusedKeys; ///< those whose refusal has been logged
    std::vector<OutputStep> m_steps;      ///< kept for its memory
};

} // namespace pallistrom
