// SPDX-License-Identifier: GPL-3.0-or-later
// The controls of the batch print dialog: which there are, where they are, what they call.
#include "batchprint/BatchColumns.h"
#include "batchprint/BatchRow.h"
#include "batchprint/fCPrint.h"
#include "util/Controls.h"
#include "util/PeriodWidget.h"
#include "util/Pickers.h"

#include <QFontMetrics>
#include <QFrame>
#include <QLabel>
#include <QProgressBar>
#include <QPushButton>

namespace kelvrum {

namespace {

using batch::CONTROL_HEIGHT;
using batch::MARGIN;

constexpr int ROW_STEP = 24; // 360 twips
constexpr int BUTTON_WIDTH = 92;
constexpr int BUTTON_HEIGHT = 25;

constexpr int PERIOD_TOP = MARGIN;
constexpr int HEADING_TOP = PERIOD_TOP + CONTROL_HEIGHT + 16;
constexpr int HEADING_HEIGHT = 15;
constexpr int RULE_TOP = HEADING_TOP + 2 * HEADING_HEIGHT + 4;
constexpr int ROWS_TOP = RULE_TOP + 7;

QLabel* makeHeading(QWidget* parent, const char* name, const QRect& place, const char* text) {
    auto* label = makeControl<QLabel>(parent, QString::fromUtf8(name), place, QString::fromUtf8(text));
    label->setTextFormat(Qt::PlainText); // keeps the runs of blanks
    return label;
}

} // namespace

void fCPrint::buildControls() {
    setFont(controlFont());
    std::vector<QString> names;
    for (const std::int32_t channel : std::span(SLOT_CHANNELS).first(ROW_COUNT)) {
        names.push_back(QString::fromStdString(owner_.station.ChannelTable.at(channel).Name));
    }
    const BatchColumns columns = layOutColumns(*this, names);
    constexpr int ROWS_END = ROWS_TOP + static_cast<int>(ROW_COUNT) * ROW_STEP;
    entries_ = makeControl<QWidget>(this, QStringLiteral("entries"), QRect(0, 0, columns.width, ROWS_END));
    buildPeriod();
    buildHeadings(columns);
    for (std::size_t i = 0; i < ROW_COUNT; ++i) {
        const ChannelInfo& channel = owner_.station.ChannelTable.at(SLOT_CHANNELS[i]);
        auto* row = new BatchRow(i, channel, columns, ROWS_TOP + static_cast<int>(i) * ROW_STEP, entries_);
        connect(row, &BatchRow::selectionChanged, this, &fCPrint::enableOk);
        rows_.push_back(row);
    }
    buildFoot(columns.width);
}

void fCPrint::buildPeriod() {
    int x = MARGIN;
    const auto place = [&x](int width) {
        const QRect here(x, PERIOD_TOP, width, CONTROL_HEIGHT);
        x += width + 6;
        return here;
    };
    constexpr int DATE_WIDTH = 92;
    constexpr int TIME_WIDTH = 44;
    const auto label = [&](const char* name, const char* text) {
        const int width = QFontMetrics(font()).horizontalAdvance(QString::fromUtf8(text)) + 2;
        return makeHeading(entries_, name, place(width), text);
    };
    const auto name = [](QWidget* picker, const char* text) {
        picker->setAccessibleName(QString::fromUtf8(text));
        picker->setToolTip(QString::fromUtf8(text));
    };
    using Side = PeriodWidget::Side;
    QLabel* from = label("LabelVon", "Zeitraum von");
    PeriodWidget::Places places;
    places.startDate = place(DATE_WIDTH);
    places.startTime = place(TIME_WIDTH);
    QLabel* to = label("LabelBis", "bis");
    places.endDate = place(DATE_WIDTH);
    places.endTime = place(TIME_WIDTH);
    period_ = new PeriodWidget(owner_.texts, places, entries_);
    period_->setGeometry(0, 0, x, PERIOD_TOP + CONTROL_HEIGHT);
    period_->lower();
    period_->setValue(owner_.range);
    from->setBuddy(&period_->datePicker(Side::start));
    to->setBuddy(&period_->datePicker(Side::end));
    name(&period_->datePicker(Side::start), "Beginn des Zeitraums, Datum");
    name(&period_->timePicker(Side::start), "Beginn des Zeitraums, Uhrzeit");
    name(&period_->datePicker(Side::end), "Ende des Zeitraums, Datum");
    name(&period_->timePicker(Side::end), "Ende des Zeitraums, Uhrzeit");
}

void fCPrint::buildHeadings(const BatchColumns& columns) {
    struct Heading {
        int x;
        int line;
        const char* name;
        const char* text;
    };
    const Heading headings[] = {
        {columns.scale, 0, "LabelSkalierung", "Skalierung"},
        {columns.scale, 1, "LabelSkala", SCALE_CAPTION},
        {columns.interval, 0, "LabelMittelung", "Mittelung"},
        {columns.limits, 0, "LabelGrenzwerte", "Grenzwerte"},
        {columns.limits, 1, "LabelGrenzen", LIMIT_CAPTION},
        {columns.mean, 0, "LabelMittelwert", MEAN_HEADING},
        {columns.mean, 1, "LabelMittel", MEAN_CAPTION},
    };
    const QFontMetrics metrics(font());
    for (const Heading& heading : headings) {
        const int width = metrics.horizontalAdvance(QString::fromUtf8(heading.text)) + 2;
        const int y = HEADING_TOP + heading.line * HEADING_HEIGHT;
        makeHeading(entries_, heading.name, {heading.x, y, width, HEADING_HEIGHT}, heading.text);
    }
    const QRect place(MARGIN, RULE_TOP, columns.width - 2 * MARGIN, 2);
    auto* rule = makeControl<QFrame>(entries_, QStringLiteral("rule"), place);
    rule->setFrameStyle(static_cast<int>(QFrame::HLine) | static_cast<int>(QFrame::Sunken));
}

void fCPrint::buildFoot(int width) {
    constexpr int BAR_HEIGHT = 12;
    constexpr int BUTTONS_GAP = 8;
    int y = entries_->height() + 8;
    PBar = makeControl<QProgressBar>(this, QStringLiteral("PBar"),
                                     QRect(MARGIN, y, width - 2 * MARGIN, BAR_HEIGHT));
    PBar->setTextVisible(false);
    PBar->setAccessibleName(QStringLiteral("Fortschritt des Drucks"));
    PBar->hide();
    y += BAR_HEIGHT + 8;
    const int left = MARGIN + BUTTON_WIDTH + BUTTONS_GAP; // between the buttons
    const int room = width - MARGIN - 2 * BUTTON_WIDTH - 2 * BUTTONS_GAP - left;
    lResult = makeControl<QLabel>(this, QStringLiteral("lResult"), QRect(left, y, room, BUTTON_HEIGHT));
    lResult->setWordWrap(true);
    lResult->hide();

    const auto button = [&](const char* name, int x, const char* caption, const char* tip) {
        auto* made =
            makeControl<QPushButton>(this, QString::fromUtf8(name), QRect(x, y, BUTTON_WIDTH, BUTTON_HEIGHT),
                                     QString::fromUtf8(caption));
        made->setAutoDefault(false); // see keyPressEvent
        made->setToolTip(QString::fromUtf8(tip));
        made->setAccessibleName(made->text().remove(QLatin1Char('&')));
        return made;
    };
    const int right = width - MARGIN - BUTTON_WIDTH;
    SaveButton = button("SaveButton", MARGIN, "&Speichern", "Die Einstellungen aller Kanäle speichern");
    OKButton =
        button("OKButton", right - BUTTON_WIDTH - BUTTONS_GAP, "&Drucken", "Die angekreuzten Kanäle drucken");
    CancelButton = button("CancelButton", right, "&Abbrechen", "Das Fenster schließen");
    connect(SaveButton, &QPushButton::clicked, this, &fCPrint::saveSettings);
    connect(OKButton, &QPushButton::clicked, this, &fCPrint::printRows);
    connect(CancelButton, &QPushButton::clicked, this, &fCPrint::reject);
    setFixedSize(width, y + BUTTON_HEIGHT + MARGIN);
}

} // namespace kelvrum
