#include "app/render_window.h"

#include <QContextMenuEvent>
#include <QMenu>
#include <QPainter>
#include <cmath>

namespace kirameki {

RenderWindow::RenderWindow(QWidget* parent) : QWidget(parent, Qt::Window) {
    setObjectName("RenderWnd");
    setWindowTitle(tr("Render Window"));
}

int RenderWindow::Margin(int size) {
    return size + 32 <= 127 ? int(std::lround((128 - size) * 0.5)) : 16;
}

void RenderWindow::Prepare(int size, bool topMost) {
    if (size != size_) {
        size_ = size;
        const int side = size + 2 * Margin(size);
        setFixedSize(side, side);
        picture_ = QImage(size, size, QImage::Format_RGB32);
        picture_.fill(Qt::black);
    }
    setWindowFlag(Qt::WindowStaysOnTopHint, topMost);
    show();
    raise();
}

void RenderWindow::AddRows(const QImage& strip, int first, int size, bool show) {
    if (size != size_)
        return;
    QPainter painter(&picture_);
    painter.drawImage(0, first, strip);
    painter.end();
    if (show)
        update();
}

void RenderWindow::paintEvent(QPaintEvent*) {
    QPainter painter(this);
    painter.fillRect(rect(), QColor(40, 40, 48));
    painter.drawImage(Margin(size_), Margin(size_), picture_);
}

void RenderWindow::contextMenuEvent(QContextMenuEvent* event) {
    QMenu menu(this);
    QAction* shot = menu.addAction(tr("Screen Shot (&S)"));
    menu.addSeparator();
    menu.addAction(tr("Cancel (&C)"));
    if (menu.exec(event->globalPos()) == shot)
        emit screenShotRequested();
}

}  // namespace kirameki
