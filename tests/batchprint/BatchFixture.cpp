// SPDX-License-Identifier: GPL-3.0-or-later
#include "tests/batchprint/BatchFixture.h"

#include "config/ReadConf.h"
#include "tests/testing/Stations.h"

#include <QAbstractButton>
#include <QComboBox>
#include <QDateTimeEdit>
#include <QLineEdit>

namespace kelvrum::testing {

namespace {

constexpr const char* STATION =
    "PROJEKTNAME=Kläranlage Nord\nSTANDORT=Köln\nGERAETNUMMER=17\nDATAFOLDER=Data\n"
    "CHAN01|Staub|µg/m³|0|500||0|1|2|1|0|0|ST\n"
    "CHAN02|Wind & Wetter|m/s|0|40||0|1|2|1|0|0|WG\n"
    "CHAN06|Lufttemperatur|°C|-30|50||0|1|2|1|0|0|LT\n"
    "CHAN12|Niederschlag|mm|0|10||0|1|2|0|0|0|NS\n"
    "CHAN15|Luftfeuchte|%|0|100||0|1|2|1|0|0|LF\n"
    "KGW01|50|150.5\nKGW06|-5|1e-7\n";

} // namespace

BatchFixture::BatchFixture()
    : inside(folder.path())
    , range{dateSerial(2020, 6, 18) + timeSerial(6, 30), dateSerial(2020, 6, 19) + timeSerial(18, 15)} {
    qputenv("CUPS_SERVER", "/nonexistent"); // no test may reach a real printer
    folder.write("QEL.ini", STATION);
    std::vector<double> minutes(TEST_DAY_MINUTE, 0.0);
    for (int i = 0; i < 1440; ++i) {
        minutes.push_back(1 + i);
    }
    for (const char* number : {"01", "02", "06", "12"}) {
        folder.write(std::string("Data/Kanal") + number + "_2020.chn", channelFile(minutes));
    }
    station = readConf(folder.at("QEL.ini"), openFile).value();
    diagram.setPrintJob(job);
    open();
}

BatchFixture::~BatchFixture() = default;

ReadStatus BatchFixture::read(const ReadRequest& request, const DiagramSettings& settings) {
    events << QStringLiteral("read %1").arg(request.channel);
    const ReadStatus status = onRead ? onRead(request, settings) : ReadStatus::complete;
    reader_.readDiagram(station, request, settings, diagram, {});
    return status;
}

void BatchFixture::open() {
    window.reset();
    const auto load = [this] {
        events << QStringLiteral("load");
        if (onLoad) {
            onLoad();
        }
    };
    const auto reading = [this](const ReadRequest& request, const DiagramSettings& settings) {
        return read(request, settings);
    };
    window = std::make_unique<fCPrint>(
        fCPrint::Owner{range, station, LocaleTexts{}, diagram, job, reading, load, dialogs});
    driver().show();
}

QString BatchFixture::textOf(const char* field, int row) const { return the<QLineEdit>(field, row).text(); }

bool BatchFixture::isRed(const char* field, int row) const {
    return the<QLineEdit>(field, row).palette().color(QPalette::Base) == QColor(255, 0, 0);
}

} // namespace kelvrum::testing
