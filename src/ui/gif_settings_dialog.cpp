#include "ui/gif_settings_dialog.h"

#include <QCheckBox>
#include <QGridLayout>
#include <QGroupBox>
#include <QHBoxLayout>
#include <QLabel>
#include <QRadioButton>
#include <QSpinBox>
#include <QVBoxLayout>

namespace kirameki {

GifSettingsDialog::GifSettingsDialog(const AppSettings& settings, Prompter& prompter,
                                     QWidget* parent)
    : SettingDialog(settings, prompter, parent) {
    setObjectName("GifAniFileSettingWnd");
    setWindowTitle(tr("Make Animated-GIF"));

    auto* weight = new QGroupBox(tr("Time-Weight Per Frame."), this);
    auto* grid = new QGridLayout(weight);
    timeWeight_ = new QSpinBox(this);
    timeWeight_->setObjectName("timeWeight");
    timeWeight_->setRange(0, 65535);
    timeWeight_->setAlignment(Qt::AlignRight);
    timeWeight_->setMinimumWidth(90);
    grid->addWidget(timeWeight_, 0, 0);
    grid->addWidget(new QLabel(tr("/ 100 second."), this), 0, 1);
    auto* range = new QLabel(this);  // empty until the box refuses a keystroke
    range->setObjectName("timeWeightRange");
    grid->addWidget(range, 0, 2);
    ExplainRefusals(timeWeight_, range, 0, 65535);
    // "100 make 1 second." reads under the box and its unit.
    auto* hundred = new QLabel(tr("100"), this);
    hundred->setAlignment(Qt::AlignRight | Qt::AlignVCenter);
    hundred->setIndent(timeWeight_->sizeHint().height() / 2 + 6);
    grid->addWidget(hundred, 1, 0);
    auto* second = new QLabel(tr(" make             1 second."), this);
    second->setTextFormat(Qt::PlainText);
    grid->addWidget(second, 1, 1);
    grid->setColumnStretch(2, 1);
    grid->setRowMinimumHeight(2, 6);
    grid->addWidget(new QLabel(tr("Smaller this value gets, Faster the motion flows."), this), 3, 0,
                    1, 3);

    auto* direction = new QGroupBox(tr("Direction Of Rotation"), this);
    auto* radios = new QVBoxLayout(direction);
    anticlockwise_ = new QRadioButton(tr("Anti Clockwise (&A)"), direction);
    anticlockwise_->setObjectName("anticlockwise");
    clockwise_ = new QRadioButton(tr("Clockwise (&C)"), direction);
    clockwise_->setObjectName("clockwise");
    radios->addWidget(anticlockwise_);
    radios->addWidget(clockwise_);

    // Used when the animation is saved as a WebP file; not kept in the settings file.
    auto* webp = new QGroupBox(tr("Animated WebP"), this);
    auto* webpRow = new QHBoxLayout(webp);
    lossless_ = new QCheckBox(tr("Lossless (&L)"), webp);
    lossless_->setObjectName("webpLossless");
    lossless_->setChecked(true);
    webpQuality_ = new QSpinBox(webp);
    webpQuality_->setObjectName("webpQuality");
    webpQuality_->setRange(0, 100);
    webpQuality_->setValue(90);
    webpQuality_->setPrefix(tr("Quality "));
    webpQuality_->setEnabled(false);
    connect(lossless_, &QCheckBox::toggled, webpQuality_, &QSpinBox::setDisabled);
    webpRow->addWidget(lossless_);
    webpRow->addWidget(webpQuality_);
    webpRow->addStretch(1);

    auto* body = new QVBoxLayout;
    body->addWidget(weight);
    body->addWidget(direction);
    body->addWidget(webp);
    FinishLayout(body);
    Show(settings.gifTimeWeight, settings.gifDirection);
}

int GifSettingsDialog::WebPQuality() const {
    return lossless_->isChecked() ? -1 : webpQuality_->value();
}

void GifSettingsDialog::Show(int timeWeight, int direction) {
    timeWeight_->setValue(timeWeight);
    (direction == 0 ? anticlockwise_ : clockwise_)->setChecked(true);
}

bool GifSettingsDialog::Store(AppSettings& s) {
    s.gifTimeWeight = timeWeight_->value();
    s.gifDirection = anticlockwise_->isChecked() ? 0 : 1;
    return true;
}

void GifSettingsDialog::RestoreDefaults() {
    if (!prompter_.AskYesNo(kRestoreDefaultQuestion, DefaultAnswer::kYes))
        return;
    const AppSettings defaults = Defaults();
    Show(defaults.gifTimeWeight, defaults.gifDirection);
}

}  // namespace kirameki
