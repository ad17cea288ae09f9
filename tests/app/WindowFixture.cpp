// SPDX-License-Identifier: GPL-3.0-or-later
#include "tests/app/WindowFixture.h"

#include "diagram/PolarSys.h"
#include "diagram/SeriesTable.h"

#include <QDateEdit>
#include <QLocale>
#include <QSignalBlocker>
#include <QTableView>
#include <QTimeEdit>
#include <QTimeZone>
#include <cmath>
#include <utility>

namespace kelvrum::testing {

namespace {

/// Forwards every call and counts it.
class CountedFile final : public FileSource {
  public:
    CountedFile(std::unique_ptr<FileSource> file, CountingFiles& counters)
        : file_(std::move(file))
        , counters_(counters) {}
    std::uint64_t size() override { return file_->size(); }
    std::size_t read(std::uint64_t offset, std::span<std::byte> into) override {
        if (counters_.onRead) {
            counters_.onRead();
        }
        return file_->read(offset, into);
    }
    [[nodiscard]] std::error_code readError() const override { return file_->readError(); }

  private:
    std::unique_ptr<FileSource> file_;
    CountingFiles& counters_;
};

std::unique_ptr<TempFolder> lay(const MadeStation& station) {
    auto folder = std::make_unique<TempFolder>();
    folder->write("QEL.ini", station.ini);
    for (const auto& [channel, minutes] : station.minutes) {
        const std::string number = std::string(channel < 10 ? "0" : "").append(std::to_string(channel));
        folder->write("Data/Kanal" + number + "_2020.chn", channelFile(minutes));
    }
    return folder;
}

} // namespace

FileOpener CountingFiles::opener() {
    return [this](std::string_view path) -> std::unique_ptr<FileSource> {
        auto file = openFile(path);
        if (!file) {
            return nullptr;
        }
        ++opened;
        return std::make_unique<CountedFile>(std::move(file), *this);
    };
}

MadeStation madeStation() {
    MadeStation station;
    station.ini = "PROJEKTNAME=Kläranlage Nord\nSTANDORT=Köln-Süd\nGERAETNUMMER=17\nDATAFOLDER=Data\n"
                  "CHAN04|Windgeschwindigkeit|m/s|0|40|Anemometer|0|1|2|1|0|0|WG\n"
                  "CHAN05|Windrichtung|Grad|0|360||0|1|2|36|4|0|WR\n"
                  "CHAN07|Staub|µg/m³|0|500||0|1|2|1|0|0|ST\n"
                  "CHAN12|Niederschlag|mm|0|10||0|1|2|0|0|0|NS\n"
                  "KGW07|50|150.5\n";
    constexpr int DAYS = 2;
    constexpr std::size_t END = TEST_DAY_MINUTE + DAYS * 1440;
    for (const int channel : {4, 5, 7, 12}) {
        station.minutes[channel].assign(END, 0.0);
    }
    for (int i = 0; i < DAYS * 1440; ++i) {
        const auto at = static_cast<std::size_t>(TEST_DAY_MINUTE + i);
        const bool outage = i >= 300 && i < 420;
        station.minutes[4][at] = outage ? 0 : 4 + 3 * std::sin(i / 200.0);
        station.minutes[5][at] = outage ? 99999900 : std::fmod(330 + i / 10.0, 360);
        station.minutes[7][at] = i % 97 == 0 ? 0 : 40 + 30 * std::sin(i / 90.0);
        station.minutes[12][at] = i % 240 < 30 ? 0.1 * (1 + i % 3) : 0;
    }
    return station;
}

MadeStation longStation() {
    MadeStation station = madeStation();
    constexpr int DAYS = 8;
    auto& dust = station.minutes[7];
    dust.resize(TEST_DAY_MINUTE + DAYS * 1440);
    for (int i = 0; i < DAYS * 1440; ++i) {
        dust[static_cast<std::size_t>(TEST_DAY_MINUTE + i)] = 10'000 + i;
    }
    return station;
}

MadeStation batchStation() {
    MadeStation made = madeStation();
    made.ini +=
        "CHAN01|Vertikalwind|m/s|-5|5||0|1|2|1|0|0|VW\nCHAN08|Lufttemperatur|°C|-20|40||0|1|2|1|0|0|LT\n";
    made.minutes[1] = made.minutes[4];
    made.minutes[8] = made.minutes[7];
    return made;
}

QDateTime pickedTime(const QString& text) {
    return QDateTime(QDate::fromString(text.left(10), QStringLiteral("dd.MM.yyyy")),
                     QTime::fromString(text.mid(11), QStringLiteral("HH:mm")), QTimeZone::utc())
        .toUTC();
}

WindowFixture::WindowFixture(const MadeStation& station)
    : WindowFixture(lay(station)) {}

WindowFixture::WindowFixture(std::unique_ptr<TempFolder> laid, const QDate& day)
    : folder(std::move(laid))
    , today(day)
    , before_(std::filesystem::current_path()) {
    start();
}

WindowFixture::~WindowFixture() = default;

void WindowFixture::start() {
    QLocale::setDefault(QLocale(QLocale::German, QLocale::Germany)); // whatever the machine's is
    Environment environment;
    environment.today = [this] {
        ++clockAsked;
        return today;
    };
    environment.programFolder = QString::fromStdString(folder->path().string());
    environment.open = files.opener();
    environment.dialogs = dialogs;
    window = std::make_unique<f>(environment);
    window->resize(1000, 700);
    window->Form_Load();
    driver().show();
}

void WindowFixture::arrange(const ShownRange& range, int interval) const {
    const auto date = [&](const char* name, const QString& text) {
        auto& picker = the<QDateEdit>(name);
        const QSignalBlocker quiet(&picker);
        picker.setDate(pickedTime(text).date());
    };
    const auto time = [&](const char* name, const QString& text) {
        typePicker(name, text.mid(11));
        QTest::keyClick(&the<QTimeEdit>(name), Qt::Key_Return);
    };
    date("DTPicker", range.from);
    date("DTPicker2", range.to);
    time("DTPicker3", range.to);
    time("DTPicker1", range.from);
    chooseInterval(interval);
}

ShownRange WindowFixture::shownRange() const {
    const auto text = [&](const char* date, const char* time) {
        return the<QDateEdit>(date).text() + QLatin1Char(' ') + the<QTimeEdit>(time).text();
    };
    return {text("DTPicker", "DTPicker1"), text("DTPicker2", "DTPicker3")};
}

std::vector<double> WindowFixture::shownSeries() const {
    const auto count = static_cast<std::size_t>(the<PolarSys>("KS").DataCount());
    const auto values = seriesTable().row(SeriesTable::Y1).first(count);
    return {values.begin(), values.end()};
}

int WindowFixture::shownRows() const { return the<QTableView>("lView").model()->rowCount(); }

} // namespace kelvrum::testing
