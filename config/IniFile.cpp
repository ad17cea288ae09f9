// SPDX-License-Identifier: GPL-3.0-or-later
#include "config/IniFile.h"

#include "util/Numbers.h"
#include "util/Paths.h"
#include "util/Text.h"

#include <array>
#include <cmath>
#include <optional>
#include <set>
#include <string>
#include <utility>
#include <vector>

namespace kelvrum {

namespace {

constexpr std::string_view BYTE_ORDER_MARK = "\xEF\xBB\xBF";

/// Passes the bytes of a file to `consume` in pieces of bounded size.
template<typename Consume>
void readPieces(FileSource& file, Consume consume) {
    constexpr std::size_t PIECE = 64UL * 1024;
    std::vector<std::byte> piece(PIECE);
    std::uint64_t offset = 0;
    while (const std::size_t got = file.read(offset, piece)) {
        consume(std::string_view(reinterpret_cast<const char*>(piece.data()), got));
        offset += got;
    }
}

bool isUtf8File(FileSource& file) {
    Utf8Check check;
    readPieces(file, [&check](std::string_view bytes) { check.feed(bytes); });
    return check.isValid();
}

/// Passes the lines of a file, without their line ends, to `consume`. Memory is bounded by MAX_INI_LINE.
template<typename Consume>
void readLines(FileSource& file, Consume consume) {
    std::string line;
    bool tooLong = false;
    const auto finish = [&] {
        if (!tooLong) {
            if (line.ends_with('\r')) {
                line.pop_back();
            }
            consume(line);
        }
        line.clear();
        tooLong = false;
    };
    readPieces(file, [&](std::string_view bytes) {
        while (!bytes.empty()) {
            const std::size_t end = bytes.find('\n');
            const std::string_view part = bytes.substr(0, end);
            tooLong = tooLong || line.size() + part.size() > MAX_INI_LINE;
            if (tooLong) {
                line.clear();
            } else {
                line.append(part);
            }
            if (end == std::string_view::npos) {
                return;
            }
            finish();
            bytes.remove_prefix(end + 1);
        }
    });
    finish();
}

/// The fields of one line. A field that the line does not have reads as an empty text. Whole numbers that do
/// not fit 32 bits are recorded, since they make the line invalid.
class Fields {
  public:
    explicit Fields(std::string_view line)
        : fields_(split(line, '|')) {}

    [[nodiscard]] std::string_view raw(std::size_t i) const {
        return i < fields_.size() ? fields_[i] : std::string_view();
    }
    [[nodiscard]] std::string text(std::size_t i) const { return std::string(trimBlanks(raw(i))); }
    [[nodiscard]] double number(std::size_t i) const {
        const double value = leadingNumber(raw(i));
        return std::isfinite(value) ? value : 0;
    }
    std::int32_t whole(std::size_t i) {
        const auto value = roundToInt32(leadingNumber(raw(i)));
        fits_ = fits_ && value.has_value();
        return value.value_or(0);
    }
    [[nodiscard]] bool fits() const { return fits_; }

  private:
    std::vector<std::string_view> fields_;
    bool fits_ = true;
};

/// The channel number of field 0 after its keyword; 0 when the line is to be ignored.
std::int32_t channelNumber(std::string_view text) {
    const double number = leadingNumber(text);
    return number < 1 ? 0 : roundToInt32(number).value_or(0);
}

class IniParser {
  public:
    explicit IniParser(StationConfig& station)
        : station_(station) {
        station_.ChannelTable.clear();
    }

    void parseLine(std::string_view line) {
        if (line.empty()) {
            return;
        }
        Fields fields(line);
        const std::string start = upperAscii(fields.raw(0).substr(0, LONGEST_KEY));
        for (const LineKind& kind : LINE_KINDS) {
            if (start.starts_with(kind.start)) {
                (this->*kind.parse)(fields);
                return;
            }
        }
    }

  private:
    struct LineKind {
        std::string_view start;
        void (IniParser::*parse)(Fields&);
    };
    static constexpr std::size_t LONGEST_KEY = 12;
    static const std::array<LineKind, 13> LINE_KINDS;

    StationConfig& station_;
    std::set<std::int32_t> defined_; // channels that a CHAN or VIRT line has set

    /// The entry that a CHAN or VIRT line fills. A repeated line replaces the whole entry; the first one
    /// keeps what a KGW line has already put there. Directions have to follow their channel's line.
    ChannelInfo& define(std::int32_t channel) {
        ChannelInfo& info = station_.ChannelTable.grow(channel);
        if (!defined_.insert(channel).second) {
            const std::int32_t paired = info.PairedChannel;
            info = {};
            info.PairedChannel = paired; // a VIRT line leaves it as it was
        }
        info.DirIn.clear();
        info.DirOut.clear();
        return info;
    }

    void parseChan(Fields& fields) {
        const std::int32_t channel = channelNumber(fields.raw(0).substr(4));
        const std::int32_t code = fields.whole(8);
        const std::int32_t mode = fields.whole(9);
        const std::int32_t paired = fields.whole(10);
        const bool flag = leadingNumber(fields.raw(11)) != 0;
        if (channel < 1 || !fields.fits()) {
            return;
        }
        ChannelInfo& info = define(channel);
        info.Name = fields.text(1);
        info.Unit = fields.text(2);
        info.LowerLimit = fields.number(3);
        info.UpperLimit = fields.number(4);
        info.Comment = fields.text(5);
        info.Offset = fields.number(6);
        info.Factor = fields.number(7);
        info.Code = code;
        info.Mode = mode;
        info.PairedChannel = paired;
        info.Flag = flag;
        info.Tag = fields.text(12);
    }

