// SPDX-FileCopyrightText: 2026 The Pallistrom authors
// SPDX-License-Identifier: MIT
#include "platform/RunLoop.h"

#include <vector>

namespace pallistrom {

class CFRunLoopSource {
public:
    CFMachPortRef port;
};

// The keyboards are served whether or not a tap is on, so a loop has nothing to do for its sources
// but to keep them.
class CFRunLoop {
public:
    std::vector<CFRunLoopSourceRef> sources;
};

CFRunLoopRef CFRunLoopGetCurrent() {
    // Never destroyed: what is torn down at exit would find half of the program gone.
    static auto* const loop = new CFRunLoop;
    return loop;
}

CFRunLoopSourceRef CFMachPortCreateRunLoopSource(const CFMachPortRef& port,
                                                 std::int64_t /*order*/) {
    return std::make_shared<CFRunLoopSource>(CFRunLoopSource{port});
}

void CFRunLoopAddSource(CFRunLoopRef runLoop,
                        const CFRunLoopSourceRef& source,
                        CFRunLoopMode /*mode*/) {
    runLoop->sources.push_back(source);
}

} // namespace pallistrom
