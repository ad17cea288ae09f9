// The controls of the batch print dialog: what there is, where it stands, what it calls.
#include "batchprint/fCPrint.h"
#include "data/IntervalChoices.h"
#include "util/Pickers.h"

#include <QCheckBox>
#include <QComboBox>
#include <QFontMetrics>
#include <QFrame>
#include <QLabel>
#include <QLineEdit>
#include <QProgressBar>
#include <QPushButton>
#include <QStyle>
#include <algorithm>

namespace kelvrum {

namespace {

constexpr int FONT_PIXELS = 11;
constexpr int MARGIN = 14;
constexpr int CONTROL_HEIGHT = 20;
constexpr int ROW_STEP = 24; // 360 twips
constexpr int COLUMN_GAP = 22;
constexpr int LEAST_NAME_WIDTH = 110;
constexpr int MOST_NAME_WIDTH = 300;
constexpr int FIELD_WIDTH = 60;
constexpr int DASH_WIDTH = 12;
constexpr int LEAST_GAP = 6; // between controls
constexpr int CHOICE_WIDTH = 92;
constexpr int BUTTON_WIDTH = 92;
constexpr int BUTTON_HEIGHT = 25;

constexpr int PERIOD_TOP = MARGIN;
constexpr int HEADING_TOP = PERIOD_TOP + CONTROL_HEIGHT + 16;
constexpr int HEADING_HEIGHT = 15;
constexpr int RULE_TOP = HEADING_TOP + 2 * HEADING_HEIGHT + 4;
constexpr int ROWS_TOP = RULE_TOP + 7;

// The runs of blanks place the words over their columns; the columns are laid out by them.
constexpr const char* SCALE_CAPTION = "auto      -      manuell";
constexpr const char* MEAN_HEADING = "Mittelwert";
constexpr const char* MEAN_CAPTION = "anzeigen";
constexpr const char* LIMIT_CAPTION = "anzeigen        grün                rot";

/// The middle of a word of a caption, from the caption's left edge.
int middleOf(const char* word, const char* caption, const QFontMetrics& metrics) {
    const QString text = QString::fromUtf8(caption);
    const QString part = QString::fromUtf8(word);
    return metrics.horizontalAdvance(text.left(text.indexOf(part))) + metrics.horizontalAdvance(part) / 2;
}

/// A control with its name, at its place in its parent.
template<typename Control, typename... Arguments>
Control* make(QWidget* parent, const QString& name, const QRect& place, Arguments&&... arguments) {
    auto* control = new Control(std::forward<Arguments>(arguments)..., parent);
    control->setObjectName(name);
    control->setGeometry(place);
    return control;
}

QLabel* makeHeading(QWidget* parent, const char* name, const QRect& place, const char* text) {
    auto* label = make<QLabel>(parent, QString::fromUtf8(name), place, QString::fromUtf8(text));
    label->setTextFormat(Qt::PlainText); // keeps the runs of blanks
    return label;
}

/// A caption is no place for mnemonics that a channel's name brings by chance.
QString captionOf(QString name) { return name.replace(QLatin1Char('&'), QLatin1String("&&")); }

} // namespace

/// Left edges, and the widths that depend on texts and font.
struct fCPrint::Columns {
    int nameWidth = 0;
    int tick = 0; // width of a check box without caption
    int scale = 0;
    int chAuto = 0;
    int tMin = 0;
    int strich = 0;
    int tMax = 0;
    int interval = 0;
    int limits = 0;
    int chShowLines = 0;
    int aMin = 0;
    int aMax = 0;
    int mean = 0;
    int chShowMittel = 0;
    int width = 0; // of the dialog
};

QString fCPrint::nameOf(std::size_t row) const {
    return QString::fromStdString(owner_.station.ChannelTable.at(SLOT_CHANNELS[row]).Name);
}

fCPrint::Columns fCPrint::layOutColumns() const {
    const QFontMetrics metrics(font());
    const auto widthOf = [&metrics](const char* text) {
        return metrics.horizontalAdvance(QString::fromUtf8(text));
    };
    Columns at;
    at.tick = style()->pixelMetric(QStyle::PM_IndicatorWidth) + 2;
    at.nameWidth = LEAST_NAME_WIDTH;
    for (std::size_t i = 0; i < ROW_COUNT; ++i) {
        const int wanted = QCheckBox(captionOf(nameOf(i))).sizeHint().width();
        at.nameWidth = std::clamp(wanted, at.nameWidth, MOST_NAME_WIDTH);
    }

    at.scale = MARGIN + at.nameWidth + COLUMN_GAP;
    at.chAuto = at.scale + middleOf("auto", SCALE_CAPTION, metrics) - at.tick / 2;
    const int manual = at.scale + middleOf("manuell", SCALE_CAPTION, metrics);
    at.tMin = std::max(manual - FIELD_WIDTH - DASH_WIDTH / 2, at.chAuto + at.tick + LEAST_GAP);
    at.strich = at.tMin + FIELD_WIDTH;
    at.tMax = at.strich + DASH_WIDTH;

    at.interval = at.tMax + FIELD_WIDTH + COLUMN_GAP;
    at.limits = at.interval + CHOICE_WIDTH + COLUMN_GAP;
    at.chShowLines = at.limits + middleOf("anzeigen", LIMIT_CAPTION, metrics) - at.tick / 2;
    at.aMin = at.limits + middleOf("grün", LIMIT_CAPTION, metrics) - FIELD_WIDTH / 2;
    at.aMax = at.limits + middleOf("rot", LIMIT_CAPTION, metrics) - FIELD_WIDTH / 2;

    at.mean = at.aMax + FIELD_WIDTH + COLUMN_GAP;
    at.chShowMittel = at.mean + middleOf("anzeigen", MEAN_CAPTION, metrics) - at.tick / 2;
    at.width = at.mean + widthOf(MEAN_HEADING) + MARGIN;
    return at;
}

void fCPrint::buildControls() {
    QFont small(QStringLiteral("Arial"));
    small.setPixelSize(FONT_PIXELS);
    setFont(small);
    const Columns columns = layOutColumns();
    constexpr int ROWS_END = ROWS_TOP + static_cast<int>(ROW_COUNT) * ROW_STEP;
    entries_ = make<QWidget>(this, QStringLiteral("entries"), QRect(0, 0, columns.width, ROWS_END));
    buildPeriod();
    buildHeadings(columns);
    for (std::size_t i = 0; i < ROW_COUNT; ++i) {
        buildRow(i, columns);
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
    QLabel* from = label("LabelVon", "Zeitraum von");
    DTPicker = make<DatePicker>(entries_, QStringLiteral("DTPicker"), place(DATE_WIDTH), owner_.texts);
    DTPicker1 = make<TimePicker>(entries_, QStringLiteral("DTPicker1"), place(TIME_WIDTH));
    QLabel* to = label("LabelBis", "bis");
    DTPicker2 = make<DatePicker>(entries_, QStringLiteral("DTPicker2"), place(DATE_WIDTH), owner_.texts);
    DTPicker3 = make<TimePicker>(entries_, QStringLiteral("DTPicker3"), place(TIME_WIDTH));
    from->setBuddy(DTPicker);
    to->setBuddy(DTPicker2);
    name(DTPicker, "Beginn des Zeitraums, Datum");
    name(DTPicker1, "Beginn des Zeitraums, Uhrzeit");
    name(DTPicker2, "Ende des Zeitraums, Datum");
    name(DTPicker3, "Ende des Zeitraums, Uhrzeit");

    const auto set = [](QDateEdit& date, QTimeEdit& time, DateTime t) {
        const CalendarTime parts = calendarTime(t);
        date.setDate(QDate(parts.year, parts.month, parts.day));
        time.setTime(QTime(parts.hour, parts.minute));
    };
    set(*DTPicker, *DTPicker1, owner_.range.from);
    set(*DTPicker2, *DTPicker3, owner_.range.to);
}

void fCPrint::buildHeadings(const Columns& columns) {
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
    auto* rule = make<QFrame>(entries_, QStringLiteral("rule"), place);
    rule->setFrameStyle(static_cast<int>(QFrame::HLine) | static_cast<int>(QFrame::Sunken));
}

void fCPrint::buildRow(std::size_t index, const Columns& columns) {
    const int y = ROWS_TOP + static_cast<int>(index) * ROW_STEP;
    const auto place = [y](int x, int width) { return QRect(x, y, width, CONTROL_HEIGHT); };
    const auto name = [index](const char* control) {
        return QStringLiteral("%1(%2)").arg(QString::fromUtf8(control)).arg(index);
    };
    const auto field = [&](const char* control, int x, const char* text) {
        auto* box = make<QLineEdit>(entries_, name(control), place(x, FIELD_WIDTH), QString::fromUtf8(text));
        box->setAlignment(Qt::AlignRight);
        return box;
    };
    Row row;
    row.chKanal = make<QCheckBox>(entries_, name("chKanal"), place(MARGIN, columns.nameWidth),
                                  captionOf(nameOf(index)));
    row.chAuto = make<QCheckBox>(entries_, name("chAuto"), place(columns.chAuto, columns.tick));
    row.tMin = field("tMin", columns.tMin, "0");
    row.strich =
        make<QLabel>(entries_, name("strich"), place(columns.strich, DASH_WIDTH), QStringLiteral("-"));
    row.strich->setAlignment(Qt::AlignCenter);
    row.tMax = field("tMax", columns.tMax, "100");
    row.selInterval = make<QComboBox>(entries_, name("selInterval"), place(columns.interval, CHOICE_WIDTH));
    for (const IntervalChoice& choice : INTERVAL_CHOICES) {
        row.selInterval->addItem(QString::fromUtf8(choice.caption), choice.minutes);
    }
    row.chShowLines =
        make<QCheckBox>(entries_, name("chShowLines"), place(columns.chShowLines, columns.tick));
    row.aMin = field("aMin", columns.aMin, "0");
    row.aMax = field("aMax", columns.aMax, "0");
    row.chShowMittel =
        make<QCheckBox>(entries_, name("chShowMittel"), place(columns.chShowMittel, columns.tick));
    nameRow(row, index);
    connectRow(row);
    enableRow(row);
    rows_.push_back(row);
}

/// Accessible names and tool tips, for those who cannot see captions or headings. A channel that the station
/// does not have goes by its number.
void fCPrint::nameRow(const Row& row, std::size_t index) {
    const QString number = QStringLiteral("Kanal %1").arg(SLOT_CHANNELS[index]);
    const QString channel = nameOf(index).isEmpty() ? number : nameOf(index);
    struct Name {
        QWidget* control;
        const char* name;
    };
    const Name names[] = {
        {row.chAuto, "Skala automatisch"},
        {row.tMin, "Skala Minimum"},
        {row.tMax, "Skala Maximum"},
        {row.selInterval, "Mittelung"},
        {row.chShowLines, "Grenzwerte anzeigen"},
        {row.aMin, "Grenzwert grün"},
        {row.aMax, "Grenzwert rot"},
        {row.chShowMittel, "Mittelwert anzeigen"},
    };
    for (const Name& entry : names) {
        const QString name = QString::fromUtf8(entry.name);
        entry.control->setAccessibleName(channel + QStringLiteral(": ") + name);
        entry.control->setToolTip(name);
    }
    row.chKanal->setAccessibleName(channel + QStringLiteral(" drucken"));
    row.chKanal->setToolTip(channel == number ? number
                                              : channel + QStringLiteral(" (") + number + QLatin1Char(')'));
}

void fCPrint::connectRow(const Row& row) {
    connect(row.chKanal, &QCheckBox::toggled, this, &fCPrint::enableOk);
    for (const QCheckBox* box : {row.chAuto, row.chShowLines}) {
        connect(box, &QCheckBox::toggled, this, [row] { enableRow(row); });
    }
    for (QLineEdit* field : {row.tMin, row.tMax, row.aMin, row.aMax}) {
        connect(field, &QLineEdit::textChanged, this, [field] { colourEntry(*field); });
    }
}

void fCPrint::buildFoot(int width) {
    constexpr int BAR_HEIGHT = 12;
    constexpr int BUTTONS_GAP = 8;
    int y = entries_->height() + 8;
    PBar = make<QProgressBar>(this, QStringLiteral("PBar"), QRect(MARGIN, y, width - 2 * MARGIN, BAR_HEIGHT));
    PBar->setTextVisible(false);
    PBar->setAccessibleName(QStringLiteral("Fortschritt des Drucks"));
    PBar->hide();
    y += BAR_HEIGHT + 8;

    const auto button = [&](const char* name, int x, const char* caption, const char* tip) {
        auto* made = make<QPushButton>(this, QString::fromUtf8(name),
                                       QRect(x, y, BUTTON_WIDTH, BUTTON_HEIGHT), QString::fromUtf8(caption));
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
