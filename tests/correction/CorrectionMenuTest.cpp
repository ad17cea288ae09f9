// SPDX-License-Identifier: GPL-3.0-or-later
// When the corrections are offered.
#include "correction/CorrectionMenu.h"

#include "tests/testing/TempFolder.h"

#include <gtest/gtest.h>

#include <ostream>

namespace kelvrum {

void PrintTo(const CorrectionMenu& menu, std::ostream* out) {
    *out << (menu.enabled ? "enabled" : "disabled") << ", "
         << (!menu.visible   ? "visibility as it was"
             : *menu.visible ? "visible"
                             : "hidden");
}

namespace {

TEST(CorrectionMenu, Table) {
    const CorrectionMenu offered = {true, true};
    const CorrectionMenu hidden = {false, false};
    const CorrectionMenu disabled = {false, {}};
    struct Row {
        bool allowed;
        double factor;
        const char* file; // in the current folder; empty for none
        CorrectionMenu menu;
    };
    const Row rows[] = {
        {true, 1.1, "faktoren.cfg", offered},
        {true, 1.1, "", hidden},
        {true, -0.5, "faktoren.cfg", offered},
        {true, 1e-300, "faktoren.cfg", offered},
        {true, 1, "FAKTOREN.CFG", offered}, // names are matched in any case
        {true, 1, "faktoren.cfg.alt", hidden},
        {true, 1, "faktoren", hidden},
        {true, 1, "unter/faktoren.cfg", hidden}, // not the current folder
        {true, 0, "faktoren.cfg", disabled},
        {true, 0, "", disabled},
        {true, -0.0, "faktoren.cfg", disabled},
        {false, 1.1, "faktoren.cfg", disabled},
        {false, 1.1, "", disabled},
        {false, 0, "faktoren.cfg", disabled},
        {false, 0, "", disabled},
    };
    for (const Row& row : rows) {
        const testing::TempFolder folder;
        if (*row.file != '\0') {
            folder.write(row.file, "");
        }
        const testing::CurrentFolder current(folder.path());
        EXPECT_EQ(correctionMenu(row.allowed, row.factor), row.menu)
            << row.allowed << " " << row.factor << " '" << row.file << "'";
    }
}

TEST(CorrectionMenu, FollowsTheFileFromCallToCall) {
    const testing::TempFolder folder;
    const testing::CurrentFolder current(folder.path());
    EXPECT_FALSE(correctionMenu(true, 2).enabled);
    const std::string file = folder.write("faktoren.cfg", "any bytes, never read");
    EXPECT_TRUE(correctionMenu(true, 2).enabled);
    std::filesystem::remove(file);
    EXPECT_FALSE(correctionMenu(true, 2).enabled);
}

} // namespace
} // namespace kelvrum
