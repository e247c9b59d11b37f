// SPDX-FileCopyrightText: 2026 The Pallistrom authors
// SPDX-License-Identifier: MIT
#include "HeapPeak.h"

#include <malloc.h>

#include <algorithm>
#include <atomic>

// The C library's own, by the names that it keeps for programs that replace them.
// NOLINTBEGIN(bugprone-reserved-identifier,readability-identifier-naming)
extern "C" void* __libc_malloc(std::size_t size);
extern "C" void* __libc_calloc(std::size_t count, std::size_t size);
extern "C" void* __libc_realloc(void* block, std::size_t size);
extern "C" void __libc_free(void* block);

// NOLINTEND(bugprone-reserved-identifier,readability-identifier-naming)

namespace pallistrom::bench {

namespace {

std::atomic<std::size_t> now{0};
std::atomic<std::size_t> most{0};
std::atomic<std::size_t> start{0};

void* counted(void* block) {
    if (block != nullptr) {
        now += malloc_usable_size(block);
        most = std::max(most.load(), now.load());
    }
    return block;
}

void uncount(void* block) {
    if (block != nullptr) {
        now -= malloc_usable_size(block);
    }
}

} // namespace

void HeapPeak::reset() {
    start = now.load();
    most = now.load();
}

std::size_t HeapPeak::bytes() {
    return most - start;
}

} // namespace pallistrom::bench

// The parameters have the names that the C library gave them.
extern "C" {

void* malloc(std::size_t size) {
    return pallistrom::bench::counted(__libc_malloc(size));
}

void* calloc(std::size_t nmemb, std::size_t size) {
    return pallistrom::bench::counted(__libc_calloc(nmemb, size));
}

void* realloc(void* ptr, std::size_t size) {
    pallistrom::bench::uncount(ptr);
    return pallistrom::bench::counted(__libc_realloc(ptr, size));
}

void free(void* ptr) {
    pallistrom::bench::uncount(ptr);
    __libc_free(ptr);
}
}
