#include "app/qt_prompter.h"

#include <QCoreApplication>
#include <QMessageBox>

namespace kirameki {

namespace {

QString Translated(const std::string& text) {
    return QCoreApplication::translate("Messages", text.c_str());
}

}  // namespace

bool QtPrompter::AskYesNo(const std::string& text, DefaultAnswer preset) {
    const auto answer =
        QMessageBox::warning(owner_, QCoreApplication::translate("Messages", "Confirmation"),
                             Translated(text), QMessageBox::Yes | QMessageBox::No,
                             preset == DefaultAnswer::kYes ? QMessageBox::Yes : QMessageBox::No);
    return answer == QMessageBox::Yes;
}

void QtPrompter::Tell(const std::string& text, bool warning) {
    QMessageBox box(warning ? QMessageBox::Warning : QMessageBox::NoIcon,
                    QCoreApplication::translate("Messages", "Confirmation"), Translated(text),
                    QMessageBox::Ok, owner_);
    box.exec();
}

}  // namespace kirameki
