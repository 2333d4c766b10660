#include "app/progress_window.h"

#include <QLabel>
#include <QProgressBar>
#include <QPushButton>
#include <QTimer>
#include <QVBoxLayout>
#include <cmath>

namespace kirameki {

ProgressWindow::ProgressWindow(const QString& title, bool abortable, QWidget* parent)
    : QDialog(parent) {
    setObjectName(abortable ? "AutoCapProgressWnd" : "MakeAniGifProgressWnd");
    setWindowTitle(title);
    setModal(true);
    auto* layout = new QVBoxLayout(this);
    text_ = new QLabel(this);
    bar_ = new QProgressBar(this);
    bar_->setTextVisible(false);
    bar_->setMinimumWidth(360);
    layout->addWidget(text_);
    layout->addWidget(bar_);
    if (abortable) {
        abort_ = new QPushButton(tr("Abort (&A)"), this);
        connect(abort_, &QPushButton::clicked, this, [this] {
            abort_->setEnabled(false);
            emit abortRequested();
        });
        layout->addWidget(abort_, 0, Qt::AlignRight);
        auto* help = new QLabel(tr(" Click this button to abort capturing process.                "
                                   "You can resume capturing by choosing ") +
                                    tr("Resume(R)") + tr(" from ") +
                                    tr("Automatic Screen Capture(P)") + tr(" menu."),
                                this);
        help->setWordWrap(true);
        layout->addWidget(help);
    }
    Progress(0, 1);
}

void ProgressWindow::Progress(int frame, int frameCount) {
    bar_->setMaximum(std::max(frameCount, 1));
    bar_->setValue(std::min(frame, std::max(frameCount, 1)));
    const int percent = frameCount > 0 ? int(std::lround(frame * 100.0 / frameCount)) : 0;
    text_->setText(QString::asprintf("%d / %d        %d %%", frame, frameCount, percent));
}

void ProgressWindow::showEvent(QShowEvent* event) {
    QDialog::showEvent(event);
    if (!started_) {
        started_ = true;
        // Started once the window is up, so that a job that ends at once still closes it.
        QTimer::singleShot(0, this, &ProgressWindow::started);
    }
}

}  // namespace kirameki
