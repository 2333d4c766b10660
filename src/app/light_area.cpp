#include "app/light_area.h"

#include <QMouseEvent>
#include <QPainter>
#include <QPainterPath>
#include <QRadialGradient>
#include <cmath>

#include "worker/worker_sink.h"

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

void LightArea::SetViewPointPicture(bool shown) {
    viewPointPicture_ = shown;
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
    DrawTarget(painter);
}

void LightArea::DrawTarget(QPainter& painter) const {
    const QRectF box = TargetRect();
    const QPointF c = box.center();
    painter.setBrush(Qt::NoBrush);
    switch (target_) {
        case kTargetObject: {
            // A cut stone from the side: table, crown and a pointed pavilion.
            const QPolygonF stone({{c.x() - 8, c.y() - 11},
                                   {c.x() + 8, c.y() - 11},
                                   {c.x() + 16, c.y() - 4},
                                   {c.x(), c.y() + 13},
                                   {c.x() - 16, c.y() - 4}});
            painter.setPen(QPen(QColor(150, 210, 255), 1.5));
            painter.setBrush(QColor(60, 110, 170));
            painter.drawPolygon(stone);
            painter.drawLine(QPointF(c.x() - 16, c.y() - 4), QPointF(c.x() + 16, c.y() - 4));
            break;
        }
        case kTargetViewPoint: {
            if (!viewPointPicture_)
                break;
            // An eye.
            QPainterPath eye;
            eye.moveTo(c.x() - 18, c.y());
            eye.quadTo(c.x(), c.y() - 16, c.x() + 18, c.y());
            eye.quadTo(c.x(), c.y() + 16, c.x() - 18, c.y());
            painter.setPen(QPen(QColor(230, 230, 230), 1.5));
            painter.setBrush(QColor(240, 240, 235));
            painter.drawPath(eye);
            painter.setBrush(QColor(70, 130, 90));
            painter.drawEllipse(c, 6, 6);
            painter.setBrush(Qt::black);
            painter.drawEllipse(c, 2.5, 2.5);
            break;
        }
        case kTargetLight: {
            // A sun with its rays.
            painter.setPen(QPen(QColor(255, 220, 90), 2));
            for (int i = 0; i < 8; ++i) {
                const double a = i * 3.14159265358979323846 / 4;
                painter.drawLine(QPointF(c.x() + 8 * std::cos(a), c.y() + 8 * std::sin(a)),
                                 QPointF(c.x() + 13 * std::cos(a), c.y() + 13 * std::sin(a)));
            }
            painter.setBrush(QColor(255, 210, 60));
            painter.drawEllipse(c, 6, 6);
            break;
        }
        default:
            break;  // nothing turned yet, or the view was reset
    }
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
