// SPDX-FileCopyrightText: 2026 The Pallistrom authors
// SPDX-License-Identifier: MIT
#pragma once

#include <wayland-util.h>

#include <cstdint>

/// The interfaces by which compositors tell of other programs' windows, as far as we speak them:
/// what their messages are made of, in the order that the wire knows them by.
namespace pallistrom::ForeignToplevels {

/// wlroots' own, of version 1: zwlr_foreign_toplevel_manager_v1 and its handles.
namespace Wlr {

extern const wl_interface manager;
extern const wl_interface handle;

inline constexpr std::uint32_t version = 1;

enum ManagerEvent : std::uint32_t { ManagerToplevel, ManagerFinished };

enum HandleRequest : std::uint32_t { HandleDestroy = 7 };

enum HandleEvent : std::uint32_t {
    HandleTitle,
    HandleAppId,
    HandleOutputEnter,
    HandleOutputLeave,
    HandleState,
    HandleDone,
    HandleClosed,
};

} // namespace Wlr

/// The list that compositors have in common, without any state: ext_foreign_toplevel_list_v1.
namespace List {

extern const wl_interface list;
extern const wl_interface handle;

inline constexpr std::uint32_t version = 1;

enum ListEvent : std::uint32_t { ListToplevel, ListFinished };

enum HandleRequest : std::uint32_t { HandleDestroy };

enum HandleEvent : std::uint32_t {
    HandleClosed,
    HandleDone,
    HandleTitle,
    HandleAppId,
    HandleIdentifier,
};

} // namespace List

/// COSMIC's states for the windows of that list, of version 2: zcosmic_toplevel_info_v1.
namespace Cosmic {

extern const wl_interface info;
extern const wl_interface handle;

inline constexpr std::uint32_t version = 2;

enum InfoRequest : std::uint32_t { InfoStop, InfoGetHandle };

enum InfoEvent : std::uint32_t { InfoToplevel, InfoFinished, InfoDone };

enum HandleRequest : std::uint32_t { HandleDestroy };

enum HandleEvent : std::uint32_t {
    HandleClosed,
    HandleDone,
    HandleTitle,
    HandleAppId,
    HandleOutputEnter,
    HandleOutputLeave,
    HandleWorkspaceEnter,
    HandleWorkspaceLeave,
    HandleState,
    HandleGeometry,
};

} // namespace Cosmic

/// In the arrays of states of both.
inline constexpr std::uint32_t stateActivated = 2;

/// Returns whether such an array says that the window is in front.
[[nodiscard]] bool isActivated(const wl_array& states);

} // namespace pallistrom::ForeignToplevels
