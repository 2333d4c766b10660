#pragma once

#include "ui/setting_dialog.h"

class QCheckBox;
class QSpinBox;

namespace kirameki {

// "Size": the size of the rendered square picture and whether it is rendered in the separate
// render window.
class SizeDialog : public SettingDialog {
    Q_OBJECT

  public:
    SizeDialog(const AppSettings& settings, Prompter& prompter, QWidget* parent = nullptr);

  protected:
    bool Store(AppSettings& settings) override;
    void RestoreDefaults() override;

  private:
    void Show(const AppSettings& settings);

    QSpinBox* size_ = nullptr;
    QCheckBox* renderWindow_ = nullptr;
};

}  // namespace kirameki
