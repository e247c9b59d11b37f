// SPDX-FileCopyrightText: 2026 The Pallistrom authors
// SPDX-License-Identifier: MIT
#pragma once

#include "platform/linux/DescriptorWatch.h"

#include <wayland-server-core.h>

#include <cstddef>
#include <filesystem>
#include <functional>
#include <memory>
#include <string>
#include <vector>

namespace pallistrom {

/// A compositor without a screen, on the run loop of the test: it says of windows and keymaps what
/// the test wants it to.
class FakeCompositor {
public:
    /// `socket` is where clients find it. It offers nothing at first.
    explicit FakeCompositor(const std::filesystem::path& socket);
    FakeCompositor(const FakeCompositor&) = delete;
    FakeCompositor& operator=(const FakeCompositor&) = delete;

    /// Breaks all connections.
    ~FakeCompositor();

    void offerWlrToplevels();
    void offerCosmicToplevels();
    void offerSeat();
    void withdrawToplevels();

    /// Opens a window, in front of none. Returns its number.
    std::size_t open(const std::string& application);
    void setActivated(std::size_t window, bool isActivated);
    void close(std::size_t window);

    /// Says that no more will be said of windows.
    void finish();

    /// Gives a keymap to all keyboards, those that come later too.
    void setKeymap(const std::string& text);

    /// The same, but says that the file has `size` bytes.
    void setKeymap(const std::string& text, std::uint32_t size);

    /// Gives something else that can be opened for a keymap.
    void sendKeymapFile(int descriptor, std::uint32_t size);

    /// How many connections there have been.
    [[nodiscard]] int connections() const { return m_connections; }

private:
    struct Window {
        std::string application;
        bool isActivated = false;
        bool isOpen = true;
        wl_resource* listed = nullptr; ///< the one object of wlroots, or that of the list
        wl_resource* states = nullptr; ///< that of COSMIC
    };

    static void bindWlr(wl_client* client, void* self, std::uint32_t version, std::uint32_t id);
    static void bindList(wl_client* client, void* self, std::uint32_t version, std::uint32_t id);
    static void bindInfo(wl_client* client, void* self, std::uint32_t version, std::uint32_t id);
    static void bindSeat(wl_client* client, void* self, std::uint32_t version, std::uint32_t id);
    static int request(const void* self,
                       void* target,
                       std::uint32_t opcode,
                       const wl_message* message,
                       wl_argument* arguments);
    static void clientCame(wl_listener* listener, void* client);

    void offer(const wl_interface& interface, wl_global_bind_func_t bind);
    wl_resource*
    make(wl_client* client, const wl_interface& interface, std::uint32_t version, std::uint32_t id);
    void handle(wl_resource* resource, const std::string& request, wl_argument* arguments);
    void list(Window& window);
    void sayState(const Window& window);
    void sendKeymap(wl_resource* keyboard);
    void serve();

    /// Knows whose it is.
    struct ClientListener : wl_listener {
        FakeCompositor* compositor = nullptr;
    };

    struct DestroyDisplay {
        void operator()(wl_display* display) const noexcept;
    };

    std::unique_ptr<wl_display, DestroyDisplay> m_display;
    std::unique_ptr<DescriptorWatch> m_watch;
    ClientListener m_clientCame{};
    int m_connections = 0;
    std::vector<wl_global*> m_toplevelGlobals;
    wl_resource* m_manager = nullptr; ///< of wlroots, or the list
    wl_resource* m_info = nullptr;    ///< of COSMIC
    std::vector<Window> m_windows;
    std::vector<wl_resource*> m_keyboards;
    std::string m_keymap;
    std::uint32_t m_keymapSize = 0;
};

} // namespace pallistrom
