#pragma once
// The number of the run-time error a call raises; 0 when it raises none.
#include <functional>

#include "platform/vb/Error.h"

inline int ErrorOf(const std::function<void()>& f) {
    try { f(); } catch (const vb::RuntimeError& e) { return e.Number; }
    return 0;
}
