#include "app/render_window.h"

#include <QContextMenuEvent>
#include <QMenu>
#include <QPainter>
#include <QScreen>
#include <algorithm>
#include <cmath>

namespace kirameki {

RenderWindow::RenderWindow(QWidget* owner) : QWidget(owner, Qt::Window), owner_(owner) {
    setObjectName("RenderWnd");
    setWindowTitle(tr("Render Window"));
}

int RenderWindow::Margin(int size) {
    return size + 32 <= 127 ? int(std::lround((128 - size) * 0.5)) : 16;
}

void RenderWindow::Prepare(int size, bool topMost) {
    // The picture shows at its true pixel size: on a HiDPI screen it takes fewer logical
    // pixels rather than being resampled.
    const qreal ratio = devicePixelRatioF();
    if (size != size_ || ratio != ratio_) {
        size_ = size;
        ratio_ = ratio;
        const int side = int(std::ceil(size / ratio)) + 2 * Margin(size);
        setFixedSize(side, side);
        picture_ = QImage(size, size, QImage::Format_RGB32);
        picture_.fill(Qt::black);
    }
    // On top: a dialog-type window of the main window, which window managers keep above
    // that window and nothing else (dialogs and other programs stay in front). Otherwise a
    // window of its own that the main window may cover.
    QWidget* parent = topMost ? owner_ : nullptr;
    const Qt::WindowType type = topMost ? Qt::Dialog : Qt::Window;
    if (parentWidget() != parent || windowType() != type) {
        const bool wasPlaced = placed_;
        const QPoint at = pos();
        setParent(parent, type);
        if (wasPlaced)
            move(at);
    }
    if (!placed_ && owner_) {
        const QScreen* screen = owner_->screen();
        move(BesidePosition(owner_->frameGeometry(), QWidget::size(),
                            screen ? screen->availableGeometry() : QRect()));
        placed_ = true;
    }
    show();
    raise();
}

QPoint RenderWindow::BesidePosition(const QRect& owner, QSize window, const QRect& screen) {
    constexpr int kGap = 8;  // room for the window manager's frame
    const int width = window.width() + kGap;
    int x = owner.right() + 1 + kGap;
    if (screen.isValid() && x + width > screen.right() + 1) {
        x = owner.left() - width;
        // No room on either side: cover the view panel (the owner's left part), never its
        // controls, which stay in reach.
        if (x < screen.left())
            x = screen.left();
    }
    int y = owner.top();
    if (screen.isValid())
        y = std::clamp(y, screen.top(),
                       std::max(screen.top(), screen.bottom() + 1 - window.height()));
    return {x, y};
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
    const qreal ratio = devicePixelRatioF();
    painter.drawImage(
        QRectF(QPointF(Margin(size_), Margin(size_)), QSizeF(picture_.size()) / ratio), picture_);
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
