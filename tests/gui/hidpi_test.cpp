// The view panel and the render window on a screen of twice the pixel density (run with
// QT_SCALE_FACTOR=2): the rendered picture keeps its pixels, one to one with the screen's.
#include <QSignalSpy>
#include <QtTest>

#include "app/render_window.h"
#include "app/view_panel.h"

namespace kirameki {

namespace {

// A picture whose every pixel differs from its neighbours: any resampling shows.
QImage Checkerboard(int size) {
    QImage image(size, size, QImage::Format_RGB888);
    for (int y = 0; y < size; ++y)
        for (int x = 0; x < size; ++x)
            image.setPixelColor(x, y, (x + y) % 2 ? QColor(250, 200, 10) : QColor(10, 40, 200));
    return image;
}

// Where the picture sits in a grab (device pixels): the first picture-coloured pixel.
QPoint Corner(const QImage& grab) {
    for (int y = 0; y < grab.height(); ++y)
        for (int x = 0; x < grab.width(); ++x)
            if (grab.pixelColor(x, y) == QColor(10, 40, 200))
                return {x, y};
    return {-1, -1};
}

bool HoldsPixelForPixel(const QImage& grab, const QImage& picture) {
    const QPoint corner = Corner(grab);
    if (corner.x() < 0)
        return false;
    for (int y = 0; y < picture.height(); ++y)
        for (int x = 0; x < picture.width(); ++x)
            if (grab.pixelColor(corner + QPoint(x, y)) != picture.pixelColor(x, y))
                return false;
    return true;
}

}  // namespace

class HiDpiTest : public QObject {
    Q_OBJECT

  private slots:
    void ViewPanelShowsTheTruePixels() {
        ViewPanel panel;
        QSignalSpy resized(&panel, &ViewPanel::resized);
        panel.resize(400, 400);
        panel.show();
        QVERIFY(QTest::qWaitForWindowExposed(&panel));
        QCOMPARE(panel.devicePixelRatioF(), 2.0);
        QTRY_VERIFY(!resized.isEmpty());
        QCOMPARE(resized.last().first().toSize(), QSize(800, 800));  // what the worker draws
        const QImage picture = Checkerboard(60);
        panel.BeginRender(60);
        panel.AddRows(picture, 0, 60);
        const QImage grab = panel.grab().toImage();
        QCOMPARE(grab.size(), QSize(800, 800));
        QVERIFY(HoldsPixelForPixel(grab, picture));
        QCOMPARE(Corner(grab), QPoint(370, 370));  // centred in device pixels
    }

    void RenderWindowShowsTheTruePixels() {
        RenderWindow window;
        window.Prepare(60, false);
        QVERIFY(QTest::qWaitForWindowExposed(&window));
        const QImage picture = Checkerboard(60);
        window.AddRows(picture, 0, 60);
        QVERIFY(HoldsPixelForPixel(window.grab().toImage(), picture));
    }
};

}  // namespace kirameki

QTEST_MAIN(kirameki::HiDpiTest)
#include "hidpi_test.moc"
