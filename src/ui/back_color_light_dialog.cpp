#include "ui/back_color_light_dialog.h"

#include <QColorDialog>
#include <QGridLayout>
#include <QGroupBox>
#include <QLabel>
#include <QPushButton>
#include <QSpinBox>
#include <QVBoxLayout>

namespace kirameki {

BackColorLightDialog::BackColorLightDialog(const AppSettings& settings, Prompter& prompter,
                                           QWidget* parent)
    : SettingDialog(settings, prompter, parent) {
    setObjectName("BackColorLightSettingWnd");
    setWindowTitle(tr("BackColor / Light Volume"));

    auto* back = new QGroupBox(tr("Back Color"), this);
    auto* backGrid = new QGridLayout(back);
    const std::array<const char*, 3> colourNames = {"red", "green", "blue"};
    const std::array<QString, 3> colourCaptions = {tr("Red"), tr("Green"), tr("Blue")};
    for (int i = 0; i < 3; ++i) {
        colour_[i] =
            AddNumberRow(backGrid, i, colourNames[i], colourCaptions[i], 0, 255, QString(), true);
        connect(colour_[i], &QSpinBox::valueChanged, this, [this] { ShowSwatch(); });
    }
    swatch_ = new QLabel(this);
    swatch_->setObjectName("swatch");
    swatch_->setFixedSize(56, 56);
    swatch_->setFrameShape(QFrame::Box);
    swatch_->setAutoFillBackground(true);
    backGrid->addWidget(swatch_, 0, 4, 2, 1, Qt::AlignCenter);
    auto* pick = new QPushButton(tr("Color..."), this);
    pick->setAutoDefault(false);
    connect(pick, &QPushButton::clicked, this, [this] { PickColour(); });
    backGrid->addWidget(pick, 2, 4);
    backGrid->setColumnMinimumWidth(4, 80);

    auto* lights = new QGroupBox(tr("Light Volumes (Range = 0 to 200%)"), this);
    auto* lightGrid = new QGridLayout(lights);
    const std::array<const char*, 3> lightNames = {"mainLight", "backLight", "fillLight"};
    const std::array<QString, 3> lightCaptions = {tr("Main Light"), tr("Back Light"),
                                                  tr("Fill Light")};
    for (int i = 0; i < 3; ++i)
        volume_[i] =
            AddNumberRow(lightGrid, i, lightNames[i], lightCaptions[i], 0, 200, tr(" %"), true);
    AddHint(lightGrid, 3, tr("( Default = 100% each )"));
    lightGrid->setColumnMinimumWidth(4, 80);

    auto* body = new QVBoxLayout;
    body->addWidget(back);
    body->addWidget(lights);
    FinishLayout(body);
    Show(settings);
}

void BackColorLightDialog::Show(const AppSettings& s) {
    for (int i = 0; i < 3; ++i)
        colour_[i]->setValue(s.backColour[i]);
    volume_[0]->setValue(s.mainLightVolume);
    volume_[1]->setValue(s.backLightVolume);
    volume_[2]->setValue(s.fillLightVolume);
    ShowSwatch();
}

void BackColorLightDialog::ShowSwatch() {
    QPalette palette = swatch_->palette();
    palette.setColor(QPalette::Window,
                     QColor(colour_[0]->value(), colour_[1]->value(), colour_[2]->value()));
    swatch_->setPalette(palette);
}

void BackColorLightDialog::PickColour() {
    const QColor chosen = QColorDialog::getColor(
        QColor(colour_[0]->value(), colour_[1]->value(), colour_[2]->value()), this,
        tr("Back Color"));
    if (!chosen.isValid())
        return;
    colour_[0]->setValue(chosen.red());
    colour_[1]->setValue(chosen.green());
    colour_[2]->setValue(chosen.blue());
}

bool BackColorLightDialog::Store(AppSettings& s) {
    // Only red, green and blue are edited; the other elements are kept as they stand.
    for (int i = 0; i < 3; ++i)
        s.backColour[i] = static_cast<std::int16_t>(colour_[i]->value());
    s.mainLightVolume = volume_[0]->value();
    s.backLightVolume = volume_[1]->value();
    s.fillLightVolume = volume_[2]->value();
    return true;
}

void BackColorLightDialog::RestoreDefaults() {
    if (prompter_.AskYesNo(kRestoreDefaultsQuestion, DefaultAnswer::kYes))
        Show(Defaults());
}

}  // namespace kirameki
