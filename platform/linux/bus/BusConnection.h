// SPDX-FileCopyrightText: 2026 The Pallistrom authors
// SPDX-License-Identifier: MIT
#pragma once

#include <QObject>
#include <QSocketNotifier>
#include <QTimer>

#include <systemd/sd-bus.h>

#include <chrono>
#include <memory>
#include <string>

namespace pallistrom {

struct BusRelease {
    void operator()(sd_bus* bus) const noexcept { sd_bus_close_unref(bus); }

    void operator()(sd_bus_slot* slot) const noexcept { sd_bus_slot_unref(slot); }

    void operator()(sd_bus_message* message) const noexcept { sd_bus_message_unref(message); }
};

/// A call that waits for its answer, or a match: it ends with its owner.
using BusSlot = std::unique_ptr<sd_bus_slot, BusRelease>;
using BusMessage = std::unique_ptr<sd_bus_message, BusRelease>;

/// Handles a message, for libsystemd, by a member function of the object that comes with it.
template<auto member>
int busHandler(sd_bus_message* message, void* self, sd_bus_error* /*error*/) {
    const auto call = [&]<typename Class>(void (Class::*hear)(sd_bus_message*)) {
        (static_cast<Class*>(self)->*hear)(message);
    };
    call(member);
    return 0;
}

/// A signal to listen to. The bus lets anybody send anything to anybody, so who has sent it is
/// for the handler to look at.
struct BusSignal {
    const char* sender = nullptr;
    const char* path = nullptr;
    const char* interface = nullptr;
    const char* member = nullptr;
    const char* argument = nullptr; ///< its first one, a text
};

/// A connection to a bus, on Qt's run loop. Nothing here waits: not for
/// a bus that takes what it is sent and never answers, and not where there is none, whose socket is
/// watched for.
class BusConnection final : public QObject {
    Q_OBJECT

public:
    /// To the system bus.
    BusConnection();

    /// To the bus at `address`, written as buses write it.
    explicit BusConnection(const std::string& address);

    /// For vtables and the like; null where the bus has an address that means nothing.
    [[nodiscard]] sd_bus* get() const { return m_bus.get(); }

    /// Returns whether the bus has greeted us and is still there.
    [[nodiscard]] bool isReady() const { return m_bus && sd_bus_is_ready(m_bus.get()) > 0; }

    /// Returns a call of a method, to be filled; null if the bus cannot make one.
    [[nodiscard]] BusMessage makeCall(const char* service,
                                      const char* path,
                                      const char* interface,
                                      const char* member) const;

    /// Sends a call of which no answer is wanted. Nothing happens to a null one.
    void send(BusMessage call);

    /// Sends a call. `answered` is called with the answer or with an error, however late. Null if
    /// it cannot be sent.
    [[nodiscard]] BusSlot ask(BusMessage call, sd_bus_message_handler_t answered, void* userData);

    /// Waits until all that was sent has left this program, for at most as long as that. Returns
    /// whether it has. For what is said last, before the program ends.
    bool flush(std::chrono::milliseconds atMost);

    [[nodiscard]] BusSlot
    listen(const BusSignal& signal, sd_bus_message_handler_t heard, void* userData);

Q_SIGNALS:
    void ready();

    /// The connection is of no use any more.
    void lost();

private:
    void process();
    void rearm();
    void watch(int descriptor);

    std::unique_ptr<sd_bus, BusRelease> m_bus;
    QSocketNotifier* m_readable = nullptr; ///< the two are children
    QSocketNotifier* m_writable = nullptr;
    QTimer m_timer; ///< for what may time out, and for what is left to the next turn
    bool m_wasReady = false;
};

} // namespace pallistrom
