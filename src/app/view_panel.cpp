#include "app/view_panel.h"

#include <QMouseEvent>
#include <QPainter>

namespace kirameki {

ViewPanel::ViewPanel(QWidget* parent) : QWidget(parent) {
    setMinimumSize(320, 320);
    setAttribute(Qt::WA_OpaquePaintEvent);
    setMouseTracking(false);
    setCursor(Qt::OpenHandCursor);
}

QRect ViewPanel::ImageRect(int size) const {
    return QRect((width() - size) / 2, (height() - size) / 2, size, size);
}

void ViewPanel::ShowPreview(const QImage& preview, int imageSize, bool keepRender) {
    preview_ = preview;
    if (!keepRender) {
        imageSize_ = imageSize;
        showsRender_ = false;
    }
    update();
}

void ViewPanel::BeginRender(int size) {
    render_ = QImage(size, size, QImage::Format_ARGB32_Premultiplied);
    render_.fill(Qt::transparent);
    imageSize_ = size;
    showsRender_ = true;
    update();
}

void ViewPanel::AddRows(const QImage& strip, int first, int size, bool show) {
    if (render_.width() != size)
        BeginRender(size);
    QPainter painter(&render_);
    painter.drawImage(0, first, strip);
    painter.end();
    if (show)
        update(ImageRect(size).adjusted(0, first, 0, 0));
}

void ViewPanel::SetTrimmingFrame(bool shown, int top, int bottom, int left, int right) {
    trimmingShown_ = shown;
    margins_[0] = top;
    margins_[1] = bottom;
    margins_[2] = left;
    margins_[3] = right;
    update();
}

void ViewPanel::paintEvent(QPaintEvent*) {
    QPainter painter(this);
    painter.fillRect(rect(), Qt::black);
    if (!preview_.isNull())
        painter.drawImage(0, 0, preview_);
    const QRect image = ImageRect(imageSize_);
    if (showsRender_ && !render_.isNull())
        painter.drawImage(image.topLeft(), render_);
    if (trimmingShown_) {
        painter.setPen(QColor(0, 200, 0));
        painter.setBrush(Qt::NoBrush);
        painter.drawRect(
            image.adjusted(margins_[2], margins_[0], -margins_[3] - 1, -margins_[1] - 1));
    }
}

void ViewPanel::mousePressEvent(QMouseEvent* event) {
    if (event->button() == Qt::LeftButton)
        emit pressed(event->position().toPoint());
}

void ViewPanel::mouseMoveEvent(QMouseEvent* event) {
    if (event->buttons() & Qt::LeftButton)
        emit moved(event->position().toPoint());
}

void ViewPanel::mouseReleaseEvent(QMouseEvent* event) {
    if (event->button() == Qt::LeftButton)
        emit released();
}

void ViewPanel::resizeEvent(QResizeEvent*) {
    emit resized(size());
}

}  // namespace kirameki
