// The list of a year of minutes, filled and shown, beside a bare table view on a trivial model.
#include "Ratios.h"
#include "Year.h"
#include "app/DataListModel.h"
#include "util/DateTime.h"

#include <QApplication>
#include <QHeaderView>
#include <QTableView>

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
    const auto values = yearOfMinutes(50, 40);
    for (auto _ : state) {
        model.clear();
        for (std::size_t i = 0; i < values.size(); ++i) {
            model.append(43466 + static_cast<double>(i) / MINUTES_PER_DAY, values[i]);
        }
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
