#include "batchprint/fCPrint.h"

#include "batchprint/SettingsFile.h"
#include "util/Numbers.h"
#include "util/Pickers.h"

#include <QCheckBox>
#include <QComboBox>
#include <QKeyEvent>
#include <QLineEdit>
#include <QPushButton>
#include <utility>

namespace kelvrum {

namespace {

const QString TITLE = QStringLiteral("Sammeldruck");

void showNumber(QLineEdit& field, double v) {
    field.setText(QString::fromStdString(plainNumber(v)));
    field.home(false); // a long number shows its start
}

std::optional<double> numberIn(const QLineEdit& field) { return wholeNumber(field.text().toStdString()); }

} // namespace

fCPrint::NotANumber::NotANumber(const Row& rowOfField, QLineEdit& wrongField)
    : std::runtime_error("Bitte geben Sie eine Zahl ein (" + wrongField.accessibleName().toStdString() + ").")
    , row(rowOfField)
    , field(wrongField) {}

fCPrint::fCPrint(Owner owner, QWidget* parent)
    : QDialog(parent)
    , owner_(std::move(owner)) {
    setObjectName(QStringLiteral("fCPrint"));
    setWindowTitle(TITLE);
    buildControls();
    for (std::size_t i = 0; i < rows_.size(); ++i) {
        const ChannelInfo& info = owner_.station.ChannelTable.at(SLOT_CHANNELS[i]);
        showNumber(*rows_[i].aMin, info.Limit1);
        showNumber(*rows_[i].aMax, info.Limit2);
    }
    loadSettings();
    enableOk();
}

fCPrint::~fCPrint() { resetPointer(); }

void fCPrint::loadSettings() {
    const LoadedSettings loaded = kelvrum::loadSettings();
    for (std::size_t i = 0; i < loaded.rows.size(); ++i) {
        applySettings(rows_[i], loaded.rows[i]);
    }
    if (loaded.damagedRow) { // what stands before its interval is received still
        applyChoices(rows_[loaded.rows.size()], *loaded.damagedRow);
    }
    if (loaded.damaged) {
        owner_.dialogs.message(parentWidget(), QStringLiteral("Fehler beim Laden der Einstellungen."), TITLE);
    }
}

void fCPrint::applyChoices(const Row& row, const RowSettings& settings) {
    row.chKanal->setChecked(settings.selected);
    row.chAuto->setChecked(settings.automatic);
}

void fCPrint::applySettings(const Row& row, const RowSettings& settings) {
    applyChoices(row, settings);
    showNumber(*row.tMin, settings.minimum);
    showNumber(*row.tMax, settings.maximum);
    row.selInterval->setCurrentIndex(settings.interval);
    row.chShowLines->setChecked(settings.limitsShown);
    showNumber(*row.aMin, settings.lowerLimit);
    showNumber(*row.aMax, settings.upperLimit);
    row.chShowMittel->setChecked(settings.meanShown);
}

RowSettings fCPrint::settingsOf(const Row& row) {
    const auto number = [&row](QLineEdit& field) {
        const auto value = numberIn(field);
        return value ? *value : throw NotANumber(row, field);
    };
    RowSettings settings;
    settings.selected = row.chKanal->isChecked();
    settings.automatic = row.chAuto->isChecked();
    settings.minimum = number(*row.tMin);
    settings.maximum = number(*row.tMax);
    settings.interval = row.selInterval->currentIndex();
    settings.limitsShown = row.chShowLines->isChecked();
    settings.lowerLimit = number(*row.aMin);
    settings.upperLimit = number(*row.aMax);
    settings.meanShown = row.chShowMittel->isChecked();
    return settings;
}

void fCPrint::saveSettings() {
    std::vector<RowSettings> settings;
    try {
        for (const Row& row : rows_) {
            settings.push_back(settingsOf(row));
        }
    } catch (const NotANumber& wrong) {
        leadTo(wrong);
        return;
    }
    if (const std::error_code error = kelvrum::saveSettings(settings)) {
        owner_.dialogs.message(
            this,
            QStringLiteral("Die Datei „%1“ konnte nicht geschrieben werden: %2.\n"
                           "Die bisherigen Einstellungen bleiben. Bitte sorgen Sie für Platz und "
                           "Schreibrecht und speichern Sie noch einmal.")
                .arg(QString::fromUtf8(SETTINGS_FILE.data()),
                     QString::fromLocal8Bit(error.message().c_str())),
            TITLE);
    } else {
        owner_.dialogs.message(this, QStringLiteral("Die Einstellungen wurden gespeichert."), TITLE);
    }
}

/// A field that is disabled takes no focus; then the box that frees it does.
void fCPrint::leadTo(const NotANumber& wrong) {
    const bool scale = &wrong.field == wrong.row.tMin || &wrong.field == wrong.row.tMax;
    if (wrong.field.isEnabled()) {
        wrong.field.setFocus();
        wrong.field.selectAll();
    } else {
        (scale ? wrong.row.chAuto : wrong.row.chShowLines)->setFocus();
    }
}

void fCPrint::colourEntry(QLineEdit& field) {
    QPalette colours;
    if (!numberIn(field)) {
        colours.setColor(QPalette::Base, QColor(255, 0, 0));
    }
    field.setPalette(colours);
}

void fCPrint::enableRow(const Row& row) {
    row.tMin->setEnabled(!row.chAuto->isChecked());
    row.tMax->setEnabled(!row.chAuto->isChecked());
    row.aMin->setEnabled(row.chShowLines->isChecked());
    row.aMax->setEnabled(row.chShowLines->isChecked());
}

int fCPrint::lastChecked() const {
    int last = static_cast<int>(rows_.size()) - 1;
    while (last >= 0 && !rows_[static_cast<std::size_t>(last)].chKanal->isChecked()) {
        --last;
    }
    return last;
}

void fCPrint::enableOk() { OKButton->setEnabled(!printing_ && lastChecked() >= 0); }

TimeRange fCPrint::period() const {
    const auto at = [](DatePicker& date, TimePicker& time) {
        date.finish(); // a button's mnemonic leaves what is being typed untaken
        time.finish();
        const QDate day = date.date();
        return dateSerial(day.year(), day.month(), day.day()) +
               timeSerial(time.time().hour(), time.time().minute());
    };
    return {at(*DTPicker, *DTPicker1), at(*DTPicker2, *DTPicker3)};
}

void fCPrint::reject() {
    if (!printing_) {
        QDialog::reject();
    }
}

/// Enter presses the button that has the focus. Elsewhere it ends an entry and never starts a print run.
void fCPrint::keyPressEvent(QKeyEvent* event) {
    if (event->key() != Qt::Key_Return && event->key() != Qt::Key_Enter) {
        QDialog::keyPressEvent(event);
        return;
    }
    if (auto* button = qobject_cast<QPushButton*>(focusWidget())) {
        button->click();
    }
}

} // namespace kelvrum
