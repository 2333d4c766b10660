#pragma once

#include <array>

#include "ui/setting_dialog.h"

class QLabel;
class QSpinBox;

namespace kirameki {

// "BackColor / Light Volume": the colour behind the stone and the volumes of the main, back
// and fill lights in percent.
class BackColorLightDialog : public SettingDialog {
    Q_OBJECT

  public:
    BackColorLightDialog(const AppSettings& settings, Prompter& prompter,
                         QWidget* parent = nullptr);

  protected:
    bool Store(AppSettings& settings) override;
    void RestoreDefaults() override;

  private:
    void Show(const AppSettings& settings);
    void ShowSwatch();
    void PickColour();

    std::array<QSpinBox*, 3> colour_{};  // red, green, blue
    std::array<QSpinBox*, 3> volume_{};  // main, back, fill
    QLabel* swatch_ = nullptr;
};

}  // namespace kirameki
