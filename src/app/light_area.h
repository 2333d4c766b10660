#pragma once

#include <QWidget>

namespace kirameki {

// The light-ray area of the information panel: a sphere lit from the light's direction,
// with the target picture (what a drag or held button last turned) beneath it. Dragging
// in it turns the light.
class LightArea : public QWidget {
    Q_OBJECT

  public:
    explicit LightArea(QWidget* parent = nullptr);
    void SetLight(double x, double y, double z);
    void SetTarget(int target);

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
    double light_[3] = {0.0, 0.0, 1.0};
    int target_ = 0;
};

}  // namespace kirameki
