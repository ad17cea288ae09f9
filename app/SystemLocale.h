// SPDX-License-Identifier: GPL-3.0-or-later
// The user's locale and clock as the plain core needs them.
#pragma once

#include "util/DateTime.h"
#include "util/Format.h"

#include <QDateTime>
#include <QLocale>

namespace kelvrum {

/// Decimal separator, date separator and short date format of a locale, the year with four digits. A locale
/// without a numeric short date gets the German one.
LocaleTexts localeTexts(const QLocale& locale);

/// A moment as stations count it: local time without summer time.
DateTime stationTime(const QDateTime& moment);

} // namespace kelvrum
