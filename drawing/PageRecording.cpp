// SPDX-License-Identifier: GPL-3.0-or-later
#include "drawing/PageRecording.h"

#include "drawing/ShapedText.h"

#include <QFont>
#include <QFontMetrics>
#include <QString>
#include <map>

namespace kelvrum {

namespace {

/// Measures with the toolkit, and numbers and times without it.
class PageMeter final : public TextMeter {
  public:
    explicit PageMeter(double dotsPerPoint)
        : dotsPerPoint_(dotsPerPoint) {}

    void setFont(const Font& font) override {
        font_ = surfaceFont(font, dotsPerPoint_);
        auto& known = shaped_[font_.toString()];
        if (!known) {
            known = std::make_unique<ShapedText>(font_);
        }
        shapedNow_ = known.get();
    }
    Extent extent(std::string_view text) override {
        if (ShapedText::covers(text)) {
            return {qRound(shapedNow_->width(text)), shapedNow_->height()};
        }
        const QFontMetrics metrics(font_);
        return {
            metrics.horizontalAdvance(QString::fromUtf8(text.data(), static_cast<qsizetype>(text.size()))),
            metrics.height()};
    }

  private:
    double dotsPerPoint_;
    QFont font_;
    std::map<QString, std::unique_ptr<ShapedText>> shaped_; // by font
    ShapedText* shapedNow_ = nullptr;                       // of the current font
};

} // namespace

std::unique_ptr<RecordingSurface> pageRecording(Extent size, const Resolution& resolution) {
    return std::make_unique<RecordingSurface>(size, resolution.scale,
                                              std::make_unique<PageMeter>(resolution.dotsPerPoint));
}

} // namespace kelvrum
