#include "app/light_area.h"

#include <QMouseEvent>
#include <QPainter>
#include <QRadialGradient>

#include "app/worker_sink.h"

namespace kirameki {

LightArea::LightArea(QWidget* parent) : QWidget(parent) {
    setFixedSize(120, 140);
    setCursor(Qt::OpenHandCursor);
    setToolTip(tr("Drag to turn the light ray"));
}

void LightArea::SetLight(double x, double y, double z) {
    light_[0] = x;
    light_[1] = y;
    light_[2] = z;
    update();
}

void LightArea::SetTarget(int target) {
    target_ = target;
    update();
}

void LightArea::paintEvent(QPaintEvent*) {
    QPainter painter(this);
    painter.setRenderHint(QPainter::Antialiasing);
    painter.fillRect(rect(), QColor(24, 24, 32));
    const QPointF centre(60, 58);
    const double radius = 44;
    // The sphere's brightest point faces the light: against the direction it travels.
    const QPointF highlight(centre.x() - light_[0] * radius * 0.8,
                            centre.y() + light_[1] * radius * 0.8);
    QRadialGradient gradient(highlight, radius * 1.6);
    gradient.setColorAt(0.0, light_[2] > 0 ? QColor(255, 255, 240) : QColor(170, 170, 160));
    gradient.setColorAt(1.0, QColor(30, 30, 40));
    painter.setPen(QColor(90, 90, 110));
    painter.setBrush(gradient);
    painter.drawEllipse(centre, radius, radius);
    painter.setPen(QPen(QColor(255, 220, 90), 2));
    painter.drawLine(highlight, centre);
    QString label;
    switch (target_) {
        case kTargetObject:
            label = tr("object");
            break;
        case kTargetViewPoint:
            label = tr("view point");
            break;
        case kTargetLight:
            label = tr("light ray");
            break;
        default:
            label = tr("-");
            break;
    }
    painter.setPen(QColor(200, 200, 210));
    painter.drawText(QRect(0, 110, width(), 24), Qt::AlignCenter, label);
}

void LightArea::mousePressEvent(QMouseEvent* event) {
    if (event->button() == Qt::LeftButton)
        emit pressed(event->position().toPoint());
}

void LightArea::mouseMoveEvent(QMouseEvent* event) {
    if (event->buttons() & Qt::LeftButton)
        emit moved(event->position().toPoint());
}

void LightArea::mouseReleaseEvent(QMouseEvent* event) {
    if (event->button() == Qt::LeftButton)
        emit released();
}

}  // namespace kirameki
