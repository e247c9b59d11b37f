// SPDX-FileCopyrightText: 2026 The Pallistrom authors
// SPDX-License-Identifier: MIT
#include "FakeTapWay.h"

#include <sys/eventfd.h>
#include <unistd.h>

namespace pallistrom {

FakeTapWay::FakeTapWay() : m_descriptor(eventfd(0, EFD_NONBLOCK | EFD_CLOEXEC)) {}

FakeTapWay::~FakeTapWay() {
    close(m_descriptor);
}

void FakeTapWay::arrive() const {
    eventfd_write(m_descriptor, 1);
}

void FakeTapWay::breakDown() {
    m_isRunning = false;
}

bool FakeTapWay::start(KeyFilter& newFilter) {
    ++startCount;
    filter = &newFilter;
    m_isRunning = starts;
    return starts;
}

void FakeTapWay::stop() {
    ++stopCount;
    m_isRunning = false;
    if (onStop) {
        onStop();
    }
}

void FakeTapWay::serve() {
    eventfd_t count = 0;
    if (eventfd_read(m_descriptor, &count) != 0) {
        return;
    }
    ++serveCount;
    if (onServe) {
        onServe();
    }
}

} // namespace pallistrom
