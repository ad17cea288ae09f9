// SPDX-License-Identifier: GPL-3.0-or-later
#include "drawing/QueueOptions.h"

#include <QPrinter>
#include <QStringList>
#include <algorithm>

namespace kelvrum {

namespace {

using Options = std::vector<std::pair<std::string, std::string>>;

std::string sidesOf(QPrinter::DuplexMode duplex, QPageLayout::Orientation orientation) {
    switch (duplex) {
    case QPrinter::DuplexLongSide:
        return "two-sided-long-edge";
    case QPrinter::DuplexShortSide:
        return "two-sided-short-edge";
    case QPrinter::DuplexAuto:
        return orientation == QPageLayout::Portrait ? "two-sided-long-edge" : "two-sided-short-edge";
    default:
        return "one-sided";
    }
}

/// The queue's name for a source of paper; empty when the queue is to choose.
std::string sourceName(QPrinter::PaperSource source) {
    struct Source {
        QPrinter::PaperSource source;
        const char* name;
    };
    static constexpr Source SOURCES[] = {
        {QPrinter::Upper, "Upper"},
        {QPrinter::Lower, "Lower"},
        {QPrinter::Middle, "Middle"},
        {QPrinter::Manual, "ManualFeed"},
        {QPrinter::Envelope, "Envelope"},
        {QPrinter::EnvelopeManual, "EnvelopeManual"},
        {QPrinter::Tractor, "Tractor"},
        {QPrinter::SmallFormat, "SmallFormat"},
        {QPrinter::LargeFormat, "LargeFormat"},
        {QPrinter::LargeCapacity, "LargeCapacity"},
        {QPrinter::Cassette, "Cassette"},
    };
    const auto* found = std::find_if(std::begin(SOURCES), std::end(SOURCES),
                                     [source](const Source& known) { return known.source == source; });
    return found != std::end(SOURCES) ? found->name : "";
}

/// A later value for a name takes the place of an earlier one.
void set(Options& options, const std::string& name, const std::string& value) {
    const auto found = std::find_if(options.begin(), options.end(),
                                    [&name](const auto& option) { return option.first == name; });
    if (found != options.end()) {
        found->second = value;
    } else {
        options.emplace_back(name, value);
    }
}

} // namespace

Options queueOptions(QPrinter& printer, QPageLayout::Orientation orientation) {
    Options options;
    set(options, "media", printer.pageLayout().pageSize().key().toStdString());
    if (printer.copyCount() > 1) {
        set(options, "copies", std::to_string(printer.copyCount()));
        set(options, "Collate", printer.collateCopies() ? "True" : "False");
    }
    set(options, "sides", sidesOf(printer.duplex(), orientation));
    set(options, "print-color-mode", printer.colorMode() == QPrinter::GrayScale ? "monochrome" : "color");
    if (const std::string source = sourceName(printer.paperSource()); !source.empty()) {
        set(options, "InputSlot", source);
    }
    if (orientation == QPageLayout::Landscape) {
        set(options, "landscape", "");
    }
    const QStringList chosen = printer.printEngine()->property(DIALOG_OPTIONS).toStringList();
    for (qsizetype i = 0; i + 1 < chosen.size(); i += 2) {
        set(options, chosen[i].toStdString(), chosen[i + 1].toStdString());
    }
    return options;
}

} // namespace kelvrum
