// SPDX-License-Identifier: GPL-3.0-or-later
#include "app/SystemLocale.h"

#include <QString>
#include <QTimeZone>

namespace kelvrum {

LocaleTexts localeTexts(const QLocale& locale) {
    LocaleTexts texts;
    texts.decimalSeparator = locale.decimalPoint().toStdString();
    QString format = locale.dateFormat(QLocale::ShortFormat);
    const bool numeric = !format.contains(QLatin1String("MMM")) && !format.contains(QLatin1Char('\'')) &&
                         !format.contains(QLatin1String("ddd"));
    if (!numeric) {
        return texts;
    }
    if (!format.contains(QLatin1String("yyyy"))) {
        format.replace(QLatin1String("yy"), QLatin1String("yyyy"));
    }
    texts.shortDate = format.toLower().toStdString();
    for (const QChar c : format) {
        if (!c.isLetter() && c.isPrint()) { // marks of the writing direction are invisible
            texts.dateSeparator = QString(c).toStdString();
            break;
        }
    }
    return texts;
}

DateTime stationTime(const QDateTime& moment) {
    const QDateTime standard = moment.toOffsetFromUtc(moment.timeZone().standardTimeOffset(moment));
    const QDate date = standard.date();
    const QTime time = standard.time();
    return dateSerial(date.year(), date.month(), date.day()) +
           timeSerial(time.hour(), time.minute(), time.second());
}

} // namespace kelvrum
