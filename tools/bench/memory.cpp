// SPDX-License-Identifier: GPL-3.0-or-later
// One kind of long work in a process of its own: prints the resident memory of the window before it and the
// peak during it, in kB. Repeated work must not raise the peak (tools/checks/memory.sh).
//     kelvrum_bench_memory WORK TIMES
#include "app/f.h"
#include "data/DataReader.h"
#include "diagram/PolarSys.h"
#include "tests/testing/AnsweredDialogs.h"
#include "tools/bench/BenchStation.h"
#include "tools/bench/FirstWindow.h"

#include <QAction>
#include <QApplication>
#include <QPrinter>
#include <QRadioButton>
#include <QTemporaryDir>
#include <array>
#include <cstdio>
#include <fstream>
#include <functional>
#include <memory>
#include <optional>
#include <stdexcept>
#include <string>
#if defined(__GLIBC__)
#include <malloc.h>
#endif

namespace kelvrum::bench {

namespace {

/// The peak of the resident memory since forgetPeak in kB, as Linux counts it; 0 elsewhere.
long peakMemory() { return memoryFigure("VmHWM:"); }

/// What was freed goes back to the system, and the peak starts anew.
void forgetPeak() {
#if defined(__GLIBC__)
    malloc_trim(0);
#endif
    std::ofstream("/proc/self/clear_refs") << 5;
}

/// Prepares its data, then calls `begin`, and after it works.
using Work = void (*)(const std::function<void()>& begin, int times);

/// The real window on the shared station, a day in view.
struct DayWindow {
    std::shared_ptr<testing::AnsweredDialogs> dialogs = std::make_shared<testing::AnsweredDialogs>();
    std::unique_ptr<f> window;

    DayWindow() {
        Environment environment;
        environment.today = [] { return QDate(2019, 12, 30); };
        environment.programFolder = QString::fromStdString(station().folder());
        environment.dialogs = dialogs;
        window = std::make_unique<f>(environment);
        window->resize(1020, 660);
        window->Form_Load();
        window->show();
        QCoreApplication::processEvents();
    }
    void click(const char* option) const {
        window->findChild<QRadioButton*>(QString::fromUtf8(option))->click();
        QCoreApplication::processEvents();
    }
};

/// A year of minutes, as a diagram and as a list in turn.
void yearInView(const std::function<void()>& begin, int times) {
    const DayWindow viewer;
    begin();
    showYear(*viewer.window);
    viewer.window->LoadData();
    for (int i = 0; i < times; ++i) {
        viewer.click("optView(1)");
        viewer.click("optView(0)");
    }
}

/// The list of a year of minutes, printed to a file.
void printedYear(const std::function<void()>& begin, int times) {
    const QTemporaryDir folder;
    const QString file = folder.filePath(QStringLiteral("list.pdf"));
    const DayWindow viewer;
    viewer.dialogs->onPrinter = [&file](QPrinter& printer) {
        printer.setOutputFormat(QPrinter::PdfFormat);
        printer.setOutputFileName(file);
    };
    showYear(*viewer.window);
    viewer.window->LoadData();
    viewer.click("optView(1)");
    begin();
    for (int i = 0; i < times; ++i) {
        viewer.window->findChild<QAction*>(QStringLiteral("menSelP"))->trigger();
        if (!viewer.dialogs->messages.isEmpty() || !QFile::remove(file)) {
            throw std::runtime_error("not printed: " + viewer.dialogs->messages.join(u' ').toStdString());
        }
    }
}

/// A year of day files with 34 channels: one of them as a diagram, all as a list.
void yearOfDays(bool wide, const std::function<void()>& begin, int times) {
    const DayWindow viewer;
    const BenchDays days(wide);
    DataReader reader;
    DiagramState diagram;
    begin();
    for (int i = 0; i < times; ++i) {
        reader.readDayDiagram(days.config, {17, {}, benchYear(), 1}, {}, diagram, {});
        const auto list = reader.readDayList(days.config, benchYear(), {});
        if (!list || list->count() == 0) {
            throw std::runtime_error("no rows");
        }
    }
}
void narrowDays(const std::function<void()>& begin, int times) { yearOfDays(false, begin, times); }
void wideDays(const std::function<void()>& begin, int times) { yearOfDays(true, begin, times); }

/// Ten million columns in the diagram of the window.
void manyColumns(const std::function<void()>& begin, int times) {
    constexpr std::size_t COLUMNS = 10'000'000;
    const DayWindow viewer;
    auto& diagram = *viewer.window->findChild<PolarSys*>(QStringLiteral("KS"));
    begin();
    for (int i = 0; i < times; ++i) {
        SeriesTable& table = seriesTable();
        table.resize(COLUMNS);
        const DateTime start = benchYear().from;
        for (std::size_t at = 0; at < COLUMNS; ++at) {
            table.set(at, start + static_cast<double>(at) * 365 / COLUMNS, static_cast<double>(at % 997),
                      NoValue);
        }
        diagram.SetArray(COLUMNS);
        diagram.setXLow(start);
        diagram.setXHigh(start + 365);
        diagram.Draw();
        QCoreApplication::processEvents();
    }
}

struct NamedWork {
    const char* name;
    Work work;
};
constexpr std::array<NamedWork, 5> WORKS = {{{"year", yearInView},
                                             {"printed", printedYear},
                                             {"narrow", narrowDays},
                                             {"wide", wideDays},
                                             {"columns", manyColumns}}};

int run(const std::string& name, int times) {
    for (const NamedWork& known : WORKS) {
        if (known.name == name) {
            std::optional<long> before;
            known.work(
                [&before] {
                    forgetPeak();
                    before = residentMemory();
                },
                times);
            std::printf("%ld %ld\n", before.value(), peakMemory());
            return 0;
        }
    }
    std::fprintf(stderr, "unknown work: %s\n", name.c_str());
    return 1;
}

} // namespace

} // namespace kelvrum::bench

int main(int argc, char* argv[]) {
    const QApplication application(argc, argv);
    if (argc != 3) {
        std::fprintf(stderr, "kelvrum_bench_memory WORK TIMES\n");
        return 1;
    }
    return kelvrum::bench::run(argv[1], std::stoi(argv[2]));
}
