// One print job: its pages are collected and sent to the printer together.
#pragma once

#include "diagram/Surface.h"

#include <QPageLayout>
#include <memory>
#include <stdexcept>
#include <vector>

class QPrinter;

namespace kelvrum {

class PagePicture;

/// Printing failed; what() is a German sentence for the user.
class PrintError : public std::runtime_error {
  public:
    using std::runtime_error::runtime_error;
};

/// The printer session. Nothing reaches the printer before `end`, so that an abandoned job leaves nothing
/// behind. The printer and its settings are kept from one job to the next.
class PrintJob {
  public:
    PrintJob();
    PrintJob(const PrintJob&) = delete;
    PrintJob& operator=(const PrintJob&) = delete;
    ~PrintJob();

    /// Whether the system has a printer and the current one a name. Asks the system anew each time.
    [[nodiscard]] bool hasPrinter();

    /// The printer with its settings, for the printer set-up dialog.
    QPrinter& printer();

    /// Whether pages are waiting.
    [[nodiscard]] bool isOpen() const { return !pages_.empty(); }

    /// Opens the job when it is not open, and starts a page. Its units are millimetres, its size is the whole
    /// paper. Throws PrintError without a printer. The page lives until the job ends or is abandoned.
    Surface& newPage(QPageLayout::Orientation orientation);

    /// Sends the pages as one job and closes it. Throws PrintError when the printer is gone or cannot be
    /// opened; the job is closed all the same. A queue that is there but refuses the job does so unseen: the
    /// toolkit does not tell.
    void end();

    /// Drops the pages and closes the job.
    void abandon();

  private:
    struct Page;

    /// The printer turned as the user has it, not as the job needed it.
    void restoreOrientation();
    /// Draws the pages on the printer; false when it fails, and then it has got none of them.
    bool send(const std::vector<std::unique_ptr<Page>>& pages);

    std::unique_ptr<QPrinter> printer_; // made when it is first needed
    std::vector<std::unique_ptr<Page>> pages_;
    QPageLayout::Orientation chosen_ = QPageLayout::Portrait; // before the job was opened
};

} // namespace kelvrum
