// SPDX-License-Identifier: GPL-3.0-or-later
// One row of the batch print dialog.
#pragma once

#include "batchprint/BatchColumns.h"
#include "batchprint/BatchRows.h"
#include "config/StationConfig.h"

#include <QObject>
#include <QString>
#include <cstdint>
#include <stdexcept>

class QCheckBox;
class QComboBox;
class QLineEdit;
class QWidget;

namespace kelvrum {

/// A channel with the settings of its page. The controls are children of the dialog's area of entries; those
/// of row 3 are named "chKanal(3)" and so on.
class BatchRow : public QObject {
    Q_OBJECT

  public:
    /// A number field holds no number; what() is the message for the user.
    struct NotANumber : std::runtime_error {
        NotANumber(const BatchRow& rowOfField, QLineEdit& wrongField);
        const BatchRow& row;
        QLineEdit& field;
    };

    /// Row `index` (from 0) with its upper edge at `top`, in pixels; it opens with the limits of the channel.
    BatchRow(std::size_t index, const ChannelInfo& channel, const BatchColumns& columns, int top,
             QWidget* entries);

    [[nodiscard]] std::int32_t channel() const { return channel_; }
    [[nodiscard]] bool isSelected() const;

    /// The averaging interval: its minutes and its caption.
    [[nodiscard]] std::int32_t minutes() const;
    [[nodiscard]] QString intervalCaption() const;

    /// The values of the controls. Throws NotANumber when one of the four number fields holds none, be it
    /// enabled or not.
    [[nodiscard]] RowSettings settings() const;

    /// Sets the controls; applyChoices sets only those that precede the scale.
    void apply(const RowSettings& settings);
    void applyChoices(const RowSettings& settings);

    /// Moves the focus to a number field or, while it is disabled, to the box that enables it.
    void focusField(QLineEdit& field) const;

  Q_SIGNALS:
    /// chKanal has been ticked or cleared.
    void selectionChanged();

  private:
    void enableFields();
    void nameControls(const QString& name);

    std::int32_t channel_;
    QCheckBox* chKanal = nullptr;
    QCheckBox* chAuto = nullptr;
    QLineEdit* tMin = nullptr;
    QLineEdit* tMax = nullptr;
    QComboBox* selInterval = nullptr;
    QCheckBox* chShowLines = nullptr;
    QLineEdit* aMin = nullptr;
    QLineEdit* aMax = nullptr;
    QCheckBox* chShowMittel = nullptr;
};

} // namespace kelvrum
