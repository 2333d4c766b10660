#pragma once

#include <QImage>
#include <QWidget>

namespace kirameki {

// The separate "Render Window": the picture at its own size with a margin of 16 pixels,
// wider for small pictures so that the window is never narrower than 128 pixels. It opens
// beside the main window; "on top" keeps it above the main window only.
class RenderWindow : public QWidget {
    Q_OBJECT

  public:
    explicit RenderWindow(QWidget* owner = nullptr);

    static int Margin(int size);
    // Where a window of the given size goes beside the owner's frame: to its right when it
    // fits on the screen, else to its left, else at the screen's left edge (over the view
    // panel, leaving the controls free).
    static QPoint BesidePosition(const QRect& owner, QSize window, const QRect& screen);
    void Prepare(int size, bool topMost);
    void AddRows(const QImage& strip, int first, int size, bool show = true);
    const QImage& Picture() const { return picture_; }

  signals:
    void screenShotRequested();

  protected:
    void paintEvent(QPaintEvent* event) override;
    void contextMenuEvent(QContextMenuEvent* event) override;

  private:
    QWidget* owner_;
    QImage picture_;
    int size_ = 0;
    qreal ratio_ = 1.0;  // the device pixel ratio the window was sized for
    bool placed_ = false;
};

}  // namespace kirameki
