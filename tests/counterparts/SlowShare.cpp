// SPDX-License-Identifier: GPL-3.0-or-later
#include "tests/counterparts/SlowShare.h"

#include <dlfcn.h>

namespace kelvrum::testing {

namespace {

using Begin = void(const char*, long, long, long);
using Take = void(long*, long*, long*);

template<typename Function>
Function* preloaded(const char* name) {
    return reinterpret_cast<Function*>(::dlsym(RTLD_DEFAULT, name));
}

} // namespace

bool isShareThere() { return preloaded<Begin>("kelvrum_share_begin") != nullptr; }

void beginShare(const std::string& folder, const SharePlan& plan) {
    preloaded<Begin>("kelvrum_share_begin")(folder.c_str(), plan.answers, plan.slow.count(),
                                            plan.silence.count());
}

void endShare() { preloaded<Begin>("kelvrum_share_begin")("", 0, 0, 0); }

ShareCalls takeShareCalls() {
    long count = 0;
    long kept = 0;
    long waited = 0;
    preloaded<Take>("kelvrum_share_take")(&count, &kept, &waited);
    return {count, kept, std::chrono::nanoseconds(waited)};
}

} // namespace kelvrum::testing
