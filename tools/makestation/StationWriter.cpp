// SPDX-License-Identifier: GPL-3.0-or-later
#include "tools/makestation/StationWriter.h"

#include "tools/makestation/ChannelWriter.h"
#include "tools/makestation/DayWriter.h"
#include "tools/makestation/FileWriting.h"
#include "tools/makestation/IniWriter.h"
#include "tools/makestation/VarnixWriter.h"

namespace kelvrum::sample {

namespace {

template<typename Writer>
void writeMinutes(const StationPlan& plan, Writer writer) {
    SampleStation station(plan);
    while (const auto record = station.next()) {
        writer.put(*record);
    }
    writer.finish();
}

} // namespace

void writeStation(const std::filesystem::path& folder, const StationPlan& plan) {
    makeFolder(folder);
    if (plan.form == StationForm::ini) {
        makeFolder(folder / "Data");
        writeMinutes(plan, ChannelWriter(folder / "Data"));
        writeFile(folder / "faktoren.cfg", "");
        writeFile(folder / "QEL.ini", iniText(plan));
    } else {
        writeMinutes(plan, DayWriter(folder, plan));
        writeFile(folder / "VARNIX.CFG", varnixRecord(plan.form == StationForm::wide));
    }
}

} // namespace kelvrum::sample
