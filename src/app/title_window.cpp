#include "app/title_window.h"

#include <QLabel>
#include <QPushButton>
#include <QTimer>
#include <QVBoxLayout>

namespace kirameki {

TitleWindow::TitleWindow(QWidget* parent) : QDialog(parent) {
    setObjectName("TitleWnd");
    setWindowTitle(tr("Welcome"));
    setAttribute(Qt::WA_DeleteOnClose);
    auto* layout = new QVBoxLayout(this);
    auto* title = new QLabel("<h1>K i r a m e k i</h1>", this);
    title->setAlignment(Qt::AlignCenter);
    layout->addWidget(title);
    auto* text = new QLabel(tr("A viewer and ray-tracing renderer for cut gemstones.\n"
                               "Choose a stone, turn it, and press Ray-Trace."),
                            this);
    text->setAlignment(Qt::AlignCenter);
    layout->addWidget(text);
    auto* ok = new QPushButton(tr("OK"), this);
    connect(ok, &QPushButton::clicked, this, &QDialog::accept);
    layout->addWidget(ok, 0, Qt::AlignCenter);
    QTimer::singleShot(8000, this, &QDialog::accept);
}

}  // namespace kirameki
