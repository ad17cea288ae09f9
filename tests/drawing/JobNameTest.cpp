// SPDX-License-Identifier: GPL-3.0-or-later
// The name of a print job: station, subject and days, within its length.
#include "drawing/JobName.h"

#include <gtest/gtest.h>
#include <string>

namespace kelvrum {

namespace {

constexpr DateTime DAY = 46191; // 18 June 2026

std::size_t charactersOf(const std::string& text) {
    std::size_t count = 0;
    for (const char c : text) {
        count += (static_cast<unsigned char>(c) & 0xC0U) != 0x80U ? 1 : 0;
    }
    return count;
}

TEST(JobName, SaysStationSubjectAndDays) {
    struct Case {
        const char* station;
        const char* subject;
        TimeRange range;
        const char* expected;
    };
    const Case cases[] = {
        {"Kläranlage Nord", "Staub PM10", {DAY, DAY + 1}, "Kläranlage Nord – Staub PM10 – 18.06.2026"},
        {"Kläranlage Nord", "Staub PM10", {DAY, DAY + 0.5}, "Kläranlage Nord – Staub PM10 – 18.06.2026"},
        {"Kläranlage Nord",
         "Staub PM10",
         {DAY + 0.25, DAY + 1.25},
         "Kläranlage Nord – Staub PM10 – 18.06.2026 bis 19.06.2026"},
        {"Kläranlage Nord",
         "Sammeldruck",
         {DAY, DAY + 3},
         "Kläranlage Nord – Sammeldruck – 18.06.2026 bis 20.06.2026"},
        {"Kläranlage Nord", "", {DAY, DAY + 1}, "Kläranlage Nord – 18.06.2026"},
        {"", "", {DAY, DAY + 1}, "18.06.2026"},
        {"Nord", "Staub", {DAY, DAY}, "Nord – Staub – 18.06.2026"},     // an empty range
        {"Nord", "Staub", {DAY, DAY - 2}, "Nord – Staub – 18.06.2026"}, // a reversed one
        {"Nord\n", "Sta\tub", {DAY, DAY + 1}, "Nord  – Sta ub – 18.06.2026"},
    };
    for (const Case& c : cases) {
        EXPECT_EQ(jobName(c.station, c.subject, c.range, {}), c.expected);
    }
}

TEST(JobName, HasAtMost120Characters) {
    const std::string longText(200, 'x');
    std::string umlauts;
    for (int i = 0; i < 200; ++i) {
        umlauts += "ä";
    }
    for (const std::string& station : {std::string("Nord"), longText, umlauts}) {
        for (const std::string& subject : {std::string("Staub"), longText, umlauts}) {
            for (const double days : {1.0, 3.0}) {
                const std::string name = jobName(station, subject, {DAY, DAY + days}, {});
                EXPECT_LE(charactersOf(name), MAX_JOB_NAME) << name;
                EXPECT_TRUE(name.ends_with(days > 1 ? "18.06.2026 bis 20.06.2026" : "18.06.2026")) << name;
                EXPECT_NE(name.find(station.substr(0, 4)), std::string::npos) << name;
                EXPECT_NE(name.find(subject.substr(0, 4)), std::string::npos) << name;
            }
        }
    }
    EXPECT_EQ(charactersOf(jobName(longText, "Staub", {DAY, DAY + 1}, {})), MAX_JOB_NAME);
}

} // namespace

} // namespace kelvrum
