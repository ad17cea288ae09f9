// The user's locale as the plain core and the pickers need it.
#pragma once

#include "util/Format.h"

#include <QLocale>
#include <QString>

namespace kelvrum {

/// Decimal separator, date separator and short date format of a locale, the year with four digits. A locale
/// without a numeric short date gets the German one.
LocaleTexts localeTexts(const QLocale& locale);

/// A short date format in the letters of Qt's pickers.
QString pickerFormat(const LocaleTexts& texts);

} // namespace kelvrum
