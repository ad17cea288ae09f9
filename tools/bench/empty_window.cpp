// An empty main window: shown, painted, ended.
#include "tools/bench/FirstWindow.h"

#include <QApplication>
#include <QMainWindow>

int main(int argc, char* argv[]) {
    const QApplication application(argc, argv);
    QMainWindow window;
    window.resize(1000, 700);
    window.show();
    return kelvrum::bench::paintAndEnd();
}
