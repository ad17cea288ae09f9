// SPDX-License-Identifier: GPL-3.0-or-later
// A share that answers slowly, then not at all for a while, then with errors: a library to be preloaded,
// which comes between the program and the files below one folder.
#pragma once

#include <chrono>
#include <string>

namespace kelvrum::testing {

/// What becomes of the calls on the files of the share.
struct SharePlan {
    long answers = 0;                        // calls that are answered, each after `slow`
    std::chrono::milliseconds slow{50};      //
    std::chrono::milliseconds silence{5000}; // of the next call, which fails then, as all later ones do
};

/// The calls since takeShareCalls() was last called.
struct ShareCalls {
    long count = 0;
    long kept = 0; // those that kept the window waiting; after the silence calls fail at once
    std::chrono::nanoseconds waited{0}; // for their answers
};

/// Whether the library is preloaded. Without it nothing else here works.
bool isShareThere();

/// From now on the plan is in force for all paths below a folder.
void beginShare(const std::string& folder, const SharePlan& plan);

/// Every call is answered at once again.
void endShare();

ShareCalls takeShareCalls();

} // namespace kelvrum::testing
