// SPDX-FileCopyrightText: 2026 The Pallistrom authors
// SPDX-License-Identifier: MIT
#include "CountedAllocations.h"

#include <atomic>
#include <cstdlib>
#include <new>

namespace {

std::atomic<std::size_t> count;

void* allocate(std::size_t size) {
    count.fetch_add(1, std::memory_order_relaxed);
    return std::malloc(size == 0 ? 1 : size);
}

void* allocateAligned(std::size_t size, std::align_val_t alignment) {
    count.fetch_add(1, std::memory_order_relaxed);
    const auto step = static_cast<std::size_t>(alignment);
    return std::aligned_alloc(step, (size + step - 1) / step * step);
}

void* orThrow(void* memory) {
    if (memory == nullptr) {
        throw std::bad_alloc();
    }
    return memory;
}

} // namespace

namespace pallistrom {

std::size_t countedAllocations() {
    return count.load(std::memory_order_relaxed);
}

} // namespace pallistrom

// All forms that do not call another one of these by themselves.

void* operator new(std::size_t size) {
    return orThrow(allocate(size));
}

void* operator new[](std::size_t size) {
    return orThrow(allocate(size));
}

void* operator new(std::size_t size, const std::nothrow_t& /*tag*/) noexcept {
    return allocate(size);
}

void* operator new[](std::size_t size, const std::nothrow_t& /*tag*/) noexcept {
    return allocate(size);
}

void* operator new(std::size_t size, std::align_val_t alignment) {
    return orThrow(allocateAligned(size, alignment));
}

void* operator new[](std::size_t size, std::align_val_t alignment) {
    return orThrow(allocateAligned(size, alignment));
}

void operator delete(void* memory) noexcept {
    std::free(memory);
}

void operator delete[](void* memory) noexcept {
    std::free(memory);
}

void operator delete(void* memory, std::size_t /*size*/) noexcept {
    std::free(memory);
}

void operator delete[](void* memory, std::size_t /*size*/) noexcept {
    std::free(memory);
}

void operator delete(void* memory, std::align_val_t /*alignment*/) noexcept {
    std::free(memory);
}

void operator delete[](void* memory, std::align_val_t /*alignment*/) noexcept {
    std::free(memory);
}

void operator delete(void* memory, std::size_t /*size*/, std::align_val_t /*alignment*/) noexcept {
    std::free(memory);
}

void operator delete[](void* memory,
                       std::size_t /*size*/,
                       std::align_val_t /*alignment*/) noexcept {
    std::free(memory);
}