    void parseVirt(Fields& fields) {
        const std::int32_t channel = channelNumber(fields.raw(0).substr(4));
        const std::int32_t code = fields.whole(7);
        const std::int32_t mode = fields.whole(8);
        const bool flag = leadingNumber(fields.raw(9)) != 0;
        if (channel < 1 || !fields.fits()) {
            return;
        }
        ChannelInfo& info = define(channel);
        info.Name = fields.text(1);
        info.Unit = fields.text(3);
        info.LowerLimit = fields.number(4);
        info.UpperLimit = fields.number(5);
        info.Comment = fields.text(6);
        info.Offset = 0;
        info.Factor = 1.0;
        info.Code = code;
        info.Mode = mode;
        info.Flag = flag;
        info.Tag = fields.text(10);
    }

    void parseLimits(Fields& fields) {
        const std::int32_t channel = channelNumber(fields.raw(0).substr(3));
        if (channel < 1) {
            return;
        }
        ChannelInfo& info = station_.ChannelTable.grow(channel);
        info.Limit1 = fields.number(1);
        info.Limit2 = fields.number(2);
    }

    /// The value of a key line, trimmed and without double quotes; nothing when the line has no "=".
    static std::optional<std::string> value(const Fields& fields) {
        const std::string_view line = fields.raw(0);
        const std::size_t equals = line.find('=');
        if (equals == std::string_view::npos) {
            return std::nullopt;
        }
        std::string text(trimBlanks(line.substr(equals + 1)));
        std::erase(text, '"');
        return text;
    }

    void parseDataFolder(Fields& fields) {
        if (const auto text = value(fields)) {
            station_.DataFolder = withSeparator(trimBlanks(*text));
        }
    }

    template<std::string ChannelInfo::*FIELD>
    void parseDirection(Fields& fields) {
        const auto text = value(fields);
        if (!text) {
            return;
        }
        const auto parts = split(*text, ',');
        if (parts.size() < 2) {
            return;
        }
        const std::int32_t channel = channelNumber(parts[0]);
        if (channel >= 1 && channel <= station_.ChannelTable.count()) {
            station_.ChannelTable.grow(channel).*FIELD = parts[1];
        }
    }

    template<std::string StationConfig::*FIELD>
    void parseText(Fields& fields) {
        if (auto text = value(fields)) {
            station_.*FIELD = std::move(*text);
        }
    }

    template<DateTime StationConfig::*FIELD>
    void parseTime(Fields& fields) {
        if (const auto text = value(fields)) {
            station_.*FIELD = parseDateTime(*text).value_or(0);
        }
    }

    template<double StationConfig::*FIELD>
    void parseFactor(Fields& fields) {
        if (const auto text = value(fields)) {
            const double factor = leadingNumber(*text);
            station_.*FIELD = std::isfinite(factor) ? factor : 0;
        }
    }
};

/// The first entry whose start fits decides. Keys are matched on their start only.
const std::array<IniParser::LineKind, 13> IniParser::LINE_KINDS = {{
    {"CHAN", &IniParser::parseChan},
    {"VIRT", &IniParser::parseVirt},
    {"KGW", &IniParser::parseLimits},
    {"DATAFOLDER", &IniParser::parseDataFolder},
    {"RICHTUNGREIN", &IniParser::parseDirection<&ChannelInfo::DirIn>},
    {"RICHTUNGRAUS", &IniParser::parseDirection<&ChannelInfo::DirOut>},
    {"PROJEKTNAME", &IniParser::parseText<&StationConfig::ProjectName>},
    {"STANDORT", &IniParser::parseText<&StationConfig::Location>},
    {"GERAETNUMMER", &IniParser::parseText<&StationConfig::DeviceNumber>},
    {"ZEITVON", &IniParser::parseTime<&StationConfig::TimeFrom>},
    {"ZEITBIS", &IniParser::parseTime<&StationConfig::TimeTo>},
    {"WINDFAKTOR", &IniParser::parseFactor<&StationConfig::WindFactor>},
    {"STAUBFAKTOR", &IniParser::parseFactor<&StationConfig::DustFactor>},
}};

} // namespace

std::int32_t ReadIni(std::string_view pfad, StationConfig& station, const FileOpener& open) {
    IniParser parser(station);
    const auto file = open(pfad);
    if (!file) {
        return INI_NOT_FOUND;
    }
    const bool utf8 = isUtf8File(*file);
    bool first = true;
    readLines(*file, [&](std::string_view line) {
        if (first && utf8 && line.starts_with(BYTE_ORDER_MARK)) {
            line.remove_prefix(BYTE_ORDER_MARK.size());
        }
        first = false;
        if (utf8) {
            parser.parseLine(line);
        } else {
            parser.parseLine(fromWindows1252(line));
        }
    });
    return INI_READ;
}

} // namespace kelvrum
