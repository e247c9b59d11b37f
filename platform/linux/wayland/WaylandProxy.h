// SPDX-FileCopyrightText: 2026 The Pallistrom authors
// SPDX-License-Identifier: MIT
#pragma once

#include <wayland-client-core.h>

#include <memory>

namespace pallistrom {

struct DestroyWaylandProxy {
    void operator()(wl_proxy* proxy) const noexcept { wl_proxy_destroy(proxy); }
};

/// An object of the compositor's, as long as we care for it. The compositor is not told of its end:
/// whoever owns one for less than the connection's life sends the request for that. Must go before
/// its connection does.
using WaylandProxy = std::unique_ptr<wl_proxy, DestroyWaylandProxy>;

} // namespace pallistrom
