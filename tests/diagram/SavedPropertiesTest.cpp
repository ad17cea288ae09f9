// SPDX-License-Identifier: GPL-3.0-or-later
// The saved properties: keys, order, defaults, and texts that are not as they should be.
#include "diagram/SavedProperties.h"

#include "tests/diagram/TestDiagram.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <cmath>

namespace kelvrum {
namespace {

using kelvrum::testing::loadSaved;
using kelvrum::testing::TestDiagram;

struct SavedKey {
    const char* key;
    double standard;
};
const SavedKey SAVED_KEYS[] = {
    {"RadRaster", 12},
    {"LongRaster", 10},
    {"Enabled", 1},
    {"Bogenmass", 0},
    {"AngelOffset", -1.5707963267949},
    {"DiagTyp", 0},
    {"Y1Low", 0},
    {"Y1High", 100},
    {"Y2Low", 0},
    {"Y2High", 100},
    {"XLow", 37257},
    {"XHigh", 37258},
    {"D1", 255},
    {"D2", 0xFF0000},
    {"Xaxe", 0},
    {"Y1axe", 255},
    {"Y2axe", 0xFF0000},
    {"BgCol", 0xFFFFFF},
};

const char* const DEFAULT_TEXT =
    "RadRaster=12\nLongRaster=10\nEnabled=1\nBogenmass=0\nAngelOffset=-1.5707963267949\n"
    "DiagTyp=0\nY1Low=0\nY1High=100\nY2Low=0\nY2High=100\nXLow=37257\nXHigh=37258\n"
    "D1=255\nD2=16711680\nXaxe=0\nY1axe=255\nY2axe=16711680\nBgCol=16777215\n";

/// All properties different from their defaults, with numbers that need every digit.
void changeAll(DiagramState& state) {
    state.setRadRaster(16);
    state.setLongRaster(2147483647);
    state.setEnabledState(false);
    state.setBogenmass(1);
    state.setAngelOffset(33.3);
    state.setDiagTyp(-2147483647);
    state.setY1Low(0.1 + 0.2);
    state.setY1High(1e300);
    state.setY2Low(-1e-300);
    state.setY2High(1.0 / 3);
    state.setXLow(45292 + 1.0 / 1440);
    state.setXHigh(45292 + 2.0 / 1440);
    state.setD1(0xFFFFFFFF);
    state.setD2(1);
    state.setXaxe(2);
    state.setY1axe(3);
    state.setY2axe(4);
    state.setBgCol(0x123456);
}

void expectSameSaved(const DiagramState& one, const DiagramState& other) {
    for (const SavedProperties::Entry& entry : SavedProperties::entries()) {
        EXPECT_EQ(entry.get(one.properties()), entry.get(other.properties())) << entry.key;
    }
}

TEST(SavedProperties, KeysInOrderWithTheirDefaults) {
    const auto entries = SavedProperties::entries();
    ASSERT_EQ(entries.size(), std::size(SAVED_KEYS));
    const TestDiagram fresh;
    for (std::size_t i = 0; i < entries.size(); ++i) {
        EXPECT_EQ(entries[i].key, SAVED_KEYS[i].key);
        EXPECT_EQ(entries[i].standard(), SAVED_KEYS[i].standard) << entries[i].key;
        EXPECT_EQ(entries[i].get(fresh.properties()), SAVED_KEYS[i].standard) << entries[i].key;
    }
    EXPECT_EQ(SavedProperties::save(fresh.properties()), DEFAULT_TEXT);
}

TEST(SavedProperties, ReadBackExactlyAsSaved) {
    TestDiagram saved;
    changeAll(saved);
    TestDiagram loaded;
    loadSaved(SavedProperties::save(saved.properties()), loaded);
    expectSameSaved(saved, loaded);
    EXPECT_EQ(SavedProperties::save(loaded.properties()), SavedProperties::save(saved.properties()));
    EXPECT_EQ(loaded.D1(), 0xFFFFFFFF);
    EXPECT_EQ(loaded.XLow(), 45292 + 1.0 / 1440);
    EXPECT_FALSE(loaded.Enabled());
}

TEST(SavedProperties, TheAngleIsSavedInRadiansWhateverTheUnit) {
    TestDiagram diagram;
    diagram.setBogenmass(UNIT_DEGREES);
    diagram.setAngelOffset(90);
    const std::string text = SavedProperties::save(diagram.properties());
    const auto at = text.find("AngelOffset=1.5707963267");
    EXPECT_NE(at, std::string::npos) << text;
    TestDiagram loaded;
    loadSaved(text, loaded);
    EXPECT_NEAR(loaded.AngelOffset(), 90, 1e-9);
    for (const char* const unit : {"7", "2", "0"}) {
        loadSaved(std::string("Bogenmass=") + unit + "\nAngelOffset=1.25\n", loaded);
        loaded.setBogenmass(UNIT_RADIANS);
        EXPECT_EQ(loaded.AngelOffset(), 1.25) << "unit " << unit;
    }
}

TEST(SavedProperties, WhatIsNotSavedStays) {
    TestDiagram diagram;
    diagram.setHeadLine("Titel");
    diagram.setY1MinLow(4);
    diagram.setHilfslinie1(5);
    diagram.setShowMittel(true);
    diagram.AddData(1, 2);
    loadSaved("", diagram);
    EXPECT_EQ(diagram.HeadLine(), "Titel");
    EXPECT_EQ(diagram.properties().Y1MinLow, 4);
    EXPECT_EQ(diagram.Hilfslinie1(), 5);
    EXPECT_TRUE(diagram.showMittel());
    EXPECT_EQ(diagram.DataCount(), 1);
}

TEST(SavedProperties, AMissingKeyGetsItsDefault) {
    TestDiagram changed;
    changeAll(changed);
    const std::string whole = SavedProperties::save(changed.properties());
    for (const SavedKey& missing : SAVED_KEYS) {
        SCOPED_TRACE(missing.key);
        const auto from = ("\n" + whole).find(std::string("\n") + missing.key + "=");
        ASSERT_NE(from, std::string::npos);
        const auto to = whole.find('\n', from);
        TestDiagram loaded;
        changeAll(loaded);
        loadSaved(whole.substr(0, from) + whole.substr(to + 1), loaded);
        for (const SavedProperties::Entry& entry : SavedProperties::entries()) {
            EXPECT_EQ(entry.get(loaded.properties()),
                      entry.key == missing.key ? missing.standard : entry.get(changed.properties()))
                << entry.key;
        }
    }
}

TEST(SavedProperties, AnEmptyTextResetsEverySavedProperty) {
    TestDiagram diagram;
    changeAll(diagram);
    loadSaved("", diagram);
    EXPECT_EQ(SavedProperties::save(diagram.properties()), DEFAULT_TEXT);
}

// Texts that must load as if the key were absent.
const char* const BAD_TEXTS[] = {
    "RadRaster=0",
    "RadRaster=-3",
    "RadRaster=2.5",
    "RadRaster=",
    "RadRaster",
    "RadRaster=abc",
    "RadRaster=4294967297",
    "LongRaster=0",
    "LongRaster=1e99",
    "LongRaster=5 Ringe",
    "Enabled=wahr",
    "Bogenmass=1,5",
    "Bogenmass=99999999999",
    "AngelOffset=nan",
    "AngelOffset=90 Grad",
    "DiagTyp=0.5",
    "DiagTyp=-2147483649",
    "Y1Low=inf",
    "Y1High=1e999",
    "Y2Low=0x10",
    "XLow=1.1.2024",
    "XHigh=",
    "D1=-1",
    "D2=4294967296",
    "BgCol=#ffffff",
    "Unbekannt=5",
    "radraster",
    "=5",
    "\n\n=\n==\n",
};

TEST(SavedProperties, ABadValueGetsTheDefault) {
    for (const char* const text : BAD_TEXTS) {
        SCOPED_TRACE(text);
        TestDiagram loaded;
        changeAll(loaded);
        loadSaved(text, loaded);
        EXPECT_EQ(SavedProperties::save(loaded.properties()), DEFAULT_TEXT);
    }
}

TEST(SavedProperties, OfARepeatedKeyTheFirstNumberCounts) {
    TestDiagram loaded;
    loadSaved("Y1High=7\nY1High=8\nY2High=abc\nY2High=9\n", loaded);
    EXPECT_EQ(loaded.Y1High(), 7);
    EXPECT_EQ(loaded.Y2High(), 9);
}

TEST(SavedProperties, EveryCutTextLoads) {
    TestDiagram changed;
    changeAll(changed);
    const std::string whole = SavedProperties::save(changed.properties());
    for (std::size_t length = 0; length <= whole.size(); ++length) {
        TestDiagram loaded;
        loadSaved(whole.substr(0, length), loaded);
        EXPECT_GE(loaded.RadRaster(), 1);
        EXPECT_GE(loaded.LongRaster(), 1);
        EXPECT_TRUE(std::isfinite(loaded.Y1High()));
    }
}

} // namespace
} // namespace kelvrum
