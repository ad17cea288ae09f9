// SPDX-License-Identifier: GPL-3.0-or-later
// Links and pictures of the documents.
#include "tests/testing/FileContent.h"
#include "util/CaseFolding.h"
#include "util/Text.h"

#include <gtest/gtest.h>

#include <filesystem>
#include <set>
#include <string>
#include <string_view>
#include <vector>

namespace kelvrum {
namespace {

namespace fs = std::filesystem;

const fs::path DOCS = KELVRUM_DOCS;
const fs::path PICTURES = DOCS / "pictures";

std::vector<fs::path> documents() {
    std::vector<fs::path> found = {DOCS.parent_path() / "README.md", DOCS.parent_path() / "CONTRIBUTING.md"};
    for (const fs::directory_entry& entry : fs::directory_iterator(DOCS)) {
        if (entry.path().extension() == ".md") {
            found.push_back(entry.path());
        }
    }
    return found;
}

std::vector<std::string> targetsIn(const std::string& text) {
    std::vector<std::string> targets;
    for (std::size_t at = text.find("]("); at != std::string::npos; at = text.find("](", at + 1)) {
        const std::size_t from = at + 2;
        targets.push_back(text.substr(from, text.find(')', from) - from));
    }
    return targets;
}

/// The anchor that a heading gets: small letters, no punctuation, "-" for blanks.
std::string anchorOf(std::string_view heading) {
    std::string anchor;
    for (const char c : foldCase(heading)) {
        if (c == ' ') {
            anchor += '-';
        } else if (std::string_view("`.,:;()!?\"*/").find(c) == std::string_view::npos) {
            anchor += c;
        }
    }
    return anchor;
}

std::set<std::string> anchorsOf(const std::string& text) {
    std::set<std::string> anchors;
    for (const std::string_view line : split(text, '\n')) {
        if (line.starts_with('#') && line.find(' ') != std::string_view::npos) {
            anchors.insert(anchorOf(line.substr(line.find(' ') + 1)));
        }
    }
    return anchors;
}

TEST(Links, LeadSomewhere) {
    std::size_t count = 0;
    for (const fs::path& document : documents()) {
        for (const std::string& target : targetsIn(testing::contentOf(document))) {
            if (target.starts_with("http")) {
                continue;
            }
            ++count;
            const std::size_t hash = target.find('#');
            const std::string name = target.substr(0, hash);
            const fs::path file = name.empty() ? document : document.parent_path() / name;
            EXPECT_TRUE(fs::exists(file)) << document << ": " << target;
            if (hash != std::string::npos) {
                EXPECT_TRUE(anchorsOf(testing::contentOf(file)).contains(target.substr(hash + 1)))
                    << document << ": " << target;
            }
        }
    }
    EXPECT_GT(count, 40U);
}

/// Each picture is shown somewhere and small enough to load at once.
TEST(Pictures, AreShownAndSmall) {
    constexpr std::uintmax_t LARGEST = 60'000;
    std::set<fs::path> shown;
    for (const fs::path& document : documents()) {
        for (const std::string& target : targetsIn(testing::contentOf(document))) {
            shown.insert((document.parent_path() / target).lexically_normal());
        }
    }
    for (const fs::directory_entry& picture : fs::directory_iterator(PICTURES)) {
        EXPECT_TRUE(shown.contains(picture.path().lexically_normal())) << picture.path();
        EXPECT_LT(picture.file_size(), LARGEST) << picture.path();
    }
}

} // namespace
} // namespace kelvrum
