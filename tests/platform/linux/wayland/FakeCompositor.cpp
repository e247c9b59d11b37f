// SPDX-FileCopyrightText: 2026 The Pallistrom authors
// SPDX-License-Identifier: MIT
#include "FakeCompositor.h"

#include "FileDescriptor.h"
#include "platform/linux/wayland/ForeignToplevels.h"

#include <sys/mman.h>
#include <sys/socket.h>
#include <sys/un.h>
#include <wayland-server-protocol.h>

#include <cstring>
#include <stdexcept>

namespace pallistrom {

namespace Cosmic = ForeignToplevels::Cosmic;
namespace List = ForeignToplevels::List;
namespace Wlr = ForeignToplevels::Wlr;

namespace {

int listenAt(const std::filesystem::path& path) {
    sockaddr_un address{};
    address.sun_family = AF_UNIX;
    if (path.string().size() >= sizeof(address.sun_path)) {
        throw std::runtime_error{"too long for a socket: " + path.string()};
    }
    std::memcpy(&address.sun_path, path.c_str(), path.string().size());
    const int descriptor = socket(AF_UNIX, SOCK_STREAM | SOCK_CLOEXEC, 0);
    if (bind(descriptor,
             reinterpret_cast<const sockaddr*>(&address), // NOLINT: as bind(2) wants it
             sizeof(address)) != 0 ||
        listen(descriptor, 8) != 0) {
        throw std::runtime_error{"no socket can be made at " + path.string()};
    }
    return descriptor;
}

FakeCompositor& owner(const void* self) {
    return *static_cast<FakeCompositor*>(const_cast<void*>(self));
}

bool is(const wl_resource* resource, const wl_interface& interface) {
    return std::strcmp(wl_resource_get_class(const_cast<wl_resource*>(resource)), interface.name) ==
           0;
}

} // namespace

void FakeCompositor::DestroyDisplay::operator()(wl_display* display) const noexcept {
    wl_display_destroy_clients(display);
    wl_display_destroy(display);
}

FakeCompositor::FakeCompositor(const std::filesystem::path& socket)
    : m_display(wl_display_create()) {
    std::filesystem::remove(socket);
    wl_display_add_socket_fd(m_display.get(), listenAt(socket));
    m_clientCame.notify = clientCame;
    m_clientCame.compositor = this;
    wl_display_add_client_created_listener(m_display.get(), &m_clientCame);
    m_watch = watchDescriptor(wl_event_loop_get_fd(wl_display_get_event_loop(m_display.get())),
                              [this] { serve(); });
}

FakeCompositor::~FakeCompositor() = default;

void FakeCompositor::serve() {
    wl_event_loop_dispatch(wl_display_get_event_loop(m_display.get()), 0);
    wl_display_flush_clients(m_display.get());
}

void FakeCompositor::clientCame(wl_listener* listener, void* /*client*/) {
    ++static_cast<ClientListener*>(listener)->compositor->m_connections;
}

void FakeCompositor::offer(const wl_interface& interface, wl_global_bind_func_t bind) {
    m_toplevelGlobals.push_back(
        wl_global_create(m_display.get(), &interface, interface.version, this, bind));
    wl_display_flush_clients(m_display.get());
}

void FakeCompositor::offerWlrToplevels() {
    offer(Wlr::manager, bindWlr);
}

void FakeCompositor::offerCosmicToplevels() {
    offer(Cosmic::info, bindInfo);
    offer(List::list, bindList);
}

void FakeCompositor::offerSeat() {
    wl_global_create(m_display.get(), &wl_seat_interface, 5, this, bindSeat);
    wl_display_flush_clients(m_display.get());
}

void FakeCompositor::withdrawToplevels() {
    for (wl_global* const global : m_toplevelGlobals) {
        wl_global_remove(global);
    }
    wl_display_flush_clients(m_display.get());
}

wl_resource* FakeCompositor::make(wl_client* client,
                                  const wl_interface& interface,
                                  std::uint32_t version,
                                  std::uint32_t id) {
    wl_resource* const resource =
        wl_resource_create(client, &interface, static_cast<int>(version), id);
    wl_resource_set_dispatcher(resource, request, this, nullptr, nullptr);
    return resource;
}

void FakeCompositor::bindWlr(wl_client* client,
                             void* self,
                             std::uint32_t version,
                             std::uint32_t id) {
    auto& compositor = owner(self);
    compositor.m_manager = compositor.make(client, Wlr::manager, version, id);
    for (Window& window : compositor.m_windows) {
        compositor.list(window);
    }
}

void FakeCompositor::bindList(wl_client* client,
                              void* self,
                              std::uint32_t version,
                              std::uint32_t id) {
    auto& compositor = owner(self);
    compositor.m_manager = compositor.make(client, List::list, version, id);
    for (Window& window : compositor.m_windows) {
        compositor.list(window);
    }
}

void FakeCompositor::bindInfo(wl_client* client,
                              void* self,
                              std::uint32_t version,
                              std::uint32_t id) {
    owner(self).m_info = owner(self).make(client, Cosmic::info, version, id);
}

void FakeCompositor::bindSeat(wl_client* client,
                              void* self,
                              std::uint32_t version,
                              std::uint32_t id) {
    wl_resource* const seat = owner(self).make(client, wl_seat_interface, version, id);
    wl_seat_send_capabilities(seat, WL_SEAT_CAPABILITY_KEYBOARD | WL_SEAT_CAPABILITY_POINTER);
}

int FakeCompositor::request(const void* self,
                            void* target,
                            std::uint32_t /*opcode*/,
                            const wl_message* message,
                            wl_argument* arguments) {
    owner(self).handle(static_cast<wl_resource*>(target), message->name, arguments);
    return 0;
}

void FakeCompositor::handle(wl_resource* resource,
                            const std::string& request,
                            wl_argument* arguments) {
    wl_client* const client = wl_resource_get_client(resource);
    if (request == "get_keyboard") {
        m_keyboards.push_back(make(client, wl_keyboard_interface, 3, arguments[0].n));
        sendKeymap(m_keyboards.back());
    } else if (request == "get_cosmic_toplevel") {
        for (Window& window : m_windows) {
            if (window.listed ==
                reinterpret_cast<wl_resource*>(arguments[1].o)) { // NOLINT: the library's way
                window.states = make(client, Cosmic::handle, Cosmic::version, arguments[0].n);
                sayState(window);
            }
        }
    } else if (request == "destroy" || request == "release") {
        std::erase(m_keyboards, resource);
        wl_resource_destroy(resource);
    }
}

void FakeCompositor::list(Window& window) {
    if (m_manager == nullptr || !window.isOpen) {
        return;
    }
    wl_client* const client = wl_resource_get_client(m_manager);
    if (is(m_manager, Wlr::manager)) {
        window.listed = make(client, Wlr::handle, Wlr::version, 0);
        wl_resource_post_event(m_manager, Wlr::ManagerToplevel, window.listed);
        wl_resource_post_event(window.listed, Wlr::HandleTitle, "a title");
        wl_resource_post_event(window.listed, Wlr::HandleAppId, window.application.c_str());
        sayState(window);
        return;
    }
    window.listed = make(client, List::handle, List::version, 0);
    wl_resource_post_event(m_manager, List::ListToplevel, window.listed);
    wl_resource_post_event(window.listed, List::HandleIdentifier, "1");
    wl_resource_post_event(window.listed, List::HandleTitle, "a title");
    wl_resource_post_event(window.listed, List::HandleAppId, window.application.c_str());
    wl_resource_post_event(window.listed, List::HandleDone);
}

void FakeCompositor::sayState(const Window& window) {
    wl_array states;
    wl_array_init(&states);
    for (const std::uint32_t state : {0U, window.isActivated ? 2U : 1U}) {
        *static_cast<std::uint32_t*>(wl_array_add(&states, sizeof(state))) = state;
    }
    if (window.states != nullptr) {
        wl_resource_post_event(window.states, Cosmic::HandleState, &states);
        wl_resource_post_event(m_info, Cosmic::InfoDone);
    } else if (window.listed != nullptr && is(window.listed, Wlr::handle)) {
        wl_resource_post_event(window.listed, Wlr::HandleState, &states);
        wl_resource_post_event(window.listed, Wlr::HandleDone);
    }
    wl_array_release(&states);
    wl_display_flush_clients(m_display.get());
}

std::size_t FakeCompositor::open(const std::string& application) {
    m_windows.push_back({.application = application});
    list(m_windows.back());
    wl_display_flush_clients(m_display.get());
    return m_windows.size() - 1;
}

void FakeCompositor::setActivated(std::size_t window, bool isActivated) {
    m_windows.at(window).isActivated = isActivated;
    sayState(m_windows.at(window));
}

void FakeCompositor::close(std::size_t window) {
    Window& closed = m_windows.at(window);
    const bool isWlr = is(closed.listed, Wlr::handle);
    wl_resource_post_event(closed.listed,
                           isWlr ? std::uint32_t{Wlr::HandleClosed}
                                 : std::uint32_t{List::HandleClosed});
    closed.isOpen = false;
    wl_display_flush_clients(m_display.get());
}

void FakeCompositor::finish() {
    wl_resource_post_event(m_manager, Wlr::ManagerFinished); // The number is the same in both.
    wl_display_flush_clients(m_display.get());
}

void FakeCompositor::setKeymap(const std::string& text) {
    setKeymap(text, static_cast<std::uint32_t>(text.size() + 1));
}

void FakeCompositor::setKeymap(const std::string& text, std::uint32_t size) {
    m_keymap = text;
    m_keymapSize = size;
    for (wl_resource* const keyboard : m_keyboards) {
        sendKeymap(keyboard);
    }
    wl_display_flush_clients(m_display.get());
}

void FakeCompositor::sendKeymap(wl_resource* keyboard) {
    if (m_keymap.empty()) {
        return;
    }
    const FileDescriptor file{memfd_create("keymap", MFD_CLOEXEC)};
    const auto count = m_keymap.size() + 1;
    if (write(file.get(), m_keymap.c_str(), count) != static_cast<ssize_t>(count)) {
        throw std::runtime_error{"the keymap cannot be written"};
    }
    wl_keyboard_send_keymap(keyboard, WL_KEYBOARD_KEYMAP_FORMAT_XKB_V1, file.get(), m_keymapSize);
}

void FakeCompositor::sendKeymapFile(int descriptor, std::uint32_t size) {
    for (wl_resource* const keyboard : m_keyboards) {
        wl_keyboard_send_keymap(keyboard, WL_KEYBOARD_KEYMAP_FORMAT_XKB_V1, descriptor, size);
    }
    wl_display_flush_clients(m_display.get());
}

} // namespace pallistrom
