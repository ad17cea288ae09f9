// The user's locale as the plain core needs it.
#pragma once

#include "util/Format.h"

#include <QLocale>

namespace kelvrum {

/// Decimal separator, date separator and short date format of a locale, the year with four digits. A locale
/// without a numeric short date gets the German one.
LocaleTexts localeTexts(const QLocale& locale);

} // namespace kelvrum
