// SPDX-License-Identifier: GPL-3.0-or-later
#include "tools/makestation/IniWriter.h"

#include "tools/makestation/SampleChannels.h"
#include "util/Format.h"
#include "util/Numbers.h"

#include <initializer_list>

namespace kelvrum::sample {

namespace {

std::string joined(std::initializer_list<std::string> fields) {
    std::string line;
    for (const std::string& field : fields) {
        line.append(line.empty() ? "" : "|").append(field);
    }
    return line + "\n";
}

/// A keyword and the channel number with two digits.
std::string keyed(std::string_view keyword, std::int32_t number) {
    return std::string(keyword).append(number < 10 ? "0" : "").append(std::to_string(number));
}

std::string chanLine(const SampleChannel& channel) {
    return joined({keyed("CHAN", channel.number), std::string(channel.name), std::string(channel.unit),
                   plainNumber(channel.lowerLimit), plainNumber(channel.upperLimit),
                   std::string(channel.comment), "0", "1", "0", std::to_string(channel.mode),
                   std::to_string(channel.paired), "0", std::string(channel.tag)});
}

std::string virtLine(const SampleChannel& channel) {
    return joined({keyed("VIRT", channel.number), std::string(channel.name), "", std::string(channel.unit),
                   plainNumber(channel.lowerLimit), plainNumber(channel.upperLimit),
                   std::string(channel.comment), "0", std::to_string(channel.mode), "0",
                   std::string(channel.tag)});
}

std::string limitLines() {
    std::string lines;
    for (const SampleChannel& channel : SAMPLE_CHANNELS) {
        if (channel.limit1 != 0 || channel.limit2 != 0) {
            lines += joined(
                {keyed("KGW", channel.number), plainNumber(channel.limit1), plainNumber(channel.limit2)});
        }
    }
    return lines;
}

std::string timeText(Minute minute) { return formatDateTime(timeOf(minute), "dd.mm.yyyy hh:mm", {}); }

} // namespace

std::string iniText(const StationPlan& plan) {
    std::string text = std::string(SAMPLE_MARK) + ", angelegt von makestation\n\n";
    text += std::string("PROJEKTNAME=") + PROJECT_NAME + "\n";
    text += "STANDORT=Köln-Süd\n"
            "GERAETNUMMER=QEL-0417\n"
            "DATAFOLDER=\"Data\\\"\n";
    text += "ZEITVON=" + timeText(plan.begin()) + "\n";
    text += "ZEITBIS=" + timeText(plan.end()) + "\n";
    text += "WINDFAKTOR=" + plainNumber(WIND_FACTOR) + "\n";
    text += "STAUBFAKTOR=" + plainNumber(DUST_FACTOR) + "\n\n";
    for (const SampleChannel& channel : SAMPLE_CHANNELS) {
        text += channel.derived ? virtLine(channel) : chanLine(channel);
    }
    // A direction line has an effect only after the line of its channel.
    return text + "\n" + limitLines() + "\nRICHTUNGREIN=2,Talwind\nRICHTUNGRAUS=2,Bergwind\n";
}

} // namespace kelvrum::sample
