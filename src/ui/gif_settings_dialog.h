#pragma once

#include "ui/setting_dialog.h"

class QCheckBox;
class QRadioButton;
class QSpinBox;

namespace kirameki {

// "Make Animated-GIF": the delay of each frame in hundredths of a second and the direction in
// which the frames are played.
class GifSettingsDialog : public SettingDialog {
    Q_OBJECT

  public:
    GifSettingsDialog(const AppSettings& settings, Prompter& prompter, QWidget* parent = nullptr);

    // For an animated WebP: -1 lossless, else the quality 0..100.
    int WebPQuality() const;

  protected:
    bool Store(AppSettings& settings) override;
    void RestoreDefaults() override;

  private:
    void Show(int timeWeight, int direction);

    QSpinBox* timeWeight_ = nullptr;
    QRadioButton* anticlockwise_ = nullptr;
    QRadioButton* clockwise_ = nullptr;
    QCheckBox* lossless_ = nullptr;
    QSpinBox* webpQuality_ = nullptr;
};

}  // namespace kirameki
