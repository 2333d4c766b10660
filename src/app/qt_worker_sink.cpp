#include "app/qt_worker_sink.h"

#include <QPainter>
#include <QPolygon>

namespace kirameki {

namespace {

const QColor kPanelBackground(0, 0, 0);

QColor ColourOf(std::uint32_t rgb) {
    return QColor(RedOf(rgb), GreenOf(rgb), BlueOf(rgb));
}

}  // namespace

QtWorkerSink::QtWorkerSink(QObject* parent) : QObject(parent) {}

void QtWorkerSink::OpenTitleWindow() {
    emit titleWindowRequested();
}

void QtWorkerSink::PreviewDrawn(const PreviewPicture& picture) {
    QImage image(std::max(picture.panel.width, 1), std::max(picture.panel.height, 1),
                 QImage::Format_RGB32);
    image.fill(kPanelBackground);
    QPainter painter(&image);
    QPolygon polygon;
    for (int i = 0; i < picture.polygons.facesDrawn; ++i) {
        const PreviewPolygon& face = picture.polygons.polygons[i];
        polygon.resize(face.count);
        for (int j = 0; j < face.count; ++j)
            polygon[j] = QPoint(face.points[j].x, face.points[j].y);
        const QColor colour = ColourOf(face.colour);
        painter.setPen(colour);
        painter.setBrush(colour);
        painter.drawPolygon(polygon);
    }
    painter.end();
    const Vec3 l = picture.lightDirection;
    emit previewReady(image, picture.imageSize, l.x, l.y, l.z, picture.target,
                      picture.targetChanged);
}

void QtWorkerSink::RenderStarted() {
    emit renderStarted();
}
void QtWorkerSink::RenderProgress(int percent) {
    emit renderProgress(percent);
}

QImage QtWorkerSink::ToQImage(const FrameImage& image, int first, int last) {
    QImage strip(image.Width(), last - first + 1, QImage::Format_RGB888);
    for (int y = first; y <= last; ++y) {
        const std::uint8_t* bgr = image.Row(y);
        uchar* rgb = strip.scanLine(y - first);
        for (int x = 0; x < image.Width(); ++x) {
            rgb[3 * x] = bgr[3 * x + 2];
            rgb[3 * x + 1] = bgr[3 * x + 1];
            rgb[3 * x + 2] = bgr[3 * x];
        }
    }
    return strip;
}

void QtWorkerSink::RenderRows(const FrameImage& image, int first, int last) {
    emit rowsRendered(ToQImage(image, first, last), first, image.Width());
}

void QtWorkerSink::RenderFinished() {
    emit renderFinished();
}
void QtWorkerSink::CaptureProgress(int frame, int frameCount) {
    emit captureProgress(frame, frameCount);
}
void QtWorkerSink::CaptureFinished(int result) {
    emit captureFinished(result);
}
void QtWorkerSink::GifProgress(int frame, int frameCount) {
    emit gifProgress(frame, frameCount);
}
void QtWorkerSink::GifFinished(int result) {
    emit gifFinished(result);
}
void QtWorkerSink::LightStudyProgress(int done, int total) {
    emit lightStudyProgress(done, total);
}
void QtWorkerSink::LightStudyFinished(int result, const LightStudy& study) {
    {
        std::lock_guard lock(studyMutex_);
        study_ = study;
    }
    emit lightStudyFinished(result);
}
LightStudy QtWorkerSink::TakeLightStudy() {
    std::lock_guard lock(studyMutex_);
    return std::exchange(study_, LightStudy{});
}

}  // namespace kirameki
