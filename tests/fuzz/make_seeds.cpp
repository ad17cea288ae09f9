// SPDX-License-Identifier: GPL-3.0-or-later
// Writes the inputs that the fuzz targets start from: make_seeds FOLDER makes FOLDER/TARGET/NAME.
#include "batchprint/SettingsFile.h"
#include "tests/batchprint/SettingsBytes.h"
#include "tests/testing/TempFolder.h"
#include "tools/makestation/IniWriter.h"
#include "tools/makestation/VarnixWriter.h"

#include <array>
#include <cmath>
#include <cstring>
#include <filesystem>
#include <fstream>
#include <iostream>
#include <string>
#include <vector>

namespace {

using namespace kelvrum;

class Seeds {
  public:
    explicit Seeds(std::filesystem::path folder)
        : folder_(std::move(folder)) {}

    void write(const std::string& target, const std::string& bytes) {
        std::filesystem::create_directories(folder_ / target);
        const auto path = folder_ / target / ("seed" + std::to_string(++number_));
        std::ofstream file(path, std::ios::binary);
        file.write(bytes.data(), static_cast<std::streamsize>(bytes.size()));
        file.close();
        if (!file) {
            throw std::runtime_error("cannot write " + path.string());
        }
    }

  private:
    std::filesystem::path folder_;
    int number_ = 0;
};

template<typename T>
std::string bytesOf(T value) {
    std::string bytes(sizeof(T), '\0');
    std::memcpy(bytes.data(), &value, sizeof(T));
    return bytes;
}

/// Numbers of two bytes each.
template<typename... T>
std::string words(T... values) {
    return (bytesOf(static_cast<std::int16_t>(values)) + ...);
}

void iniSeeds(Seeds& seeds) {
    seeds.write("ini", sample::iniText({}));
    const char* const texts[] = {
        "\xEF\xBB\xBFPROJEKTNAME=\"S\xC3\xBC"
        "d\"\r\nSTANDORT=B\xC3\xB6hlen\r\nDATAFOLDER= \"Data\" \r\n",
        "CHAN04|Wind|m/s|0|40|Anemometer|0|1|2|1|0|0|WG\nCHAN05|Richtung|Grad|0|360||0|1|2|36|4|0|WR\n"
        "KGW04|10|20\nRICHTUNGREIN=5,Nord\nRICHTUNGRAUS=5,S\xFC"
        "d\n",
        "VIRT06|Staub||\xC2\xB5g/m\xC2\xB3|0|100||2|1|1|ST\nWINDFAKTOR=1.05\nSTAUBFAKTOR=1e-3\n",
        "ZEITVON=01.02.2020 12:30\nZEITBIS=2021-12-31 23:59:59\nGERAETNUMMER=4711|rest\n",
        "CHAN2147483647|N|||||||||||T\nCHAN1e9|N|\nKGW0.5|1|\nCHAN1|N||1e400|-1e400||1e-400|2|2147483648\n",
    };
    for (const char* const text : texts) {
        seeds.write("ini", text);
    }
}

void varnixSeeds(Seeds& seeds) {
    for (const bool wide : {false, true}) {
        const auto record = sample::varnixRecord(wide);
        seeds.write("varnix", {reinterpret_cast<const char*>(record.data()), record.size()});
    }
    const std::vector<std::string> names(34, "Gr\xF6\xDF"
                                             "e \x80 von 17");
    seeds.write("varnix", testing::varnixFile("Station", names, true));
}

/// A request of ChannelInput and minutes of both files in turns.
std::string channelSeed(int mode, int interval, int flags, int start, int length, int shift,
                        const std::vector<double>& values) {
    std::string bytes = {static_cast<char>(mode), static_cast<char>(interval), static_cast<char>(flags), 60};
    bytes += words(start, length, shift, 0);
    for (const double v : values) {
        bytes += bytesOf(v);
    }
    return bytes;
}

void channelSeeds(Seeds& seeds) {
    std::vector<double> weather;
    for (int minute = 0; minute < 40; ++minute) {
        weather.push_back(minute % 7 == 0 ? 0 : 340 + minute); // directions, some missing
        weather.push_back(minute % 5 == 0 ? 0 : 0.5 + minute / 10.0);
    }
    const std::vector<double> awkward = {99999900, -99999900, 99999899, 1e-300, -1e-300, 1,   -1,
                                         0,        NAN,       INFINITY, 5e-324, 1e-162,  360, 180,
                                         2.2e-162, 90,        270,      1e8,    0.1,     0.2};
    const std::vector<double> tiny = {24.95, 3.2e-162, 204.45, 7.3e-162, 19.15, 6e-162};
    seeds.write("channel", channelSeed(2, 1, 0, 0, 10, 0, tiny)); // squares that hold few digits
    for (int mode = 0; mode < 4; ++mode) {
        for (int interval = 0; interval < 8; ++interval) {
            seeds.write("channel",
                        channelSeed(mode, interval, 4 * (interval % 4), interval - 3, 60, 3 * mode, weather));
        }
        seeds.write("channel", channelSeed(mode, 1, 0, 0, 10, 0, awkward));
        seeds.write("channel", channelSeed(mode, 0, 2, 0, 10, 0, awkward)); // reading fails
        seeds.write("channel",
                    channelSeed(mode, 3, 9, 0, 500, 0, awkward)); // no pair, over the end of the year
    }
}

void daySeeds(Seeds& seeds) {
    for (const bool wide : {false, true}) {
        for (int interval = 0; interval < 8; ++interval) {
            const int slots = 2;
            std::array<std::string, 3> files;
            for (int minute = 0; minute < 12; ++minute) {
                const auto value = static_cast<float>(minute) / 3.0F;
                const std::vector<float> fields(wide ? 3U * slots : 1U * slots,
                                                minute % 4 == 0 ? 0.0F : value);
                files.at(0) += testing::dayRecord(2020, 6, 18, 1400 + 3 * minute, fields);
                files.at(1) += testing::dayRecord(2020, 6, 19, 10 * minute, fields);
                files.at(2) += testing::dayRecord(2020, 6, 18, minute == 5 ? 1440 : minute, fields);
            }
            const int length =
                interval % 2 == 0 ? 1600 : 470; // the latter ends with a record, to be left out
            const std::string request =
                words(wide ? 1 : 0, slots - 1, interval % 2, interval, 1000, length + 100);
            const std::string sizes = words(files[0].size(), files[1].size() - 3);
            seeds.write("day", request + sizes + files[0] + files[1].substr(3) + files[2]);
        }
    }
}

void settingsSeeds(Seeds& seeds) {
    seeds.write("batch_settings", testing::fileOf({}));
    const testing::MadeRecord row = {1, 0, -5.5, 1e300, 5, -1, 0.1, 99999900, 2};
    seeds.write("batch_settings", testing::fileOf(std::vector<testing::MadeRecord>(16, row)));
    seeds.write("batch_settings", testing::fileOf({row, row, {0, 1, NAN, INFINITY, 6, 0, -0.0, 5e-324, 0}}));
}

void propertySeeds(Seeds& seeds) {
    const char* const texts[] = {
        "RadRaster=16\nLongRaster=2147483647\nEnabled=0\nBogenmass=1\nAngelOffset=0.58119464091411\n"
        "DiagTyp=-2147483647\nY1Low=0.30000000000000004\nY1High=1e+300\nY2Low=-1e-300\nY2High=0."
        "3333333333333333\n",
        "XLow=45292.00069444444\nXHigh=45292.00138888889\nD1=4294967295\nD2=1\nXaxe=2\nBgCol=1193046\n",
        "RadRaster=0\nEnabled=wahr\nY1Low=inf\nY1High=1e999\nY2Low=-0\nXLow=1.1.2024\nDiagTyp=0.5\nD1=-1\n",
        "Y1High=7\nY1High=8\n RadRaster = 3 \r\nUnbekannt=5\n=\n",
    };
    for (const char* const text : texts) {
        seeds.write("saved_properties", text);
    }
}

void printoutSeeds(Seeds& seeds) {
    // paper, scale, width of the last column, value columns
    seeds.write("printout", words(2970, 2100, 99, 100, 2) +
                                "20|>57|>98\nUhrzeit|Staub [\xC2\xB5g/m\xC2\xB3]|Wind [m/s]\n"
                                "18.06.2020 12:30|12,5|0\n18.06.2020 12:31||3,25\n");
    seeds.write("printout", words(0, 0, 0, 0, 40) + "^12.5|-3|>1e999|20|x\n  a  |b|c|d|e|f\n|||\n");
    seeds.write("printout",
                words(500, 300, 9, 400, 0) + "5|^30|>100\nlang und l\xC3\xA4nger|kurz|x\nzwei Zellen|\n\n");
}

void textSeeds(Seeds& seeds) {
    for (const char* const text :
         {"12.5", " \t-7e3x", "+.5E-3", "1e400", "-1e-400", "0.1e", "0e999999999999",
          "1e99999999999999999999", "12abc", "0.000000000000000000001e22", "10e9223372036854775807",
          "0.01e-9223372036854775807", "17976931348623157e292", "4.9406564584124654e-324",
          "123456789012345678901234567890"}) {
        seeds.write("numbers", text);
    }
    for (const double v : {0.5, 1.5, -2.5, 0.1, 1e15, 1e-16, 123456.789, 1e308, 5e-324, -0.0}) {
        seeds.write("numbers", bytesOf(v) + bytesOf(static_cast<float>(v)));
        seeds.write("datetime", bytesOf(44000 + v) + bytesOf(std::int32_t{14}) +
                                    bytesOf(std::int32_t{43890}) + bytesOf(0x7FFFFFFFU));
        for (const char* const format : {"######0.00", "########0.0#", "0", "#.###", "dd.mm.yyyy hh:mm:ss",
                                         "m/yyyy", "dd/mm/yy hh:mm"}) {
            seeds.write("format", bytesOf(v * 1234.5) + bytesOf(std::int32_t{4400000}) + format);
        }
    }
    for (const char* const text :
         {"18.06.2020", "1.2.2020 3:04", "29.02.2019", "2020-06-18 12:30:59", "9999-12-31 23:59:59",
          "0100-1-1", " 31.12.1899  00:00 ", "2020-13-01", "1.1.2020 24:00"}) {
        seeds.write("datetime", text);
    }
}

void allSeeds(Seeds seeds) {
    iniSeeds(seeds);
    varnixSeeds(seeds);
    channelSeeds(seeds);
    daySeeds(seeds);
    settingsSeeds(seeds);
    propertySeeds(seeds);
    printoutSeeds(seeds);
    textSeeds(seeds);
}

} // namespace

int main(int argc, char* argv[]) {
    if (argc != 2) {
        std::cerr << "make_seeds FOLDER\n";
        return 2;
    }
    try {
        allSeeds(Seeds(argv[1]));
    } catch (const std::exception& error) {
        std::cerr << error.what() << '\n';
        return 1;
    }
}
