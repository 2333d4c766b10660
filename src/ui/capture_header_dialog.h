#pragma once

#include "ui/setting_dialog.h"

class QSpinBox;

namespace kirameki {

// "New Automatic Screen Capture": the number of frames of one full rotation.
class CaptureHeaderDialog : public SettingDialog {
    Q_OBJECT

  public:
    CaptureHeaderDialog(const AppSettings& settings, Prompter& prompter, QWidget* parent = nullptr);

  protected:
    bool Store(AppSettings& settings) override;
    // Puts the default count into the box without asking.
    void RestoreDefaults() override;

  private:
    QSpinBox* frames_ = nullptr;
};

}  // namespace kirameki
