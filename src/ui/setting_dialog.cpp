#include "ui/setting_dialog.h"

#include <QAbstractSpinBox>
#include <QGridLayout>
#include <QHBoxLayout>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QSlider>
#include <QSpinBox>
#include <QVBoxLayout>

namespace kirameki {

SettingDialog::SettingDialog(const AppSettings& settings, Prompter& prompter, QWidget* parent)
    : QDialog(parent), prompter_(prompter), result_(settings) {}

void SettingDialog::accept() {
    // A half-typed number counts as typed; text that is no number falls back to the last value.
    for (auto* box : findChildren<QAbstractSpinBox*>())
        box->interpretText();
    AppSettings stored = result_;
    if (!Store(stored))
        return;
    result_ = stored;
    QDialog::accept();
}

void SettingDialog::FinishLayout(QLayout* body) {
    auto* restore = new QPushButton(tr("Default (&D)"), this);
    restore->setObjectName("default");
    restore->setAutoDefault(false);
    auto* ok = new QPushButton(tr("OK"), this);
    ok->setObjectName("ok");
    ok->setDefault(true);
    auto* cancel = new QPushButton(tr("CANCEL"), this);
    cancel->setObjectName("cancel");
    cancel->setAutoDefault(false);
    connect(restore, &QPushButton::clicked, this, [this] { RestoreDefaults(); });
    connect(ok, &QPushButton::clicked, this, &SettingDialog::accept);
    connect(cancel, &QPushButton::clicked, this, &SettingDialog::reject);

    auto* buttons = new QHBoxLayout;
    buttons->addWidget(restore);
    buttons->addStretch(1);
    buttons->addWidget(ok);
    buttons->addWidget(cancel);

    auto* layout = new QVBoxLayout(this);
    layout->addLayout(body);
    layout->addSpacing(6);
    layout->addLayout(buttons);
    layout->setSizeConstraint(QLayout::SetFixedSize);
}

QSpinBox* SettingDialog::AddNumberRow(QGridLayout* grid, int row, const char* name,
                                      const QString& caption, int minimum, int maximum,
                                      const QString& suffix, bool withSlider) {
    auto* box = new QSpinBox(this);
    box->setObjectName(name);
    box->setRange(minimum, maximum);
    box->setSuffix(suffix);
    box->setAlignment(Qt::AlignRight);
    box->setMinimumWidth(76);
    auto* label = new QLabel(caption, this);
    label->setBuddy(box);
    grid->addWidget(label, row, 0);
    if (withSlider) {
        auto* slider = new QSlider(Qt::Horizontal, this);
        slider->setRange(minimum, maximum);
        slider->setMinimumWidth(160);
        connect(slider, &QSlider::valueChanged, box, &QSpinBox::setValue);
        connect(box, &QSpinBox::valueChanged, slider, &QSlider::setValue);
        grid->addWidget(slider, row, 1);
    }
    grid->addWidget(box, row, 2);
    auto* range = new QLabel(tr("( %1 - %2 )").arg(minimum).arg(maximum), this);
    range->setObjectName(QString(name) + "Range");
    grid->addWidget(range, row, 3);
    ExplainRefusals(box, range, minimum, maximum);
    return box;
}

void SettingDialog::ExplainRefusals(QSpinBox* box, QLabel* range, int minimum, int maximum) {
    // The box drops a keystroke that would leave its range, and falls back to its last value
    // on OK when the text is out of range, both without a sound: the range label beside it
    // says why until the text is acceptable again.
    auto* edit = box->findChild<QLineEdit*>();
    if (!edit)
        return;
    const QString plain = range->text();
    const auto refuse = [range, minimum, maximum] {
        range->setText(tr("Only %1 to %2").arg(minimum).arg(maximum));
        range->setStyleSheet("color: #c62828; font-weight: bold;");
    };
    connect(edit, &QLineEdit::inputRejected, range, refuse);
    connect(edit, &QLineEdit::textChanged, range, [box, range, plain, refuse] {
        if (!box->hasAcceptableInput()) {
            refuse();
            return;
        }
        range->setText(plain);
        range->setStyleSheet(QString());
    });
}

void SettingDialog::AddHint(QGridLayout* grid, int row, const QString& text) {
    auto* hint = new QLabel(text, this);
    hint->setTextFormat(Qt::PlainText);
    hint->setForegroundRole(QPalette::PlaceholderText);
    grid->addWidget(hint, row, 0, 1, 4);
}

AppSettings SettingDialog::Defaults() {
    AppSettings defaults;
    LoadDefaults(defaults, DefaultFolders{});
    return defaults;
}

}  // namespace kirameki
