// SPDX-License-Identifier: GPL-3.0-or-later
#include "util/AccessibleButtons.h"

#include <QAbstractButton>
#include <QAccessible>
#include <QAccessibleWidget>
#include <QCheckBox>
#include <QRadioButton>

namespace kelvrum {

namespace {

/// A check box or an option whose only action, beside taking the focus, is a click.
class AccessibleButton final : public QAccessibleWidget {
  public:
    AccessibleButton(QAbstractButton* button, QAccessible::Role role)
        : QAccessibleWidget(button, role) {}

    QString text(QAccessible::Text kind) const override {
        const QKeySequence mnemonic = QKeySequence::mnemonic(button().text());
        if (kind == QAccessible::Accelerator && !mnemonic.isEmpty()) {
            return mnemonic.toString(QKeySequence::NativeText);
        }
        const QString own = QAccessibleWidget::text(kind);
        return kind == QAccessible::Name && own.isEmpty() ? caption() : own;
    }

    QAccessible::State state() const override {
        QAccessible::State state = QAccessibleWidget::state();
        state.checkable = true;
        state.checked = button().isChecked();
        state.pressed = button().isDown();
        return state;
    }

    QStringList actionNames() const override {
        QStringList names = QAccessibleWidget::actionNames();
        if (button().isEnabled()) {
            names.prepend(toggleAction());
        }
        return names;
    }

    void doAction(const QString& name) override {
        if (name == toggleAction() || name == pressAction()) {
            button().click();
        } else {
            QAccessibleWidget::doAction(name);
        }
    }

  private:
    [[nodiscard]] QAbstractButton& button() const { return *static_cast<QAbstractButton*>(widget()); }

    /// Without the sign of the mnemonic; two of them stand for the sign itself.
    [[nodiscard]] QString caption() const {
        QString shown;
        const QString text = button().text();
        for (qsizetype i = 0; i < text.size(); ++i) {
            if (text[i] == QLatin1Char('&') && i + 1 < text.size()) {
                ++i;
            }
            shown += text[i];
        }
        return shown;
    }
};

QAccessibleInterface* accessibleButton(const QString& /*className*/, QObject* object) {
    if (auto* box = qobject_cast<QCheckBox*>(object)) {
        return new AccessibleButton(box, QAccessible::CheckBox);
    }
    if (auto* option = qobject_cast<QRadioButton*>(object)) {
        return new AccessibleButton(option, QAccessible::RadioButton);
    }
    return nullptr;
}

} // namespace

void makeButtonsClickable() { QAccessible::installFactory(accessibleButton); } // installed once only

} // namespace kelvrum
