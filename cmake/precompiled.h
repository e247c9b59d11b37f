// SPDX-FileCopyrightText: 2026 The Pallistrom authors
// SPDX-License-Identifier: MIT
#pragma once

// What nearly every file includes, by what its target links.

#include <algorithm>
#include <array>
#include <chrono>
#include <cstdint>
#include <filesystem>
#include <fstream>
#include <functional>
#include <map>
#include <memory>
#include <optional>
#include <set>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#ifdef GTEST_HAS_PTHREAD
#include <gtest/gtest.h>
#endif
#ifdef QT_CORE_LIB
#include <QtCore/QtCore>
#endif
#ifdef QT_NETWORK_LIB
#include <QtNetwork/QtNetwork>
#endif
#ifdef QT_DBUS_LIB
#include <QtDBus/QtDBus>
#endif
#ifdef QT_WIDGETS_LIB
#include <QtWidgets/QtWidgets>
#endif
