// SPDX-License-Identifier: GPL-3.0-or-later
#include "batchprint/fCPrint.h"

#include "batchprint/BatchRow.h"
#include "batchprint/SettingsFile.h"
#include "util/ErrorText.h"
#include "util/PeriodWidget.h"

#include <QKeyEvent>
#include <QPushButton>
#include <utility>

namespace kelvrum {

namespace {

const QString TITLE = QStringLiteral("Sammeldruck");

} // namespace

fCPrint::fCPrint(Owner owner, QWidget* parent)
    : QDialog(parent)
    , owner_(std::move(owner)) {
    setObjectName(QStringLiteral("fCPrint"));
    setWindowTitle(TITLE);
    buildControls();
    loadSettings();
    enableOk();
}

fCPrint::~fCPrint() = default;

void fCPrint::loadSettings() {
    const LoadedSettings loaded = kelvrum::loadSettings();
    for (std::size_t i = 0; i < loaded.rows.size(); ++i) {
        rows_[i]->apply(loaded.rows[i]);
    }
    if (loaded.damagedRow) { // what precedes its interval is still applied
        rows_[loaded.rows.size()]->applyChoices(*loaded.damagedRow);
    }
    if (loaded.damaged) {
        owner_.dialogs.message(parentWidget(), QStringLiteral("Fehler beim Laden der Einstellungen."), TITLE);
    }
}

void fCPrint::saveSettings() {
    std::vector<RowSettings> settings;
    try {
        for (const BatchRow* row : rows_) {
            settings.push_back(row->settings());
        }
    } catch (const BatchRow::NotANumber& wrong) {
        wrong.row.focusField(wrong.field);
        return;
    }
    if (const std::error_code error = kelvrum::saveSettings(settings)) {
        owner_.dialogs.message(
            this,
            QStringLiteral("Die Datei „%1“ konnte nicht geschrieben werden: %2.\n"
                           "Die bisherigen Einstellungen bleiben. Bitte sorgen Sie für Platz und "
                           "Schreibrecht und speichern Sie noch einmal.")
                .arg(QString::fromUtf8(SETTINGS_FILE.data()), QString::fromStdString(errorText(error))),
            TITLE);
    } else {
        owner_.dialogs.message(this, QStringLiteral("Die Einstellungen wurden gespeichert."), TITLE);
    }
}

int fCPrint::lastChecked() const {
    int last = static_cast<int>(rows_.size()) - 1;
    while (last >= 0 && !rows_[static_cast<std::size_t>(last)]->isSelected()) {
        --last;
    }
    return last;
}

void fCPrint::enableOk() { OKButton->setEnabled(!printing_ && lastChecked() >= 0); }

TimeRange fCPrint::period() const {
    period_->finish(); // the mnemonic of a button does not end an entry
    return period_->value();
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
