// SPDX-FileCopyrightText: 2026 The Pallistrom authors
// SPDX-License-Identifier: MIT
#pragma once

namespace pallistrom {

class KeyFilter;

/// The keys that the service's event tap is about: what the seam's answers need to know of the
/// keyboards.
class FilteredKeys {
public:
    FilteredKeys() = default;
    FilteredKeys(const FilteredKeys&) = delete;
    FilteredKeys& operator=(const FilteredKeys&) = delete;
    virtual ~FilteredKeys() = default;

    /// Returns whether somebody allows that keys are filtered now.
    [[nodiscard]] virtual bool mayBeFiltered() const = 0;

    /// From now on keys go by `filter`; by none if that is null. It outlives its use here.
    virtual void setFilter(KeyFilter* filter) = 0;

    /// Those of this process; null while there are none.
    static FilteredKeys*& current();
};

} // namespace pallistrom
