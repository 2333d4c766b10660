#pragma once

#include <QImage>
#include <QWidget>

namespace kirameki {

// The separate "Render Window": the picture at its own size with a margin of 16 pixels,
// wider for small pictures so that the window is never narrower than 128 pixels.
class RenderWindow : public QWidget {
    Q_OBJECT

  public:
    explicit RenderWindow(QWidget* parent = nullptr);

    static int Margin(int size);
    void Prepare(int size, bool topMost);
    void AddRows(const QImage& strip, int first, int size, bool show = true);
    const QImage& Picture() const { return picture_; }

  signals:
    void screenShotRequested();

  protected:
    void paintEvent(QPaintEvent* event) override;
    void contextMenuEvent(QContextMenuEvent* event) override;

  private:
    QImage picture_;
    int size_ = 0;
};

}  // namespace kirameki
