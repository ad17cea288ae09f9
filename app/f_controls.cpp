// The controls of the main window: what there is, where it stands, what it calls.
#include "app/ColumnScroll.h"
#include "app/DataListModel.h"
#include "app/ListView.h"
#include "app/f.h"
#include "data/IntervalChoices.h"
#include "data/RangeSteps.h"
#include "diagram/PolarSys.h"
#include "util/Pickers.h"

#include <QButtonGroup>
#include <QCheckBox>
#include <QComboBox>
#include <QGroupBox>
#include <QItemSelectionModel>
#include <QLabel>
#include <QLineEdit>
#include <QListWidget>
#include <QMenuBar>
#include <QPushButton>
#include <QRadioButton>
#include <QScrollBar>
#include <QSlider>
#include <QTableView>
#include <array>
#include <vector>

namespace kelvrum {

namespace {

constexpr int COLUMN_LEFT = 2;
constexpr int COLUMN_WIDTH = 114;
constexpr int FONT_PIXELS = 11;
constexpr int INNER_LEFT = 5; // within a frame
constexpr int INNER_WIDTH = 104;
constexpr int CONTROL_HEIGHT = 20;

struct ScrollChoice {
    const char* caption;
    int unit; // item data of its row
};
constexpr std::array<ScrollChoice, 4> SCROLL_UNITS = {{
    {"Minuten", SCROLL_MINUTE},
    {"Stunden", SCROLL_HOUR},
    {"Tage", SCROLL_DAY},
    {"Monate", SCROLL_MONTH},
}};

/// A control with its name, at its place in its parent.
template<typename Control, typename... Arguments>
Control* make(QWidget* parent, const char* name, const QRect& place, Arguments&&... arguments) {
    auto* control = new Control(std::forward<Arguments>(arguments)..., parent);
    control->setObjectName(QString::fromUtf8(name));
    control->setGeometry(place);
    return control;
}

QRect row(int y) { return {INNER_LEFT, y, INNER_WIDTH, CONTROL_HEIGHT}; }

/// The place of a time picker, between its label and its buttons.
QRect timePlace(int y) { return {INNER_LEFT + 25, y, 39, CONTROL_HEIGHT}; }

QComboBox* makeChoice(QWidget* parent, const char* name, int y) {
    return make<QComboBox>(parent, name, row(y));
}

} // namespace

QGroupBox* f::frame(const char* name, const QString& caption, const QRect& place) {
    return make<QGroupBox>(client_, name, place, caption);
}

void f::buildMenus() {
    const auto entry = [](QMenu* menu, const char* name, const QString& caption) {
        QAction* action = menu->addAction(caption);
        action->setObjectName(QString::fromUtf8(name));
        return action;
    };
    menDat = menuBar()->addMenu(QStringLiteral("&Datei"));
    menDat->setObjectName(QStringLiteral("menDat"));
    menOpen = entry(menDat, "menOpen", QStringLiteral("Ö&ffnen"));
    menProj = entry(menDat, "menProj", QStringLiteral("&Projektauswahl"));
    menPrint = entry(menDat, "menPrint", QStringLiteral("&Drucken"));
    menCPrint = entry(menDat, "menCPrint", QStringLiteral("&Sammeldruck"));
    menSelP = entry(menDat, "menSelP", QStringLiteral("Drucker e&inrichten"));
    menDat->addSeparator()->setObjectName(QStringLiteral("Men001"));
    MenEnd = entry(menDat, "MenEnd", QStringLiteral("&Ende"));
    menKor = menuBar()->addMenu(QStringLiteral("&Korrekturfaktoren"));
    menKor->setObjectName(QStringLiteral("menKor"));
    menWind = entry(menKor, "menWind", QStringLiteral("&Wind"));
    menStaub = entry(menKor, "menStaub", QStringLiteral("&Staub"));
}

/// The view area, from the lowest layer up: diagram, scroll bar, list.
void f::buildViews() {
    client_ = new QWidget(this);
    setCentralWidget(client_);
    client_->installEventFilter(this);
    QFont font(QStringLiteral("Arial"));
    font.setPixelSize(FONT_PIXELS);
    client_->setFont(font);

    KS = new PolarSys(environment_.texts, client_);
    KS->setObjectName(QStringLiteral("KS"));
    KS->setPrintJob(printJob_);
    buildKindMenu();
    HScroll = new QScrollBar(Qt::Horizontal, client_);
    HScroll->setObjectName(QStringLiteral("HScroll"));

    lView = new ListView(client_);
    lView->setObjectName(QStringLiteral("lView"));
    rows_ = new DataListModel(environment_.texts, lView);
    rows_->setColumns(listColumns(station_));
    lView->setModel(rows_);
    lView->hide();
}

void f::buildColumn() {
    selChan = make<QListWidget>(client_, "selChan", QRect(COLUMN_LEFT, 2, COLUMN_WIDTH, 108));
    selChan->setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    selChan->setTextElideMode(Qt::ElideMiddle); // names often differ at their end

    auto* views = new QButtonGroup(this);
    optView[1] =
        make<QRadioButton>(client_, "optView(1)", QRect(4, 112, 112, 17), QStringLiteral("Daten&liste"));
    optView[0] =
        make<QRadioButton>(client_, "optView(0)", QRect(4, 129, 112, 17), QStringLiteral("Liniendia&gramm"));
    views->addButton(optView[0], 0);
    views->addButton(optView[1], 1);
    optView[0]->setChecked(true);
    // The tab key reaches the chosen button alone; from here on the group sees to it.
    optView[1]->setFocusPolicy(Qt::ClickFocus);

    buildRangeFrames();
    buildScaleFrames();
    std::vector<QWidget*> parts = {selChan, optView[1], optView[0]};
    for (QGroupBox* part : client_->findChildren<QGroupBox*>(QString(), Qt::FindDirectChildrenOnly)) {
        parts.push_back(part);
    }
    column_ = new ColumnScroll(*client_, parts);

    Frame2 = make<QFrame>(client_, "Frame2", QRect(COLUMN_LEFT, 646, COLUMN_WIDTH, 13));
    Label8 =
        make<QLabel>(Frame2, "Label8", QRect(3, 0, COLUMN_WIDTH - 3, 13), QStringLiteral("Lade Daten ..."));
    Label8->setAutoFillBackground(true); // in a low window both labels lie over the column
    Label8->hide();
    Label1 =
        make<QLabel>(client_, "Label1", QRect(5, 659, COLUMN_WIDTH - 3, 15), QStringLiteral("Startzeit"));
    Label1->setAutoFillBackground(true);
}

void f::buildRangeFrames() {
    const auto button = [](QWidget* parent, const char* name, const QRect& place, const char* caption) {
        return make<QPushButton>(parent, name, place, QString::fromUtf8(caption));
    };
    QGroupBox* date = frame("Frame3", QStringLiteral("Datum"), {COLUMN_LEFT, 147, COLUMN_WIDTH, 109});
    DTPicker1 = make<TimePicker>(date, "DTPicker1", timePlace(19));
    make<QLabel>(date, "Label2", QRect(INNER_LEFT, 19, 24, CONTROL_HEIGHT), QStringLiteral("&von:"))
        ->setBuddy(DTPicker1);
    Command3 = button(date, "Command3", {INNER_LEFT + 65, 19, 19, CONTROL_HEIGHT}, "<<");
    Command4 = button(date, "Command4", {INNER_LEFT + 85, 19, 19, CONTROL_HEIGHT}, ">>");
    DTPicker = make<DatePicker>(date, "DTPicker", row(40), environment_.texts);
    DTPicker3 = make<TimePicker>(date, "DTPicker3", timePlace(63));
    make<QLabel>(date, "Label3", QRect(INNER_LEFT, 63, 24, CONTROL_HEIGHT), QStringLiteral("&bis:"))
        ->setBuddy(DTPicker3);
    Command6 = button(date, "Command6", {INNER_LEFT + 65, 63, 19, CONTROL_HEIGHT}, "<<");
    Command5 = button(date, "Command5", {INNER_LEFT + 85, 63, 19, CONTROL_HEIGHT}, ">>");
    DTPicker2 = make<DatePicker>(date, "DTPicker2", row(84), environment_.texts);

    QGroupBox* scroll = frame("Frame6", QStringLiteral("Scrollen"), {COLUMN_LEFT, 258, COLUMN_WIDTH, 66});
    selScroll = makeChoice(scroll, "selScroll", 19);
    for (const ScrollChoice& choice : SCROLL_UNITS) {
        selScroll->addItem(QString::fromUtf8(choice.caption), choice.unit);
    }
    Command7 = button(scroll, "Command7", {INNER_LEFT, 41, 51, CONTROL_HEIGHT}, "<-");
    Command8 = button(scroll, "Command8", {INNER_LEFT + 53, 41, 51, CONTROL_HEIGHT}, "->");

    QGroupBox* average =
        frame("Frame4", QStringLiteral("Mittelwerte-Intervall"), {COLUMN_LEFT, 326, COLUMN_WIDTH, 45});
    selInterval = makeChoice(average, "selInterval", 19);
    for (const IntervalChoice& choice : INTERVAL_CHOICES) {
        selInterval->addItem(QString::fromUtf8(choice.caption), choice.minutes);
    }
}

void f::buildScaleFrames() {
    const auto box = [](QWidget* parent, const char* name, const QRect& place, const char* text) {
        auto* field = make<QLineEdit>(parent, name, place, QString::fromUtf8(text));
        field->setAlignment(Qt::AlignRight);
        return field;
    };
    const auto label = [](QWidget* parent, const char* name, int y, const char* caption, QWidget* buddy) {
        auto* text =
            make<QLabel>(parent, name, QRect(INNER_LEFT, y, 62, CONTROL_HEIGHT), QString::fromUtf8(caption));
        text->setBuddy(buddy);
        return text;
    };
    QGroupBox* scale = frame("Frame5", QStringLiteral("Skalierung"), {COLUMN_LEFT, 373, COLUMN_WIDTH, 97});
    Option1 = make<QRadioButton>(scale, "Option1", QRect(INNER_LEFT, 18, INNER_WIDTH, 17),
                                 QStringLiteral("&Automatisch"));
    Option2 = make<QRadioButton>(scale, "Option2", QRect(INNER_LEFT, 35, INNER_WIDTH, 17),
                                 QStringLiteral("Man&uell"));
    auto* scales = new QButtonGroup(this);
    scales->addButton(Option1);
    scales->addButton(Option2);
    Option2->setChecked(true);
    Option1->setFocusPolicy(Qt::ClickFocus); // as for optView
    Text1 = box(scale, "Text1", {59, 53, 50, CONTROL_HEIGHT}, "0");
    Label4 = label(scale, "Label4", 53, "&Minimum:", Text1);
    Text2 = box(scale, "Text2", {59, 74, 50, CONTROL_HEIGHT}, "100");
    Label5 = label(scale, "Label5", 74, "Ma&ximum:", Text2);

    QGroupBox* limits = frame("Frame7", QStringLiteral("Hilfslinien"), {COLUMN_LEFT, 472, COLUMN_WIDTH, 98});
    Check1 = make<QCheckBox>(limits, "Check1", QRect(INNER_LEFT, 18, INNER_WIDTH, 17),
                             QStringLiteral("an&zeigen"));
    Text3 = box(limits, "Text3", {68, 36, 41, CONTROL_HEIGHT}, "100");
    Label6 = label(limits, "Label6", 36, "Grenzwert &1", Text3);
    Text4 = box(limits, "Text4", {68, 57, 41, CONTROL_HEIGHT}, "0");
    Label7 = label(limits, "Label7", 57, "Grenzwert &2", Text4);
    Check2 = make<QCheckBox>(limits, "Check2", QRect(INNER_LEFT, 79, INNER_WIDTH, 17),
                             QStringLiteral("Mi&ttelwert"));
    for (QWidget* control : std::initializer_list<QWidget*>{Text3, Text4, Label6, Label7}) {
        control->setEnabled(false);
    }
    Text3->setReadOnly(true);
    Text4->setReadOnly(true);

    QGroupBox* zoom = frame("Frame1", QStringLiteral("Zoom"), {COLUMN_LEFT, 572, COLUMN_WIDTH, 66});
    Command1 =
        make<QPushButton>(zoom, "Command1", QRect(INNER_LEFT, 19, 30, CONTROL_HEIGHT), QStringLiteral("<<"));
    lZoom = make<QLabel>(zoom, "lZoom", QRect(INNER_LEFT + 31, 19, 42, CONTROL_HEIGHT), QStringLiteral("1"));
    lZoom->setAlignment(Qt::AlignCenter);
    Command2 = make<QPushButton>(zoom, "Command2", QRect(INNER_LEFT + 74, 19, 30, CONTROL_HEIGHT),
                                 QStringLiteral(">>"));
    Command1->setEnabled(false); // the zoom starts at its lower end
    Slider1 =
        make<QSlider>(zoom, "Slider1", QRect(INNER_LEFT, 42, INNER_WIDTH, CONTROL_HEIGHT), Qt::Horizontal);
}

/// Accessible names and tool tips, for those who cannot see captions or frames.
void f::nameForReaders() {
    static constexpr const char* NO_TIP = nullptr;
    struct Name {
        QWidget* control;
        const char* name;
        const char* tip; // empty: the name serves
    };
    const std::initializer_list<Name> names = {
        {KS, "Diagramm", NO_TIP},
        {lView, "Datenliste", NO_TIP},
        {HScroll, "Zeitachse", "Zeichnet das Diagramm neu"},
        {selChan, "Kanal", "Angezeigter Kanal; F5 liest ihn neu"},
        {optView[1], "Datenliste", "Werte als Liste zeigen"},
        {optView[0], "Liniendiagramm", "Werte als Diagramm zeigen"},
        {DTPicker1, "von: Uhrzeit", "Beginn des Zeitraums, Uhrzeit"},
        {Command3, "Beginn einen Tag früher", ""},
        {Command4, "Beginn einen Tag später", ""},
        {DTPicker, "von: Datum", "Beginn des Zeitraums, Datum"},
        {DTPicker3, "bis: Uhrzeit", "Ende des Zeitraums, Uhrzeit"},
        {Command6, "Ende einen Tag früher", ""},
        {Command5, "Ende einen Tag später", ""},
        {DTPicker2, "bis: Datum", "Ende des Zeitraums, Datum"},
        {selScroll, "Scrolleinheit", "Einheit, um die der Zeitraum verschoben wird"},
        {Command7, "Zeitraum zurück", "Zeitraum um eine Einheit zurück (im Diagramm: Bild auf)"},
        {Command8, "Zeitraum vor", "Zeitraum um eine Einheit vor (im Diagramm: Bild ab)"},
        {selInterval, "Mittelwerte-Intervall", "Dauer eines Intervalls"},
        {Option1, "Skalierung automatisch", "Skala nach den Werten"},
        {Option2, "Skalierung manuell", "Skala von Minimum bis Maximum"},
        {Text1, "Minimum", "Unteres Ende der Skala"},
        {Text2, "Maximum", "Oberes Ende der Skala"},
        {Check1, "Grenzwerte anzeigen", "Beide Grenzwerte als Linien zeigen"},
        {Text3, "Grenzwert 1", "Erste Hilfslinie (grün)"},
        {Text4, "Grenzwert 2", "Zweite Hilfslinie (rot)"},
        {Check2, "Mittelwert anzeigen", "Mittelwert als Linie zeigen"},
        {Command1, "Zoom kleiner", ""},
        {lZoom, "Zoom", "Zoomstufe"},
        {Command2, "Zoom größer", ""},
        {Slider1, "Zoom-Schieber", "Zeichnet das Diagramm neu"},
    };
    QWidget* before = nullptr;
    for (const Name& entry : names) {
        entry.control->setAccessibleName(QString::fromUtf8(entry.name));
        if (entry.tip != NO_TIP) {
            const bool named = *entry.tip == '\0';
            entry.control->setToolTip(QString::fromUtf8(named ? entry.name : entry.tip));
        }
        if (before != nullptr) {
            setTabOrder(before, entry.control);
        }
        before = entry.control;
    }
}

/// Only what a user does raises a handler; see setQuietly for the pickers.
void f::connectControls() {
    connect(menOpen, &QAction::triggered, this, &f::OpenFile);
    connect(menProj, &QAction::triggered, this, &f::showProjects);
    connect(menPrint, &QAction::triggered, this, &f::printView);
    connect(menCPrint, &QAction::triggered, this, &f::showBatchPrint);
    connect(menSelP, &QAction::triggered, this, &f::setUpPrinterAndPrint);
    connect(menWind, &QAction::triggered, this, [this] { correct(CorrectionMode::wind); });
    connect(menStaub, &QAction::triggered, this, [this] { correct(CorrectionMode::dust); });
    connect(MenEnd, &QAction::triggered, this, &QWidget::close);
    connect(selChan, &QListWidget::currentRowChanged, this, &f::channelChosen);
    connect(selChan, &QListWidget::itemClicked, this, &f::channelClicked);
    selChan->viewport()->installEventFilter(this);
    connect(selChan->selectionModel(), &QItemSelectionModel::selectionChanged, this, [this] {
        QListWidgetItem* shown = selChan->currentItem();
        if (shown != nullptr && !selChan->selectionModel()->hasSelection()) {
            shown->setSelected(true); // a channel is selected at all times
        }
    });
    for (QRadioButton* view : optView) {
        connect(view, &QRadioButton::clicked, this, &f::viewChosen);
    }
    connect(DTPicker, &QDateEdit::userDateChanged, this, [this] { dateEdited(Side::start); });
    connect(DTPicker2, &QDateEdit::userDateChanged, this, [this] { dateEdited(Side::end); });
    connect(DTPicker1, &QTimeEdit::userTimeChanged, this, [this] { timeEdited(Side::start); });
    connect(DTPicker3, &QTimeEdit::userTimeChanged, this, [this] { timeEdited(Side::end); });
    connect(Command3, &QPushButton::clicked, this, [this] { stepDate(Side::start, -1); });
    connect(Command4, &QPushButton::clicked, this, [this] { stepDate(Side::start, +1); });
    connect(Command6, &QPushButton::clicked, this, [this] { stepDate(Side::end, -1); });
    connect(Command5, &QPushButton::clicked, this, [this] { stepDate(Side::end, +1); });
    connect(Command7, &QPushButton::clicked, this, [this] { scrollRange(-1); });
    connect(Command8, &QPushButton::clicked, this, [this] { scrollRange(+1); });
    connect(selInterval, &QComboBox::activated, this, &f::intervalChosen);

    connect(Option1, &QRadioButton::clicked, this, &f::scaleAutomatic);
    connect(Option2, &QRadioButton::clicked, this, &f::scaleManual);
    connect(Text1, &QLineEdit::textEdited, this, [this] { scaleEdited(false); });
    connect(Text2, &QLineEdit::textEdited, this, [this] { scaleEdited(true); });
    Text1->installEventFilter(this);
    Text2->installEventFilter(this);
    connect(Check1, &QCheckBox::clicked, this, &f::limitsToggled);
    connect(Text3, &QLineEdit::textEdited, this, [this] { limitEdited(1); });
    connect(Text4, &QLineEdit::textEdited, this, [this] { limitEdited(2); });
    connect(Check2, &QCheckBox::clicked, this, &f::meanToggled);
    connect(Command1, &QPushButton::clicked, this, [this] { zoomBy(-1); });
    connect(Command2, &QPushButton::clicked, this, [this] { zoomBy(+1); });
    connect(HScroll, &QScrollBar::valueChanged, this, &f::SetXHigh);
    connect(Slider1, &QSlider::valueChanged, this, &f::SetXHigh);
}

} // namespace kelvrum
