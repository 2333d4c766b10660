#pragma once

#include <QImage>
#include <QWidget>

namespace kirameki {

// The view panel: the shaded surface model the worker drew, or the ray-traced picture
// centred in it, appearing row by row as the render runs. It works in device pixels: on a
// HiDPI screen the worker draws the preview at the device resolution and the rendered
// picture shows at its true pixel size, one picture pixel to one screen pixel, never
// resampled; its size, points and the trimming frame are all in device pixels.
class ViewPanel : public QWidget {
    Q_OBJECT

  public:
    explicit ViewPanel(QWidget* parent = nullptr);

    // A new surface model; it replaces a rendered picture unless keepRender is set (a
    // refresh for a new panel size only moves the picture).
    void ShowPreview(const QImage& preview, int imageSize, bool keepRender = false);
    bool TrimmingFrameShown() const { return trimmingShown_; }
    void BeginRender(int size);
    void AddRows(const QImage& strip, int first, int size, bool show = true);
    // Margins (top, bottom, left, right) of the trimming frame; all negative hides it.
    void SetTrimmingFrame(bool shown, int top, int bottom, int left, int right);
    bool ShowsRender() const { return showsRender_; }
    const QImage& RenderedPicture() const { return render_; }

  signals:
    void pressed(QPoint point);
    void moved(QPoint point);
    void released();
    void resized(QSize size);  // in device pixels

  protected:
    void paintEvent(QPaintEvent* event) override;
    void mousePressEvent(QMouseEvent* event) override;
    void mouseMoveEvent(QMouseEvent* event) override;
    void mouseReleaseEvent(QMouseEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;

  private:
    // Where a picture of `size` device pixels goes, in the widget's (logical) coordinates.
    QRectF ImageRect(int size) const;
    QPoint DevicePoint(QPointF logical) const;
    QSize DeviceSize() const;

    QImage preview_;
    QImage render_;
    int imageSize_ = 270;
    bool showsRender_ = false;
    bool trimmingShown_ = false;
    int margins_[4] = {0, 0, 0, 0};
    QSize reported_;  // the device size last told to the worker
};

}  // namespace kirameki
