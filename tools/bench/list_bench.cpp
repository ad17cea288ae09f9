// SPDX-License-Identifier: GPL-3.0-or-later
// The list of a year of minutes, filled and shown, beside a bare table view on a trivial model.
#include "app/DataListModel.h"
#include "tools/bench/Ratios.h"
#include "tools/bench/Registers.h"
#include "tools/bench/Year.h"
#include "util/DateTime.h"
#include "util/VectorRegisters.h"

#include <QApplication>
#include <QHeaderView>
#include <QTableView>
#include <algorithm>

namespace kelvrum::bench {

namespace {

constexpr int ROW_HEIGHT = 17;

void setUp(QTableView& view) {
    view.setShowGrid(false);
    view.verticalHeader()->hide();
    view.verticalHeader()->setSectionResizeMode(QHeaderView::Fixed);
    view.verticalHeader()->setDefaultSectionSize(ROW_HEIGHT);
    view.resize(880, 650);
    view.show();
    QCoreApplication::processEvents();
}

class TrivialModel : public QAbstractTableModel {
  public:
    int rows = 0;
    void fill(int count) {
        beginResetModel();
        rows = count;
        endResetModel();
    }
    [[nodiscard]] int rowCount(const QModelIndex& parent) const override {
        return parent.isValid() ? 0 : rows;
    }
    [[nodiscard]] int columnCount(const QModelIndex& parent) const override {
        return parent.isValid() ? 0 : 2;
    }
    [[nodiscard]] QVariant data(const QModelIndex& index, int role) const override {
        return role == Qt::DisplayRole ? QVariant(index.row()) : QVariant();
    }
};

void listOfAYear(benchmark::State& state) {
    DataListModel model({});
    model.setColumns({{"Zeit", "st"}, {"Wert", "s0"}});
    QTableView view;
    view.setModel(&model);
    setUp(view);
    std::vector<IntervalValue> rows;
    for (const double value : yearOfMinutes(50, 40)) {
        rows.push_back({43466 + static_cast<double>(rows.size()) / MINUTES_PER_DAY, value});
    }
    for (auto _ : state) {
        afterPainting(state);
        model.clear();
        model.expect(rows.size());
        std::ranges::copy(rows, model.room(rows.size()).begin());
        model.added(rows.size());
        model.show();
        QCoreApplication::processEvents();
    }
}
BENCHMARK(listOfAYear)->Unit(benchmark::kMillisecond);

void bareListOfAYear(benchmark::State& state) {
    TrivialModel model;
    QTableView view;
    view.setModel(&model);
    setUp(view);
    for (auto _ : state) {
        cleanVectorRegisters();
        model.fill(0);
        model.fill(static_cast<int>(YEAR));
        QCoreApplication::processEvents();
    }
}
BENCHMARK(bareListOfAYear)->Unit(benchmark::kMillisecond);

const bool RATIOS =
    addRatio({"list of a year of minutes, beside a bare view", "listOfAYear", {"bareListOfAYear"}});

} // namespace

} // namespace kelvrum::bench
