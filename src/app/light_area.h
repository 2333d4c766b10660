#pragma once

#include <QRect>
#include <QWidget>

class QPainter;

namespace kirameki {

// The light-ray area of the information panel: a sphere lit from the light's direction,
// with the target picture (a small picture of what a drag or held button last turned: the
// stone, the eye of the view point or the light) beneath it. Dragging in it turns the light.
class LightArea : public QWidget {
    Q_OBJECT

  public:
    explicit LightArea(QWidget* parent = nullptr);
    void SetLight(double x, double y, double z);
    void SetTarget(int target);
    // The target-picture option of the settings: off, the view point's picture is not drawn.
    void SetViewPointPicture(bool shown);
    int Target() const { return target_; }
    // Where the target picture goes, in the area's coordinates.
    static QRect TargetRect() { return QRect(36, 106, 48, 30); }

  signals:
    void pressed(QPoint point);
    void moved(QPoint point);
    void released();

  protected:
    void paintEvent(QPaintEvent* event) override;
    void mousePressEvent(QMouseEvent* event) override;
    void mouseMoveEvent(QMouseEvent* event) override;
    void mouseReleaseEvent(QMouseEvent* event) override;

  private:
    void DrawTarget(QPainter& painter) const;

    double light_[3] = {0.0, 0.0, 1.0};
    int target_ = 0;
    bool viewPointPicture_ = true;
};

}  // namespace kirameki
