// SPDX-License-Identifier: GPL-3.0-or-later
#include "drawing/PrintFate.h"

#include "drawing/PrintJob.h"

namespace kelvrum {

namespace {

constexpr const char* NO_PRINTER =
    "Der Drucker ist nicht erreichbar. Bitte prüfen Sie, ob er eingeschaltet und eingerichtet ist.";
constexpr const char* NO_ANSWER =
    "Das Drucksystem antwortet nicht. Bitte versuchen Sie es später noch einmal.";
constexpr const char* ACCEPTED_ONLY =
    "Der Druckauftrag wurde angenommen, aber das Drucksystem antwortet nicht mehr. Bitte prüfen Sie, ob er "
    "gedruckt wird, bevor Sie noch einmal drucken.";

/// The message of the print system, to append to a statement.
QString afterColon(const QueueAnswer& answer) {
    return answer.words.empty() ? QString() : QStringLiteral(": ") + QString::fromStdString(answer.words);
}

} // namespace

void throwError(const QString& text) { throw PrintError(text.toStdString()); }

void throwNoPrinter() { throw PrintError(NO_PRINTER); }

void throwNoAnswer() { throw PrintError(NO_ANSWER); }

void checkFate(const QueueAnswer& answer, const QString& printer) {
    using Fate = QueueAnswer::Fate;
    const QString words = afterColon(answer);
    switch (answer.fate) {
    case Fate::printed:
    case Fate::accepted:
        return;
    case Fate::withdrawn:
        throw PrintCancelled();
    case Fate::unreachable:
        throw PrintError(answer.number > 0 ? ACCEPTED_ONLY : NO_PRINTER);
    case Fate::silent:
        throw PrintError(answer.number > 0 ? ACCEPTED_ONLY : NO_ANSWER);
    case Fate::refused:
        throwError(QStringLiteral("Der Druckauftrag wurde vom Drucker „%1“ nicht angenommen%2\n"
                                  "Bitte prüfen Sie den Drucker und drucken Sie noch einmal.")
                       .arg(printer, words.isEmpty() ? QStringLiteral(".") : words));
    case Fate::cancelled:
        throwError(QStringLiteral("Der Druckauftrag wurde auf dem Drucker „%1“ abgebrochen%2")
                       .arg(printer, words.isEmpty() ? QStringLiteral(".") : words));
    case Fate::halted:
        throwError(QStringLiteral("Der Druckauftrag wurde auf dem Drucker „%1“ angehalten%2\n"
                                  "Bitte prüfen Sie den Drucker und drucken Sie noch einmal.")
                       .arg(printer, words.isEmpty() ? QStringLiteral(".") : words));
    case Fate::stopped:
        throwError(QStringLiteral("Der Drucker „%1“ ist angehalten%2\n"
                                  "Der Auftrag wartet und wird gedruckt, sobald der Drucker wieder läuft.")
                       .arg(printer, words.isEmpty() ? QStringLiteral(".") : words));
    }
}

} // namespace kelvrum
