// SPDX-License-Identifier: GPL-3.0-or-later
#include "diagram/AccessibleDiagram.h"

#include "diagram/PolarSys.h"
#include "diagram/ReadoutOverlay.h"

#include <QAccessible>
#include <QAccessibleWidget>

namespace kelvrum {

namespace {

/// A diagram whose value is what its overlay reads out: as text, and as the number that it names.
class AccessibleDiagram final : public QAccessibleWidget, public QAccessibleValueInterface {
  public:
    explicit AccessibleDiagram(QWidget* diagram)
        : QAccessibleWidget(diagram, QAccessible::Chart) {}

    QString text(QAccessible::Text kind) const override {
        return kind == QAccessible::Value && overlay() != nullptr ? overlay()->text()
                                                                  : QAccessibleWidget::text(kind);
    }

    void* interface_cast(QAccessible::InterfaceType type) override {
        return type == QAccessible::ValueInterface ? static_cast<QAccessibleValueInterface*>(this)
                                                   : QAccessibleWidget::interface_cast(type);
    }

    QVariant currentValue() const override {
        const auto value = overlay() != nullptr ? overlay()->readValue() : std::nullopt;
        return value ? QVariant(*value) : QVariant();
    }
    void setCurrentValue(const QVariant& /*value*/) override {} // measured values are not set
    QVariant maximumValue() const override { return {}; }
    QVariant minimumValue() const override { return {}; }
    QVariant minimumStepSize() const override { return {}; }

  private:
    [[nodiscard]] ReadoutOverlay* overlay() const { return widget()->findChild<ReadoutOverlay*>(); }
};

QAccessibleInterface* accessibleDiagram(const QString& /*className*/, QObject* object) {
    auto* diagram = qobject_cast<PolarSys*>(object);
    return diagram == nullptr ? nullptr : new AccessibleDiagram(diagram);
}

} // namespace

void makeReadoutsAccessible() { QAccessible::installFactory(accessibleDiagram); } // installed once only

void reportReadouts(PolarSys& diagram, ReadoutOverlay& overlay) {
    QObject::connect(&overlay, &ReadoutOverlay::readOut, &diagram, [&diagram, &overlay] {
        QAccessibleValueChangeEvent event(&diagram, overlay.text());
        QAccessible::updateAccessibility(&event);
    });
}

} // namespace kelvrum
