// SPDX-License-Identifier: GPL-3.0-or-later
// One print job: its pages are collected, made into a document and sent to the printer as a whole.
#pragma once

#include "drawing/PageArea.h"
#include "drawing/Surface.h"

#include <QPageLayout>
#include <QString>
#include <cstddef>
#include <functional>
#include <memory>
#include <optional>
#include <stdexcept>
#include <vector>

class QPrinter;

namespace kelvrum {

class DocumentFile;
class RecordingSurface;

/// Printing failed; what() is a German sentence for the user.
class PrintError : public std::runtime_error {
  public:
    using std::runtime_error::runtime_error;
};

/// The user has cancelled the job. A job that was already in the queue is cancelled there; pages that were
/// printed by then stay.
class PrintCancelled : public std::runtime_error {
  public:
    PrintCancelled()
        : std::runtime_error("Der Druck wurde abgebrochen.") {}
};

/// How far a job is.
struct PrintProgress {
    enum class Stage { asking, making, sending }; // the print system, pages, the document
    Stage stage = Stage::asking;
    std::size_t done = 0;  // pages
    std::size_t total = 0; // of all pages
};

/// Where the last job went.
struct PrintReceipt {
    std::size_t pages = 0;
    QString place; // "auf dem Drucker „X“" or "in die Datei „Y“"
};

/// The printer session. Nothing reaches the printer before `end`, so an abandoned job leaves nothing
/// behind. The printer and its settings are kept from one job to the next; the printer dialog's file output
/// (PDF) counts as a printer.
class PrintJob {
  public:
    /// Called after each page that is made, and about every 20 ms while the print system is awaited; events
    /// may run in it. False cancels the job.
    using Step = std::function<bool(const PrintProgress&)>;
    /// Draws one of many pages, which count from 0.
    using DrawPage = std::function<void(std::size_t page, Surface& surface)>;

    PrintJob();
    PrintJob(const PrintJob&) = delete;
    PrintJob& operator=(const PrintJob&) = delete;
    ~PrintJob();

    /// A weak reference to the job, for objects that may outlive it.
    [[nodiscard]] std::weak_ptr<PrintJob> watched() const { return self_; }

    void setStep(Step step) { step_ = std::move(step); }

    /// Whether there is something to print on: the system has a printer and the current one a name, or file
    /// output is chosen. Asks the system anew each time. Another printer takes the place of one that is gone;
    /// throws PrintError once when the user had chosen that one, and when the print system does not answer;
    /// PrintCancelled when the step ends the wait.
    [[nodiscard]] bool hasPrinter();

    /// Throws PrintError when the print system does not answer within a second, PrintCancelled when the step
    /// ends the wait. Do not use the printer then: the toolkit would wait a minute for each answer.
    void requireAnswer();

    /// The printer with its settings.
    QPrinter& printer();

    /// Runs the printer set-up dialog, applies its changes and returns whether the user accepted. Margins
    /// apply only if the user has set them; the toolkit's default margins are ignored. If the print system
    /// stops answering, closes the dialog, changes nothing and throws PrintError.
    bool setUp(const std::function<bool(QPrinter&)>& dialog);

    /// Whether the next job goes into a file whose name is not known yet: the name that the set-up dialog
    /// returned is used for one job.
    [[nodiscard]] bool needsFile();
    /// A name for that file, to be offered to the user, and the name that the user has chosen.
    [[nodiscard]] QString proposedFile();
    void setFile(const QString& path) { file_ = path; }

    /// The next job's name in the queue.
    void setName(const std::string& name) { name_ = QString::fromStdString(name); }

    /// Whether pages are waiting.
    [[nodiscard]] bool isOpen() const { return !sheets_.empty(); }

    /// Opens the job if it is not open, and starts a page. Its units are millimetres, its size is what the
    /// printer can print on, or what lies within the user's margins. Throws like hasPrinter, and PrintError
    /// without a printer. The page lives until the job ends or is abandoned.
    Surface& newPage(QPageLayout::Orientation orientation);

    /// Adds pages which are not drawn before `end`, and then one by one; `draw` must be usable until then.
    void addPages(std::size_t count, QPageLayout::Orientation orientation, DrawPage draw);

    /// A page to measure on, which belongs to no job.
    [[nodiscard]] std::unique_ptr<Surface> trialPage(QPageLayout::Orientation orientation);

    /// Sends the pages as one job, waits for its outcome and closes it. Throws PrintError when the document
    /// cannot be written, or when the print system is gone, refuses the job or cannot print it, and
    /// PrintCancelled; the job is closed all the same.
    void end();

    /// Drops the pages and the file's name, and closes the job.
    void abandon();

    /// Pages and destination of the last job that was ended; the destination is empty when that failed.
    [[nodiscard]] const PrintReceipt& receipt() const { return receipt_; }

  private:
    /// Pages of one area.
    struct Sheets {
        PageArea area;
        std::size_t count;
        DrawPage play;
    };

    [[nodiscard]] bool printsToFile();
    [[nodiscard]] PageArea areaOf(QPageLayout::Orientation orientation);
    void open();
    template<typename Call>
    auto askToolkit(Call call);
    void makePrinter();
    void leavePrinter();
    [[nodiscard]] std::unique_ptr<RecordingSurface> recording(Extent size);
    void step(const PrintProgress& progress) const;
    void make(const std::vector<Sheets>& sheets, DocumentFile& document);
    void send(const DocumentFile& document, QPageLayout::Orientation orientation, std::size_t pages);
    void sendByToolkit(const std::vector<Sheets>& sheets);

    std::shared_ptr<PrintJob> self_{this, [](PrintJob*) {}}; // owns nothing: it ends with the job
    std::unique_ptr<QPrinter> printer_;                      // made when it is first needed
    bool isChosen_ = false;                                  // by the user
    std::optional<QMarginsF> margins_;                       // set by the user, in millimetres
    QString dialogFile_;                                     // that the printer was last seen with
    QString file_;                                           // of the next job; empty: not known yet
    QString lastFile_;
    QString name_;
    Step step_;
    std::vector<Sheets> sheets_;
    PrintReceipt receipt_;
};

} // namespace kelvrum
