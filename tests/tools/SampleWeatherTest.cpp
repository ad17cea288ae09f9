// SPDX-License-Identifier: GPL-3.0-or-later
// The sample station's weather: it is always the same, and believable.
#include "tools/makestation/SampleStation.h"
#include "util/Validity.h"

#include <algorithm>
#include <cmath>
#include <gtest/gtest.h>
#include <vector>

namespace {

using namespace kelvrum;
using namespace kelvrum::sample;

StationPlan yearPlan() { return {StationForm::ini, dateSerial(2021, 1, 1), 366, 1}; }

std::vector<MinuteRecord> allMinutes(const StationPlan& plan) {
    std::vector<MinuteRecord> minutes;
    SampleStation station(plan);
    while (const auto record = station.next()) {
        minutes.push_back(*record);
    }
    return minutes;
}

/// A year that the tests share: the leap year 2020.
const std::vector<MinuteRecord>& year() {
    static const std::vector<MinuteRecord> minutes = allMinutes(yearPlan());
    return minutes;
}

struct Statistics {
    double lowest = 1e9;
    double highest = -1e9;
    double sum = 0;
    double count = 0;
    double zeros = 0; // recorded minutes of 0
    double marked = 0;

    void add(double value) {
        if (isPresent(value)) {
            lowest = std::min(lowest, value);
            highest = std::max(highest, value);
            sum += value;
            ++count;
        } else {
            ++(value == 0 ? zeros : marked);
        }
    }
    [[nodiscard]] double mean() const { return sum / count; }
};

Statistics statisticsOf(Quantity quantity) {
    Statistics statistics;
    for (const MinuteRecord& record : year()) {
        if (record.recorded) {
            statistics.add(record.values[quantity]);
        }
    }
    return statistics;
}

TEST(Random, IsTheSameOnEveryMachine) {
    Random random(1, Stream::fronts);
    std::mt19937_64 engine(1'000'004);
    EXPECT_EQ(random.unit(), static_cast<double>(engine() >> 11U) / 9007199254740992.0);
    for (int i = 0; i < 1000; ++i) {
        EXPECT_LE(std::fabs(random.bell()), 3.4642);
        const Minute minutes = random.minutes(-2, 3);
        EXPECT_GE(minutes, -2);
        EXPECT_LE(minutes, 3);
    }
}

TEST(Random, WandersWithTheWantedDeviation) {
    Random random(7, Stream::air);
    Wander wander(20, 3, random);
    double squares = 0;
    constexpr int STEPS = 400'000;
    for (int i = 0; i < STEPS; ++i) {
        const double value = wander.step(random);
        squares += value * value;
    }
    EXPECT_NEAR(std::sqrt(squares / STEPS), 3, 0.1);
}

TEST(SampleWeather, RunsFromMidnightToTheMoment) {
    const struct {
        DateTime until;
        int days;
        DateTime begin;
        std::size_t minutes;
    } cases[] = {
        {dateSerial(2020, 3, 1), 1, dateSerial(2020, 2, 29), 1440},
        {dateSerial(2020, 3, 1) + timeSerial(0, 1), 1, dateSerial(2020, 2, 29), 1441},
        {dateSerial(2020, 6, 18) + timeSerial(23, 59), 3, dateSerial(2020, 6, 15), 5759},
        {dateSerial(2021, 1, 1), 366, dateSerial(2020, 1, 1), 527'040},
    };
    for (const auto& wanted : cases) {
        const auto minutes = allMinutes({StationForm::ini, wanted.until, wanted.days, 1});
        ASSERT_EQ(minutes.size(), wanted.minutes);
        EXPECT_EQ(minutes.front().minute, std::llround(wanted.begin * 1440));
        EXPECT_EQ(minutes.back().minute + 1, std::llround(wanted.until * 1440));
    }
}

TEST(SampleWeather, FollowsSeedAndMoment) {
    const StationPlan plan{StationForm::ini, dateSerial(2020, 6, 18), 2, 5};
    const auto values = [](const StationPlan& wanted) {
        std::vector<double> all;
        for (const MinuteRecord& record : allMinutes(wanted)) {
            all.insert(all.end(), record.values.begin(), record.values.end());
        }
        return all;
    };
    EXPECT_EQ(values(plan), values(plan));
    StationPlan otherSeed = plan;
    otherSeed.seed = 6;
    EXPECT_NE(values(plan), values(otherSeed));
    StationPlan otherMoment = plan;
    otherMoment.until += 1;
    EXPECT_NE(values(plan), values(otherMoment));
}

TEST(SampleWeather, StaysInBelievableBounds) {
    const struct {
        Quantity quantity;
        double lowest;
        double highest;
        double minMean;
        double maxMean;
    } cases[] = {
        {VERTICAL_WIND, -2.3, 2.3, -0.1, 0.1},
        {WIND_DIRECTION, 1, 360, 120, 240},
        {WIND_SPEED, 0.4, 22, 2, 4},
        {WIND_CALIBRATION, 0.9, 1.1, 0.95, 1.05},
        {WIND_CORRECTED, 0.3, 25, 2, 4.5},
        {DUST_PM10, 0.5, 985, 14, 30},
        {TEMPERATURE, -20, 40, 7, 14},
        {HUMIDITY, 18, 100, 65, 88},
        {PRESSURE, 970, 1048, 1005, 1022},
        {PRECIPITATION, 0.1, 0.5, 0.1, 0.12},
        {GUST, 0.6, 36, 3, 7},
        {DUST_PM25, 0.3, 500, 7, 20},
        {DUST_CORRECTED, 0.4, 910, 12, 28},
    };
    for (const auto& wanted : cases) {
        const Statistics statistics = statisticsOf(wanted.quantity);
        SCOPED_TRACE(SAMPLE_CHANNELS[wanted.quantity].name);
        EXPECT_GE(statistics.lowest, wanted.lowest);
        EXPECT_LE(statistics.highest, wanted.highest);
        EXPECT_GE(statistics.mean(), wanted.minMean);
        EXPECT_LE(statistics.mean(), wanted.maxMean);
        EXPECT_GT(statistics.marked, 20);
        EXPECT_LT(statistics.marked, 2000);
    }
}

TEST(SampleWeather, HasZerosOnlyInCalmsAndDryMinutes) {
    for (std::size_t i = 0; i < QUANTITIES; ++i) {
        const double zeros = statisticsOf(static_cast<Quantity>(i)).zeros;
        const bool calms = i == WIND_SPEED || i == WIND_CORRECTED || i == GUST;
        const bool dry = i == PRECIPITATION;
        EXPECT_GE(zeros, calms ? 5000 : dry ? 500'000 * 0.9 : 0) << SAMPLE_CHANNELS[i].name;
        EXPECT_LE(zeros, calms ? 150'000 : dry ? 526'000 : 0) << SAMPLE_CHANNELS[i].name;
    }
}

TEST(SampleWeather, HasADailyCourseOfTurbulence) {
    double night = 0;
    double noon = 0;
    for (const MinuteRecord& record : year()) {
        const double w = record.values[VERTICAL_WIND];
        if (isPresent(w)) {
            const Minute hour = record.minute % DAY / HOUR;
            night += hour < 3 ? w * w : 0;
            noon += hour >= 11 && hour < 14 ? w * w : 0;
        }
    }
    EXPECT_GT(std::sqrt(noon), 2 * std::sqrt(night));
}

TEST(SampleWeather, HasYearAndDayInItsTemperature) {
    Statistics january;
    Statistics july;
    Statistics nights;
    Statistics afternoons;
    const Minute newYear = year().front().minute;
    for (const MinuteRecord& record : year()) {
        const double value = record.values[TEMPERATURE];
        const Minute day = (record.minute - newYear) / DAY;
        const Minute hour = record.minute % DAY / HOUR;
        if (record.recorded) {
            (day < 31 ? january.add(value) : void());
            (day >= 182 && day < 213 ? july.add(value) : void());
            (hour >= 2 && hour < 5 ? nights.add(value) : void());
            (hour >= 14 && hour < 17 ? afternoons.add(value) : void());
        }
    }
    EXPECT_GT(july.mean(), january.mean() + 10);
    EXPECT_GT(afternoons.mean(), nights.mean() + 3);
}

TEST(SampleWeather, HasDryWeeksAndWetDays) {
    const Minute newYear = year().front().minute;
    std::vector<double> days(366);
    for (const MinuteRecord& record : year()) {
        const double tipped = record.values[PRECIPITATION];
        if (isPresent(tipped)) {
            days[static_cast<std::size_t>((record.minute - newYear) / DAY)] += tipped;
        }
    }
    std::size_t longest = 0;
    std::size_t dry = 0;
    double total = 0;
    for (const double day : days) {
        dry = day == 0 ? dry + 1 : 0;
        longest = std::max(longest, dry);
        total += day;
    }
    EXPECT_GE(longest, 7U);
    EXPECT_GE(total, 200);
    EXPECT_LE(total, 1200);
    EXPECT_GE(*std::max_element(days.begin(), days.end()), 5);
}

TEST(SampleWeather, HasDustOutliers) {
    int outliers = 0;
    for (std::size_t i = 1; i < year().size(); ++i) {
        const double before = year()[i - 1].values[DUST_PM10];
        const double now = year()[i].values[DUST_PM10];
        outliers += isPresent(before) && isPresent(now) && now > 5 * before ? 1 : 0;
        const double fine = year()[i].values[DUST_PM25];
        if (isPresent(fine) && isPresent(now)) {
            EXPECT_LE(fine, now);
        }
    }
    EXPECT_GE(outliers, 50);
    EXPECT_LE(outliers, 500);
}

TEST(SampleWeather, DerivesTheCorrectedChannels) {
    for (std::size_t i = 0; i < year().size(); i += 7) {
        const auto& v = year()[i].values;
        const bool windMissing = v[WIND_SPEED] == INVALID_VALUE || v[WIND_CALIBRATION] == INVALID_VALUE;
        const bool dustMissing = v[DUST_PM10] == INVALID_VALUE;
        EXPECT_EQ(v[WIND_CORRECTED],
                  windMissing ? INVALID_VALUE : v[WIND_SPEED] * v[WIND_CALIBRATION] * 1.05);
        EXPECT_EQ(v[DUST_CORRECTED], dustMissing ? INVALID_VALUE : v[DUST_PM10] * 0.92);
    }
}

TEST(SampleWeather, GustsAreNotWeakerThanTheWind) {
    for (const MinuteRecord& record : year()) {
        const auto& v = record.values;
        if (isPresent(v[WIND_SPEED]) && isPresent(v[GUST])) {
            ASSERT_GE(v[GUST], v[WIND_SPEED]);
        }
    }
}

TEST(SampleWeather, ReportsWholeTenthsAsSuch) {
    for (std::size_t i = 0; i < 10 * DAY; ++i) {
        const double speed = year()[i].values[WIND_SPEED];
        EXPECT_EQ(speed, std::round(speed * 10) / 10);
    }
}

/// Mean direction over some minutes as a vector, in degrees from -180 to 180: north is 0.
double directionBetween(const std::vector<MinuteRecord>& minutes, Minute from, Minute to) {
    double x = 0;
    double y = 0;
    for (const MinuteRecord& record : minutes) {
        const double direction = record.values[WIND_DIRECTION];
        if (record.minute >= from && record.minute < to && isPresent(direction)) {
            x += std::sin(direction * 0.0174532925199433);
            y += std::cos(direction * 0.0174532925199433);
        }
    }
    return std::atan2(x, y) * 57.2957795130823;
}

TEST(SampleWeather, TurnsTheWindThroughNorthAtTheLastFront) {
    const DateTime moments[] = {dateSerial(2020, 6, 18), dateSerial(2020, 6, 18) + timeSerial(0, 1),
                                dateSerial(2020, 12, 31) + timeSerial(23, 59)};
    for (const DateTime until : moments) {
        for (const std::uint64_t seed : {1U, 2U, 3U}) {
            const StationPlan plan{StationForm::ini, until, 3, seed};
            const auto minutes = allMinutes(plan);
            const Front front = SampleStation(plan).fronts().back();
            const Minute lastDay = (plan.end() - 1) / DAY;
            SCOPED_TRACE(seed);
            EXPECT_EQ(front.begin / DAY, lastDay - 1);
            const double before = directionBetween(minutes, front.begin - HOUR, front.begin);
            const Minute frontEnd = front.begin + front.length;
            const double after = directionBetween(minutes, frontEnd, frontEnd + HOUR);
            EXPECT_GT(before, -130); // from the west
            EXPECT_LT(before, -30);
            EXPECT_GT(after, 0); // to the north-east, by way of north
            EXPECT_LT(after, 100);
            const double midway =
                directionBetween(minutes, front.begin + front.length / 3, frontEnd - front.length / 4);
            EXPECT_LT(std::fabs(midway), 50);
        }
    }
}

TEST(Outages, LastMinutesHoursAndDaysAndStayApart) {
    const StationPlan plan = yearPlan();
    const auto outages = outagesOf(plan);
    int byMinutes = 0;
    int byHours = 0;
    int byDays = 0;
    Minute before = 0;
    for (const Outage& outage : outages) {
        const Minute length = outage.end - outage.begin;
        EXPECT_GT(outage.begin, before);
        before = outage.end;
        EXPECT_GE(outage.begin, plan.begin());
        EXPECT_TRUE(length < HOUR || outage.end <= plan.end() - 2 * DAY);
        ++(length < HOUR ? byMinutes : length < DAY ? byHours : byDays);
    }
    EXPECT_GE(byMinutes, 80);
    EXPECT_GE(byHours, 5);
    EXPECT_GE(byDays, 1);
}

TEST(Outages, LeaveTheMinutesUnwritten) {
    const auto outages = outagesOf(yearPlan());
    Minute out = 0;
    for (const Outage& outage : outages) {
        out += std::min(outage.end, yearPlan().end()) - outage.begin;
    }
    Minute unwritten = 0;
    for (const MinuteRecord& record : year()) {
        unwritten += record.recorded ? 0 : 1;
        const bool empty =
            std::all_of(record.values.begin(), record.values.end(), [](double value) { return value == 0; });
        ASSERT_EQ(record.recorded, !empty);
    }
    EXPECT_EQ(unwritten, out);
}

} // namespace
