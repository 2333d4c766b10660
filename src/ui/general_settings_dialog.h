#pragma once

#include <array>

#include "ui/setting_dialog.h"

class QCheckBox;
class QSpinBox;

namespace kirameki {

// "General Settings": ray-tracing depth and fire, the narrow main light, the Position-Info
// file of screen shots, trimming, the turning speed of the surface model and display options.
//
// showTrimmingFrame is "Show Trimming Frame In View Panel" (the green outline of the trimmed
// picture drawn over the surface model); rowByRow is "Show Picture Row By Row While Rendering" (the
// view follows the tracer row by row instead of showing the picture when it is finished).
// The trimming margins must leave at least one pixel of the picture at the current size.
class GeneralSettingsDialog : public SettingDialog {
    Q_OBJECT

  public:
    GeneralSettingsDialog(const AppSettings& settings, Prompter& prompter,
                          QWidget* parent = nullptr);

  protected:
    bool Store(AppSettings& settings) override;
    void RestoreDefaults() override;

  private:
    void Show(const AppSettings& settings);

    int imageSize_;
    QSpinBox* depth_ = nullptr;
    QCheckBox* fire_ = nullptr;
    QCheckBox* narrowLight_ = nullptr;
    QCheckBox* positionInfo_ = nullptr;
    QCheckBox* trimming_ = nullptr;
    std::array<QSpinBox*, 4> margins_{};  // top, bottom, left, right
    QCheckBox* trimmingFrame_ = nullptr;
    QSpinBox* rotationSpeed_ = nullptr;
    QCheckBox* targetPicture_ = nullptr;
    QCheckBox* rowByRow_ = nullptr;
};

inline constexpr const char* kTrimmingTooLarge = QT_TRANSLATE_NOOP(
    "Messages",
    "The trimming margins leave no picture.\n\nTop + Bottom and Left + Right must each be "
    "smaller than the image size.");

}  // namespace kirameki
