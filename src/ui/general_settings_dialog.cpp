#include "ui/general_settings_dialog.h"

#include <QCheckBox>
#include <QGridLayout>
#include <QGroupBox>
#include <QHBoxLayout>
#include <QLabel>
#include <QSpinBox>
#include <QVBoxLayout>
#include <algorithm>

namespace kirameki {

GeneralSettingsDialog::GeneralSettingsDialog(const AppSettings& settings, Prompter& prompter,
                                             QWidget* parent)
    : SettingDialog(settings, prompter, parent),
      imageSize_(std::clamp(settings.imageSize, 32, 512)) {
    setObjectName("SettingWnd");
    setWindowTitle(tr("General Settings"));

    auto* tracing = new QGroupBox(tr("Ray-Tracing"), this);
    auto* tracingGrid = new QGridLayout(tracing);
    depth_ = AddNumberRow(tracingGrid, 0, "depth", tr("Depth Of Recursive Calculation (Max=20)"), 1,
                          20, QString(), false);
    fire_ = new QCheckBox(tr("Fire"), this);
    fire_->setObjectName("fire");
    tracingGrid->addWidget(fire_, 1, 0, 1, 4);
    narrowLight_ =
        new QCheckBox(tr("Use ") + tr("Narrow") + tr(" Main Light ( Smaller High-Light )"), this);
    narrowLight_->setObjectName("narrowLight");
    tracingGrid->addWidget(narrowLight_, 2, 0, 1, 4);

    auto* shots = new QGroupBox(tr("Screen Shot"), this);
    auto* shotsLayout = new QVBoxLayout(shots);
    positionInfo_ = new QCheckBox(tr("Position-Info File"), this);
    positionInfo_->setObjectName("positionInfo");
    shotsLayout->addWidget(positionInfo_);
    auto* shotsHint = new QLabel(tr("Saves the model's position beside each screen shot."), this);
    shotsLayout->addWidget(shotsHint);

    auto* view = new QGroupBox(tr("View Panel"), this);
    auto* viewGrid = new QGridLayout(view);
    rotationSpeed_ = AddNumberRow(viewGrid, 0, "rotationSpeed", tr("Rotation Wait Per Step"), 0,
                                  500, tr(" ms"), true);
    AddHint(viewGrid, 1, tr("Smaller this value gets, Faster the model turns. ( Default = 50 )"));
    targetPicture_ = new QCheckBox(tr("Show View-Point Target Picture"), this);
    targetPicture_->setObjectName("targetPicture");
    viewGrid->addWidget(targetPicture_, 2, 0, 1, 4);
    rowByRow_ = new QCheckBox(tr("Show Picture Row By Row While Rendering"), this);
    rowByRow_->setObjectName("rowByRow");
    viewGrid->addWidget(rowByRow_, 3, 0, 1, 4);

    auto* trim = new QGroupBox(tr("Trimming"), this);
    auto* trimGrid = new QGridLayout(trim);
    trimming_ = new QCheckBox(tr("Trim Rendered Picture"), this);
    trimming_->setObjectName("trimming");
    trimGrid->addWidget(trimming_, 0, 0, 1, 4);
    const std::array<const char*, 4> names = {"trimTop", "trimBottom", "trimLeft", "trimRight"};
    const std::array<QString, 4> captions = {tr("Top"), tr("Bottom"), tr("Left"), tr("Right")};
    for (int i = 0; i < 4; ++i) {
        margins_[i] = AddNumberRow(trimGrid, i + 1, names[i], captions[i], 0, imageSize_ - 1,
                                   tr(" px"), false);
        connect(trimming_, &QCheckBox::toggled, margins_[i], &QWidget::setEnabled);
    }
    AddHint(trimGrid, 5, tr("( Default : All 0 )"));
    trimmingFrame_ = new QCheckBox(tr("Show Trimming Frame In View Panel"), this);
    trimmingFrame_->setObjectName("trimmingFrame");
    trimGrid->addWidget(trimmingFrame_, 6, 0, 1, 4);
    trimGrid->setColumnStretch(1, 1);

    auto* left = new QVBoxLayout;
    left->addWidget(tracing);
    left->addWidget(shots);
    left->addWidget(view);
    left->addStretch(1);
    auto* right = new QVBoxLayout;
    right->addWidget(trim);
    right->addStretch(1);
    auto* body = new QHBoxLayout;
    body->addLayout(left);
    body->addLayout(right);
    FinishLayout(body);
    Show(settings);
}

void GeneralSettingsDialog::Show(const AppSettings& s) {
    depth_->setValue(s.recursionDepth);
    fire_->setChecked(s.fire != 0);
    narrowLight_->setChecked(s.narrowMainLight != 0);
    positionInfo_->setChecked(s.writePositionInfo != 0);
    trimming_->setChecked(s.trim.on != 0);
    for (int i = 0; i < 4; ++i) {
        margins_[i]->setValue(s.trim.Margins()[std::size_t(i)]);
        margins_[i]->setEnabled(s.trim.on != 0);
    }
    trimmingFrame_->setChecked(s.showTrimmingFrame != 0);
    rotationSpeed_->setValue(s.rotationSpeed);
    targetPicture_->setChecked(s.targetPicture != 0);
    rowByRow_->setChecked(s.rowByRow != 0);
}

bool GeneralSettingsDialog::Store(AppSettings& s) {
    const int top = margins_[0]->value(), bottom = margins_[1]->value();
    const int left = margins_[2]->value(), right = margins_[3]->value();
    if (trimming_->isChecked() && (top + bottom >= imageSize_ || left + right >= imageSize_)) {
        prompter_.Tell(kTrimmingTooLarge, true);
        return false;
    }
    s.recursionDepth = depth_->value();
    s.fire = fire_->isChecked() ? 1 : 0;
    s.narrowMainLight = narrowLight_->isChecked() ? 1 : 0;
    s.writePositionInfo = positionInfo_->isChecked() ? 1 : 0;
    s.trim.top = top;
    s.trim.bottom = bottom;
    s.trim.left = left;
    s.trim.right = right;
    s.trim.on = trimming_->isChecked() ? 1 : 0;
    s.showTrimmingFrame = trimmingFrame_->isChecked() ? 1 : 0;
    s.rotationSpeed = rotationSpeed_->value();
    s.targetPicture = targetPicture_->isChecked() ? 1 : 0;
    s.rowByRow = rowByRow_->isChecked() ? 1 : 0;
    return true;
}

void GeneralSettingsDialog::RestoreDefaults() {
    if (prompter_.AskYesNo(kRestoreDefaultsQuestion, DefaultAnswer::kYes))
        Show(Defaults());
}

}  // namespace kirameki
