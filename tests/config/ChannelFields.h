// SPDX-License-Identifier: GPL-3.0-or-later
// The entry of a channel as one line, to compare and to show.
#pragma once

#include "config/ChannelTable.h"

#include <locale>
#include <sstream>
#include <string>
#include <string_view>

namespace kelvrum::testing {

/// The sixteen fields of a channel in their order, separated by "|".
inline std::string fields(const ChannelInfo& c) {
    std::ostringstream out;
    out.imbue(std::locale::classic());
    out << c.LowerLimit << '|' << c.UpperLimit << '|' << c.Unit << '|' << c.Comment << '|' << c.Tag << '|'
        << c.Name << '|' << c.Mode << '|' << c.PairedChannel << '|' << c.Code << '|' << c.Offset << '|'
        << c.Factor << '|' << (c.Flag ? "true" : "false") << '|' << c.DirIn << '|' << c.DirOut << '|'
        << c.Limit1 << '|' << c.Limit2;
    return out.str();
}

/// The fields of an entry that no line defines.
inline constexpr std::string_view EMPTY_CHANNEL = "0|0|||||0|0|0|0|0|false|||0|0";

} // namespace kelvrum::testing
