// SPDX-FileCopyrightText: 2026 The Pallistrom authors
// SPDX-License-Identifier: MIT
#include "platform/linux/wayland/ForeignToplevels.h"

#include <wayland-client-protocol.h>

#include <array>
#include <cstring>

namespace pallistrom::ForeignToplevels {

namespace {

// What the objects of a message are: any, or none at all. Long enough for every message here.
std::array<const wl_interface*, 5> anything{};
std::array<const wl_interface*, 1> anOutput{&wl_output_interface};
std::array<const wl_interface*, 5> anOutputAndNumbers{&wl_output_interface};

template<std::size_t count>
constexpr int sizeOf(const std::array<wl_message, count>& /*messages*/) {
    return int{count};
}

} // namespace

namespace Wlr {

namespace {

std::array<const wl_interface*, 1> aHandle{&handle};
std::array<const wl_interface*, 1> aSeat{&wl_seat_interface};
std::array<const wl_interface*, 5> aSurfaceAndNumbers{&wl_surface_interface};

const std::array managerRequests{wl_message{"stop", "", anything.data()}};
const std::array managerEvents{
    wl_message{"toplevel", "n", aHandle.data()},
    wl_message{"finished", "", anything.data()},
};
const std::array handleRequests{
    wl_message{"set_maximized", "", anything.data()},
    wl_message{"unset_maximized", "", anything.data()},
    wl_message{"set_minimized", "", anything.data()},
    wl_message{"unset_minimized", "", anything.data()},
    wl_message{"activate", "o", aSeat.data()},
    wl_message{"close", "", anything.data()},
    wl_message{"set_rectangle", "oiiii", aSurfaceAndNumbers.data()},
    wl_message{"destroy", "", anything.data()},
};
const std::array handleEvents{
    wl_message{"title", "s", anything.data()},
    wl_message{"app_id", "s", anything.data()},
    wl_message{"output_enter", "o", anOutput.data()},
    wl_message{"output_leave", "o", anOutput.data()},
    wl_message{"state", "a", anything.data()},
    wl_message{"done", "", anything.data()},
    wl_message{"closed", "", anything.data()},
};

} // namespace

const wl_interface manager{"zwlr_foreign_toplevel_manager_v1",
                           int{version},
                           sizeOf(managerRequests),
                           managerRequests.data(),
                           sizeOf(managerEvents),
                           managerEvents.data()};
const wl_interface handle{"zwlr_foreign_toplevel_handle_v1",
                          int{version},
                          sizeOf(handleRequests),
                          handleRequests.data(),
                          sizeOf(handleEvents),
                          handleEvents.data()};

} // namespace Wlr

namespace List {

namespace {

std::array<const wl_interface*, 1> aHandle{&handle};

const std::array listRequests{
    wl_message{"stop", "", anything.data()},
    wl_message{"destroy", "", anything.data()},
};
const std::array listEvents{
    wl_message{"toplevel", "n", aHandle.data()},
    wl_message{"finished", "", anything.data()},
};
const std::array handleRequests{wl_message{"destroy", "", anything.data()}};
const std::array handleEvents{
    wl_message{"closed", "", anything.data()},
    wl_message{"done", "", anything.data()},
    wl_message{"title", "s", anything.data()},
    wl_message{"app_id", "s", anything.data()},
    wl_message{"identifier", "s", anything.data()},
};

} // namespace

const wl_interface list{"ext_foreign_toplevel_list_v1",
                        int{version},
                        sizeOf(listRequests),
                        listRequests.data(),
                        sizeOf(listEvents),
                        listEvents.data()};
const wl_interface handle{"ext_foreign_toplevel_handle_v1",
                          int{version},
                          sizeOf(handleRequests),
                          handleRequests.data(),
                          sizeOf(handleEvents),
                          handleEvents.data()};

} // namespace List

namespace Cosmic {

namespace {

std::array<const wl_interface*, 1> aHandle{&handle};
std::array<const wl_interface*, 2> aHandleOfTheList{&handle, &List::handle};

const std::array infoRequests{
    wl_message{"stop", "", anything.data()},
    wl_message{"get_cosmic_toplevel", "2no", aHandleOfTheList.data()},
};
const std::array infoEvents{
    wl_message{"toplevel", "n", aHandle.data()},
    wl_message{"finished", "", anything.data()},
    wl_message{"done", "2", anything.data()},
};
const std::array handleRequests{wl_message{"destroy", "", anything.data()}};
const std::array handleEvents{
    wl_message{"closed", "", anything.data()},
    wl_message{"done", "", anything.data()},
    wl_message{"title", "s", anything.data()},
    wl_message{"app_id", "s", anything.data()},
    wl_message{"output_enter", "o", anOutput.data()},
    wl_message{"output_leave", "o", anOutput.data()},
    wl_message{"workspace_enter", "o", anything.data()},
    wl_message{"workspace_leave", "o", anything.data()},
    wl_message{"state", "a", anything.data()},
    wl_message{"geometry", "2oiiii", anOutputAndNumbers.data()},
};

} // namespace

const wl_interface info{"zcosmic_toplevel_info_v1",
                        int{version},
                        sizeOf(infoRequests),
                        infoRequests.data(),
                        sizeOf(infoEvents),
                        infoEvents.data()};
const wl_interface handle{"zcosmic_toplevel_handle_v1",
                          int{version},
                          sizeOf(handleRequests),
                          handleRequests.data(),
                          sizeOf(handleEvents),
                          handleEvents.data()};

} // namespace Cosmic

bool isActivated(const wl_array& states) {
    const auto* const bytes = static_cast<const char*>(states.data);
    for (std::size_t at = 0; at + sizeof(std::uint32_t) <= states.size;
         at += sizeof(std::uint32_t)) {
        std::uint32_t state = 0;
        std::memcpy(&state, bytes + at, sizeof(state));
        if (state == stateActivated) {
            return true;
        }
    }
    return false;
}

} // namespace pallistrom::ForeignToplevels
