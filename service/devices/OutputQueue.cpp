// SPDX-FileCopyrightText: 2026 The Pallistrom authors
// SPDX-License-Identifier: MIT
#include "service/devices/OutputQueue.h"

namespace pallistrom {

void OutputQueue::add(Destination destination,
                      std::uint16_t type,
                      std::uint16_t code,
                      std::int32_t value) {
    const Item item{destination, false, type, code, value};
    if (m_count == 0 && m_now >= m_blockedUntil) {
        send(item);
    } else {
        queue(item);
    }
}

void OutputQueue::pause() {
    if (m_count == 0) {
        m_blockedUntil = m_lastKey + pauseLength;
    } else {
        queue({.destination = {}, .isPause = true, .type = 0, .code = 0, .value = 0});
    }
}

void OutputQueue::flush() {
    while (m_count > 0 && m_now >= m_blockedUntil) {
        const Item item = m_ring.at(m_first);
        m_first = (m_first + 1) % room;
        --m_count;
        if (item.isPause) {
            m_blockedUntil = m_lastKey + pauseLength;
        } else {
            send(item);
        }
    }
    write();
}

void OutputQueue::flushAll() {
    sendAllQueued();
    write();
}

std::optional<Moment> OutputQueue::due() const {
    return isWaiting() ? std::optional(m_blockedUntil) : std::nullopt;
}

void OutputQueue::queue(const Item& item) {
    if (m_count == room) {
        // More than anybody types in so short a time: better early than lost.
        sendAllQueued();
        if (!item.isPause) {
            send(item);
        }
        return;
    }
    m_ring.at((m_first + m_count) % room) = item;
    ++m_count;
}

void OutputQueue::sendAllQueued() {
    for (; m_count > 0; --m_count) {
        const Item item = m_ring.at(m_first);
        m_first = (m_first + 1) % room;
        if (!item.isPause) {
            send(item);
        }
    }
    m_blockedUntil = Moment{0};
}

void OutputQueue::send(const Item& item) {
    if (item.type == EV_KEY) {
        m_lastKey = m_now;
    }
    if (m_batchCount == m_batch.size() || !(item.destination == m_batchDestination)) {
        write();
        m_batchDestination = item.destination;
    }
    input_event& event = m_batch.at(m_batchCount++);
    event.type = item.type;
    event.code = item.code;
    event.value = item.value;
}

void OutputQueue::write() {
    if (m_batchCount > 0) {
        m_devices.write(m_batchDestination, {m_batch.data(), m_batchCount});
        m_batchCount = 0;
    }
}

} // namespace pallistrom
