// SPDX-License-Identifier: GPL-3.0-or-later
// Opening projects: at the start, by the file dialog, by the project selection window.
#include "app/ChannelChoice.h"
#include "app/DataListModel.h"
#include "app/RangeActions.h"
#include "app/SecondChannel.h"
#include "app/ViewArea.h"
#include "app/f.h"
#include "config/ChannelList.h"
#include "config/ConfigForms.h"
#include "config/DataFolder.h"
#include "config/Form1.h"
#include "config/ReadConf.h"
#include "diagram/PolarSys.h"
#include "util/Paths.h"

#include <utility>

namespace kelvrum {

namespace {

/// Whether the station was read from a file; after a start without one it is empty.
bool isOpen(const StationConfig& station) {
    return station.Kind != ConfigKind::none &&
           fileExists(station.BaseFolder + std::string(formOf(station).fileName));
}

} // namespace

void f::readConf(std::string_view ConfFile) {
    if (auto station = kelvrum::readConf(ConfFile, environment_.open)) {
        adoptStation(std::move(*station));
        batchFolder_ = formOf(station_).hasBatchFolder ? batchFolder(ConfFile) : std::string();
    }
}

void f::adoptStation(StationConfig station) {
    loader_.startOver(); // a load of the old project must not end up in the new one
    station_ = std::move(station);
    channelShown_ = 0;
    kinds_.clear();
    second_->hide();
    second_->fill(listedChannels(station_));
    ranges_->clear();
    view_->rows().setColumns(listColumns(station_));
    selChan->fill(listedChannels(station_));
    setCaption();
}

std::string f::projectFolder() const {
    return station_.Kind == ConfigKind::none ? environment_.programFolder.toStdString() : station_.BaseFolder;
}

void f::OpenFile() {
    loader_.whenIdle("menOpen", [this] { chooseConfFile(); });
}

void f::chooseConfFile() {
    const auto text = [](std::string_view view) {
        return QString::fromUtf8(view.data(), static_cast<qsizetype>(view.size()));
    };
    std::vector<FileFilter> filters;
    for (const ConfigForm& form : configForms()) {
        filters.push_back({text(form.description), text(form.fileName)});
    }
    const QString start = QString::fromStdString(nativeText(withSeparator(projectFolder())));
    const QString file =
        environment_.dialogs->chooseFile(this, QStringLiteral("Datei öffnen ..."), start, filters);
    if (!file.isEmpty()) {
        readConf(file.toStdString());
    }
    LoadData();
}

void f::showProjects() {
    loader_.whenIdle("menProj", [this] { chooseProject(); });
}

void f::chooseProject() {
    const std::string search = isOpen(station_) ? folderAround(station_.BaseFolder) : projectFolder();
    Form1::Owner owner;
    owner.openProject = [this](const std::string& folder) {
        adoptStation(readProjectFolder(folder, environment_.open));
        view_->diagram().setHeadLine(station_.Title);
        view_->diagram().setHeadLine2(station_.Subtitle);
        LoadData();
    };
    owner.forgetFactors = [this] {
        lastWindFactor_ = 0;
        lastDustFactor_ = 0;
    };
    Form1 window(search, owner, environment_.open, *environment_.dialogs, this);
    window.readDirs();
    window.exec();
}

void f::setCaption() {
    setWindowTitle(QStringLiteral("Kelvrum - Station ") + QString::fromStdString(station_.Title));
}

} // namespace kelvrum
