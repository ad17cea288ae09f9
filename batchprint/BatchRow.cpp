// SPDX-License-Identifier: GPL-3.0-or-later
#include "batchprint/BatchRow.h"

#include "data/IntervalChoices.h"
#include "util/Controls.h"
#include "util/NumberField.h"

#include <QCheckBox>
#include <QLabel>

namespace kelvrum {

namespace {

/// Makes the controls of one row, from left to right.
class RowMaker {
  public:
    RowMaker(std::size_t index, int top, QWidget* entries)
        : index_(index)
        , top_(top)
        , entries_(entries) {}

    template<typename Control, typename... Arguments>
    Control* operator()(const char* name, int x, int width, Arguments&&... arguments) const {
        return makeControl<Control>(
            entries_, QStringLiteral("%1(%2)").arg(QString::fromUtf8(name)).arg(index_),
            QRect(x, top_, width, batch::CONTROL_HEIGHT), std::forward<Arguments>(arguments)...);
    }
    [[nodiscard]] QCheckBox* box(const char* name, int x, int width, const QString& caption = {}) const {
        return operator()<QCheckBox>(name, x, width, caption);
    }
    [[nodiscard]] QLineEdit* field(const char* name, int x, const char* text) const {
        return operator()<NumberField>(name, x, batch::FIELD_WIDTH, QString::fromUtf8(text));
    }
    [[nodiscard]] QLineEdit* fieldAfterDash(const char* name, int dash, int x, const char* text) const {
        operator()<QLabel>("strich", dash, batch::DASH_WIDTH, QStringLiteral("-"))
            ->setAlignment(Qt::AlignCenter);
        return field(name, x, text);
    }

  private:
    std::size_t index_;
    int top_;
    QWidget* entries_;
};

} // namespace

BatchRow::NotANumber::NotANumber(const BatchRow& rowOfField, QLineEdit& wrongField)
    : std::runtime_error("Bitte geben Sie eine Zahl ein (" + wrongField.accessibleName().toStdString() + ").")
    , row(rowOfField)
    , field(wrongField) {}

BatchRow::BatchRow(std::size_t index, const ChannelInfo& channel, const BatchColumns& columns, int top,
                   QWidget* entries)
    : QObject(entries)
    , channel_(SLOT_CHANNELS[index]) {
    const RowMaker make(index, top, entries);
    const QString name = QString::fromStdString(channel.Name);
    chKanal = make.box("chKanal", batch::MARGIN, columns.nameWidth, captionOf(name));
    chAuto = make.box("chAuto", columns.chAuto, columns.tick);
    tMin = make.field("tMin", columns.tMin, "0");
    tMax = make.fieldAfterDash("tMax", columns.strich, columns.tMax, "100");
    selInterval = make.operator()<QComboBox>("selInterval", columns.interval, batch::CHOICE_WIDTH);
    fillChoices(*selInterval, INTERVAL_CHOICES, &IntervalChoice::minutes);
    chShowLines = make.box("chShowLines", columns.chShowLines, columns.tick);
    aMin = make.field("aMin", columns.aMin, "0");
    aMax = make.field("aMax", columns.aMax, "0");
    chShowMittel = make.box("chShowMittel", columns.chShowMittel, columns.tick);
    showNumber(*aMin, channel.Limit1);
    showNumber(*aMax, channel.Limit2);
    nameControls(name);
    enableFields();
    connect(chKanal, &QCheckBox::toggled, this, &BatchRow::selectionChanged);
    connect(chAuto, &QCheckBox::toggled, this, &BatchRow::enableFields);
    connect(chShowLines, &QCheckBox::toggled, this, &BatchRow::enableFields);
}

bool BatchRow::isSelected() const { return chKanal->isChecked(); }

std::int32_t BatchRow::minutes() const { return selInterval->currentData().toInt(); }

QString BatchRow::intervalCaption() const { return selInterval->currentText(); }

RowSettings BatchRow::settings() const {
    const auto number = [this](QLineEdit& field) {
        const auto value = numberIn(field);
        return value ? *value : throw NotANumber(*this, field);
    };
    RowSettings settings;
    settings.selected = chKanal->isChecked();
    settings.automatic = chAuto->isChecked();
    settings.minimum = number(*tMin);
    settings.maximum = number(*tMax);
    settings.interval = selInterval->currentIndex();
    settings.limitsShown = chShowLines->isChecked();
    settings.lowerLimit = number(*aMin);
    settings.upperLimit = number(*aMax);
    settings.meanShown = chShowMittel->isChecked();
    return settings;
}

void BatchRow::applyChoices(const RowSettings& settings) {
    chKanal->setChecked(settings.selected);
    chAuto->setChecked(settings.automatic);
}

void BatchRow::apply(const RowSettings& settings) {
    applyChoices(settings);
    showNumber(*tMin, settings.minimum);
    showNumber(*tMax, settings.maximum);
    selInterval->setCurrentIndex(settings.interval);
    chShowLines->setChecked(settings.limitsShown);
    showNumber(*aMin, settings.lowerLimit);
    showNumber(*aMax, settings.upperLimit);
    chShowMittel->setChecked(settings.meanShown);
}

void BatchRow::focusField(QLineEdit& field) const {
    const bool scale = &field == tMin || &field == tMax;
    if (field.isEnabled()) {
        field.setFocus();
        field.selectAll();
    } else {
        (scale ? chAuto : chShowLines)->setFocus();
    }
}

void BatchRow::enableFields() {
    tMin->setEnabled(!chAuto->isChecked());
    tMax->setEnabled(!chAuto->isChecked());
    aMin->setEnabled(chShowLines->isChecked());
    aMax->setEnabled(chShowLines->isChecked());
}

/// Accessible names and tool tips, for those who cannot see captions or headings. A channel that the station
/// does not have goes by its number.
void BatchRow::nameControls(const QString& name) {
    const QString number = QStringLiteral("Kanal %1").arg(channel_);
    const QString channel = name.isEmpty() ? number : name;
    struct Name {
        QWidget* control;
        const char* name;
    };
    const Name names[] = {
        {chAuto, "Skala automatisch"},
        {tMin, "Skala Minimum"},
        {tMax, "Skala Maximum"},
        {selInterval, "Mittelung"},
        {chShowLines, "Grenzwerte anzeigen"},
        {aMin, "Grenzwert grün"},
        {aMax, "Grenzwert rot"},
        {chShowMittel, "Mittelwert anzeigen"},
    };
    for (const Name& entry : names) {
        const QString what = QString::fromUtf8(entry.name);
        entry.control->setAccessibleName(channel + QStringLiteral(": ") + what);
        entry.control->setToolTip(what);
    }
    chKanal->setAccessibleName(channel + QStringLiteral(" drucken"));
    chKanal->setToolTip(channel == number ? number
                                          : channel + QStringLiteral(" (") + number + QLatin1Char(')'));
}

} // namespace kelvrum
