#include "ui/size_dialog.h"

#include <QCheckBox>
#include <QGridLayout>
#include <QGroupBox>
#include <QSpinBox>
#include <QVBoxLayout>

namespace kirameki {

SizeDialog::SizeDialog(const AppSettings& settings, Prompter& prompter, QWidget* parent)
    : SettingDialog(settings, prompter, parent) {
    setObjectName("SizeSettingWnd");
    setWindowTitle(tr("Size"));
    auto* group = new QGroupBox(tr("Rendered Image Size"), this);
    auto* grid = new QGridLayout(group);
    size_ = AddNumberRow(grid, 0, "size", tr("Width = Height"), 32, 512, tr(" px"), true);
    AddHint(grid, 1, tr("( Default = 270 )"));
    renderWindow_ = new QCheckBox(tr("-> Render Window"), this);
    renderWindow_->setObjectName("renderWindow");
    grid->addWidget(renderWindow_, 2, 0, 1, 4);
    AddHint(grid, 3, tr("Render in a separate window at this size."));
    auto* body = new QVBoxLayout;
    body->addWidget(group);
    FinishLayout(body);
    Show(settings);
}

void SizeDialog::Show(const AppSettings& s) {
    size_->setValue(s.imageSize);
    renderWindow_->setChecked(s.separateRenderWindow != 0);
}

bool SizeDialog::Store(AppSettings& s) {
    s.imageSize = size_->value();
    s.separateRenderWindow = renderWindow_->isChecked() ? 1 : 0;
    return true;
}

void SizeDialog::RestoreDefaults() {
    if (prompter_.AskYesNo(kRestoreDefaultsQuestion, DefaultAnswer::kYes))
        Show(Defaults());
}

}  // namespace kirameki
