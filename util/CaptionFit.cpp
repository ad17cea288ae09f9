// SPDX-License-Identifier: GPL-3.0-or-later
#include "util/CaptionFit.h"

#include <QAbstractButton>
#include <QAbstractSpinBox>
#include <QCheckBox>
#include <QComboBox>
#include <QFontInfo>
#include <QFontMetrics>
#include <QGroupBox>
#include <QLabel>
#include <QRadioButton>
#include <QStringList>
#include <QStyle>
#include <QStyleOptionButton>
#include <QStyleOptionComboBox>
#include <QStyleOptionSpinBox>
#include <algorithm>
#include <map>
#include <utility>
#include <vector>

namespace kelvrum {

namespace {

constexpr int MIN_PIXELS = 6;

/// The texts of a control and the pixels that they may take.
struct Caption {
    QStringList texts;
    int room = 0;
};

/// A label ends where the control that it names begins.
Caption captionOf(const QLabel& label) {
    int room = label.contentsRect().width();
    if (const QWidget* buddy = label.buddy(); buddy != nullptr) {
        const int distance =
            buddy->mapTo(label.window(), QPoint()).x() - label.mapTo(label.window(), QPoint()).x();
        room = distance > 0 ? std::min(room, distance - 1) : room;
    }
    return {{label.text()}, room};
}

Caption captionOf(const QAbstractButton& button) {
    QStyle::SubElement contents = QStyle::SE_PushButtonContents;
    if (qobject_cast<const QCheckBox*>(&button) != nullptr) {
        contents = QStyle::SE_CheckBoxContents;
    } else if (qobject_cast<const QRadioButton*>(&button) != nullptr) {
        contents = QStyle::SE_RadioButtonContents;
    }
    QStyleOptionButton option;
    option.initFrom(&button);
    option.text = button.text();
    return {{button.text()}, button.style()->subElementRect(contents, &option, &button).width()};
}

/// The style places the title by its width; the margin on its left is kept on its right.
Caption captionOf(const QGroupBox& frame) {
    constexpr int MARGIN = 2;
    return {{frame.title()}, frame.width() - 2 * MARGIN};
}

Caption captionOf(const QComboBox& choice) {
    QStyleOptionComboBox option;
    option.initFrom(&choice);
    option.subControls = QStyle::SC_All;
    const QRect field =
        choice.style()->subControlRect(QStyle::CC_ComboBox, &option, QStyle::SC_ComboBoxEditField, &choice);
    Caption caption{{}, field.width()};
    for (int i = 0; i < choice.count(); ++i) {
        caption.texts << choice.itemText(i);
    }
    return caption;
}

Caption captionOf(const QAbstractSpinBox& picker) {
    constexpr int MARGIN = 2; // of a line of text, on each side
    QStyleOptionSpinBox option;
    option.initFrom(&picker);
    option.subControls = QStyle::SC_All;
    option.buttonSymbols = picker.buttonSymbols();
    option.frame = picker.hasFrame();
    const QRect field =
        picker.style()->subControlRect(QStyle::CC_SpinBox, &option, QStyle::SC_SpinBoxEditField, &picker);
    return {{picker.text()}, field.width() - 2 * MARGIN};
}

Caption captionOf(const QWidget& control) {
    if (const auto* label = qobject_cast<const QLabel*>(&control)) {
        return captionOf(*label);
    }
    if (const auto* button = qobject_cast<const QAbstractButton*>(&control)) {
        return captionOf(*button);
    }
    if (const auto* frame = qobject_cast<const QGroupBox*>(&control)) {
        return captionOf(*frame);
    }
    if (const auto* choice = qobject_cast<const QComboBox*>(&control)) {
        return captionOf(*choice);
    }
    if (const auto* picker = qobject_cast<const QAbstractSpinBox*>(&control)) {
        return captionOf(*picker);
    }
    return {};
}

int pixelsOf(const QFont& font) {
    return font.pixelSize() > 0 ? font.pixelSize() : QFontInfo(font).pixelSize();
}

bool fits(const Caption& caption, const QFont& font) {
    const QFontMetrics metrics(font);
    return std::all_of(caption.texts.begin(), caption.texts.end(), [&](const QString& text) {
        return metrics.size(Qt::TextShowMnemonic, text).width() <= caption.room;
    });
}

/// The largest size, up to the font's own, in which a caption fits; MIN_PIXELS when there is none.
int fittingPixels(const Caption& caption, QFont font) {
    int pixels = pixelsOf(font);
    while (pixels > MIN_PIXELS && !fits(caption, font)) {
        font.setPixelSize(--pixels);
    }
    return pixels;
}

void setPixels(QWidget& control, int pixels) {
    QFont font = control.font();
    font.setPixelSize(pixels);
    control.setFont(font);
}

} // namespace

void fitCaptions(QWidget& window) {
    const QList<QWidget*> controls = window.findChildren<QWidget*>();
    using Kind = std::pair<const QObject*, const QMetaObject*>; // in one frame
    const auto kindOf = [](const QWidget& control) {
        const bool isFrame = qobject_cast<const QGroupBox*>(&control) != nullptr;
        return Kind(control.parent(), isFrame ? &QGroupBox::staticMetaObject : control.metaObject());
    };
    std::map<Kind, int> pixels;
    for (const QWidget* control : controls) {
        const int fitting = fittingPixels(captionOf(*control), control->font());
        const auto known = pixels.try_emplace(kindOf(*control), fitting).first;
        known->second = std::min(known->second, fitting);
    }
    std::vector<std::pair<QWidget*, int>> smaller;
    for (QWidget* control : controls) {
        const int fitting = pixels.at(kindOf(*control));
        if (fitting < pixelsOf(control->font())) {
            smaller.emplace_back(control, fitting);
        }
    }
    for (const auto& [control, fitting] : smaller) {
        // Children of a frame keep their own font.
        for (QWidget* child : control->findChildren<QWidget*>(QString(), Qt::FindDirectChildrenOnly)) {
            if (qobject_cast<QGroupBox*>(control) != nullptr) {
                setPixels(*child, pixelsOf(child->font()));
            }
        }
        setPixels(*control, fitting);
    }
}

} // namespace kelvrum
