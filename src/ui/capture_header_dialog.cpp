#include "ui/capture_header_dialog.h"

#include <QGridLayout>
#include <QGroupBox>
#include <QLabel>
#include <QSpinBox>
#include <QVBoxLayout>

namespace kirameki {

CaptureHeaderDialog::CaptureHeaderDialog(const AppSettings& settings, Prompter& prompter,
                                         QWidget* parent)
    : SettingDialog(settings, prompter, parent) {
    setObjectName("HeaderSettingWnd");
    setWindowTitle(tr("New Automatic Screen Capture"));
    auto* group = new QGroupBox(tr("Capture Info File Setting"), this);
    auto* grid = new QGridLayout(group);
    frames_ = new QSpinBox(this);
    frames_->setObjectName("frames");
    frames_->setRange(1, 100000);
    frames_->setAlignment(Qt::AlignRight);
    frames_->setMinimumWidth(100);
    auto* caption = new QLabel(tr("Number of Frames"), this);
    caption->setBuddy(frames_);
    grid->addWidget(caption, 0, 0);
    grid->addWidget(frames_, 0, 1);
    grid->addWidget(new QLabel(tr("Frames"), this), 0, 2);
    auto* range = new QLabel(this);  // empty until the box refuses a keystroke
    range->setObjectName("framesRange");
    grid->addWidget(range, 0, 3);
    ExplainRefusals(frames_, range, 1, 100000);
    grid->setColumnStretch(3, 1);
    grid->addWidget(new QLabel(tr("Larger the number gets, More fluent the motion becomes."), this),
                    1, 0, 1, 4);
    grid->addWidget(new QLabel(tr("( Default = 128 )"), this), 2, 0, 1, 4);
    grid->setRowMinimumHeight(3, 8);
    grid->addWidget(
        new QLabel(tr("These frames collectively compose the motion of a full rotation."), this), 4,
        0, 1, 4);
    auto* body = new QVBoxLayout;
    body->addWidget(group);
    FinishLayout(body);
    frames_->setValue(settings.captureFrames);
}

bool CaptureHeaderDialog::Store(AppSettings& s) {
    s.captureFrames = frames_->value();
    return true;
}

void CaptureHeaderDialog::RestoreDefaults() {
    frames_->setValue(Defaults().captureFrames);
}

}  // namespace kirameki
