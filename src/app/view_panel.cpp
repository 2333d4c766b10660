#include "app/view_panel.h"

#include <QMouseEvent>
#include <QPainter>
#include <cmath>

namespace kirameki {

ViewPanel::ViewPanel(QWidget* parent) : QWidget(parent) {
    setMinimumSize(320, 320);
    setAttribute(Qt::WA_OpaquePaintEvent);
    setMouseTracking(false);
    setCursor(Qt::OpenHandCursor);
}

QSize ViewPanel::DeviceSize() const {
    const qreal ratio = devicePixelRatioF();
    return QSize(int(std::lround(width() * ratio)), int(std::lround(height() * ratio)));
}

QRectF ViewPanel::ImageRect(int size) const {
    // Centred on a whole device pixel, so that the picture's pixels meet the screen's.
    const qreal ratio = devicePixelRatioF();
    const QSize device = DeviceSize();
    const QPointF corner((device.width() - size) / 2, (device.height() - size) / 2);
    return QRectF(corner / ratio, QSizeF(size, size) / ratio);
}

QPoint ViewPanel::DevicePoint(QPointF logical) const {
    return (logical * devicePixelRatioF()).toPoint();
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
        update(ImageRect(size).toAlignedRect());
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
    // Moved to a screen of another pixel ratio: the worker draws for the new device size.
    if (DeviceSize() != reported_) {
        reported_ = DeviceSize();
        emit resized(reported_);
    }
    QPainter painter(this);
    painter.fillRect(rect(), Qt::black);
    // Both pictures are in device pixels: drawn into their logical rectangles they map one
    // to one onto the screen (no smoothing is asked for, so nothing is blended).
    const qreal ratio = devicePixelRatioF();
    if (!preview_.isNull())
        painter.drawImage(QRectF(QPointF(0, 0), QSizeF(preview_.size()) / ratio), preview_);
    const QRectF image = ImageRect(imageSize_);
    if (showsRender_ && !render_.isNull())
        painter.drawImage(image, render_);
    if (trimmingShown_) {
        painter.setPen(QPen(QColor(0, 200, 0), 0));
        painter.setBrush(Qt::NoBrush);
        painter.drawRect(image.adjusted(margins_[2] / ratio, margins_[0] / ratio,
                                        -(margins_[3] + 1) / ratio, -(margins_[1] + 1) / ratio));
    }
}

void ViewPanel::mousePressEvent(QMouseEvent* event) {
    if (event->button() == Qt::LeftButton)
        emit pressed(DevicePoint(event->position()));
}

void ViewPanel::mouseMoveEvent(QMouseEvent* event) {
    if (event->buttons() & Qt::LeftButton)
        emit moved(DevicePoint(event->position()));
}

void ViewPanel::mouseReleaseEvent(QMouseEvent* event) {
    if (event->button() == Qt::LeftButton)
        emit released();
}

void ViewPanel::resizeEvent(QResizeEvent*) {
    reported_ = DeviceSize();
    emit resized(reported_);
}

}  // namespace kirameki
