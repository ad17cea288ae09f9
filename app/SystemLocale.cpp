#include "app/SystemLocale.h"

#include <QString>

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
        if (!c.isLetter()) {
            texts.dateSeparator = QString(c).toStdString();
            break;
        }
    }
    return texts;
}

} // namespace kelvrum
